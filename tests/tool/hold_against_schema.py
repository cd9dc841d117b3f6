"""Validates JSON documents against a schema: hold_against_schema.py SCHEMA DOCUMENT...

In a file whose name ends with .jsonl, each line is a document.

Members that the schema does not describe are errors here: programs have to accept them, but this schema has to be complete.
"""
import json
import sys

import jsonschema


def close(schema):
    if isinstance(schema, dict):
        if "properties" in schema:
            schema["additionalProperties"] = False
        for part in schema.values():
            close(part)
    elif isinstance(schema, list):
        for part in schema:
            close(part)


with open(sys.argv[1], encoding="utf-8") as file:
    schema = json.load(file)
jsonschema.Draft202012Validator.check_schema(schema)
close(schema)
validator = jsonschema.Draft202012Validator(schema)
faults = 0
for name in sys.argv[2:]:
    with open(name, encoding="utf-8") as file:
        texts = file if name.endswith(".jsonl") else [file.read()]
        for text in texts:
            for fault in validator.iter_errors(json.loads(text)):
                print(f"{name}: {fault.json_path}: {fault.message}"[:400])
                faults += 1
sys.exit(1 if faults else 0)
