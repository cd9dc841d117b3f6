"""Loads the completion scripts into bash, zsh and fish and compares what each offers for a command line.

usage: completions.py VELK FOLDER, which has the example images
"""

import os
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77  # to ctest

# A command line up to the cursor, and the words that are offered for its last one.
OFFERS = [
    ("velk ex", "explain export"),
    ("velk table ", "export import"),
    ("velk export --format ", "json jsonl csv tidy table"),
    ("velk print --page s", "summary"),
    ("velk completion ", "bash zsh fish"),
    ("velk help re", "recover redact remove"),
    ("velk redact --in", "--in-place --input"),
    ("velk table import --fo", "--force"),
    ("velk list rf", "rf_board.bin rf_board_tables.bin"),
    ("velk export --format json rf_board_", "rf_board_tables.bin"),
    ("velk explain unord", "unordered-points"),
    ("velk check --only zero", "zero-values"),
    ("velk print --id DACB_FREQUENCY_COMP_D", "DACB_FREQUENCY_COMP_DT DACB_FREQUENCY_COMP_DT_REAR"),
    ("velk print rf_board.bin --id IDENT_", "IDENT_10 IDENT_2"),
    ("velk set rf_board.bin --id 2 serial", "serialNumber="),
    ("velk get rf_board.bin IDENT_1", "IDENT_10."),
    ("velk get rf_board.bin IDENT_2.PA", "IDENT_2.PARTNUMBER"),
]

BASH = """
source "$1"; shift
compopt() { :; }
for line; do
  read -ra COMP_WORDS <<<"$line"
  [[ $line == *' ' ]] && COMP_WORDS+=("")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  _velk
  printf '%s\\n' "${COMPREPLY[@]}" %
done
"""

# The line editor needs a terminal, so an inner shell has one. It writes down what is passed to compadd.
ZSH = """
zmodload zsh/zpty
zpty inner 'TERM=dumb zsh -f -i'
zpty -w inner "fpath=(${1:h} \\$fpath); out=$2; autoload -U compinit; compinit -u -D; bindkey '^I' list-choices"
zpty -w inner 'compadd() {
  if [[ "$*" != *-[OAD]\\ * ]]; then local -a hits; builtin compadd -O hits "$@"; print -rl -- $hits >>$out; fi
  builtin compadd "$@"
}'
zpty -w inner 'PS1=READY''-'
zpty -r inner ignored '*READY-*'
for line in "${@:3}"; do
  zpty -w -n inner "$line"$'\\t\\x15'
  zpty -w inner 'print % >>$out'
done
zpty -w inner 'print DO''NE'
zpty -r inner ignored '*DONE*'
cat $2
"""

FISH = """
source $argv[1]
for line in $argv[2..]
  complete -C $line
  echo %
end
"""

SHELLS = [
    ("bash", ["--norc", "--noprofile", "-c", BASH, "bash"], "velk.bash", []),
    ("zsh", ["-f", "-c", ZSH, "zsh"], "_velk", ["offers"]),
    ("fish", ["--no-config", "-c", FISH, "--"], "velk.fish", []),
]


def offered(program, arguments, script, files, folder):
    """The sets of words that a shell offers, one for each command line."""
    paths = [script] + [os.path.join(os.path.dirname(script), name) for name in files]
    command = [program, *arguments, *paths, *(line for line, _ in OFFERS)]
    environment = {"HOME": os.path.dirname(script), "PATH": os.path.dirname(os.path.abspath(sys.argv[1])) + ":" + os.environ["PATH"], "LC_ALL": "C.UTF-8"}
    result = subprocess.run(command, cwd=folder, env=environment, capture_output=True, text=True, timeout=120)
    sets = [set()]
    for line in result.stdout.splitlines():
        if line == "%":
            sets.append(set())
        elif line.strip():
            sets[-1].add(line.split("\t")[0].strip())
    if result.stderr:
        print(result.stderr)
    return sets[:-1]


def main():
    velk, folder = sys.argv[1:]
    wrong = missing = 0
    for name, arguments, script, files in SHELLS:
        program = shutil.which(name)
        if program is None:
            print(f"{name} is not installed: ./dev test installs it")
            missing += 1
            continue
        with tempfile.TemporaryDirectory() as scratch:
            path = os.path.join(scratch, script)
            with open(path, "w", encoding="utf-8") as file:
                subprocess.run([velk, "completion", name], stdout=file, check=True)
            found = offered(program, arguments, path, files, folder)
        if len(found) != len(OFFERS):
            print(f"{name}: {len(found)} answers to {len(OFFERS)} lines")
            wrong += 1
        for (line, expected), words in zip(OFFERS, found):
            if words != set(expected.split()):
                print(f"{name}: {line!r} offers {' '.join(sorted(words))!r} and not {expected!r}")
                wrong += 1
    if wrong or (missing and "CI" in os.environ):
        return 1
    return SKIPPED if missing else 0


sys.exit(main())
