"""Lets other tools write every example image in every form they know, and holds that velk finds the same in each; then
lets them read what velk writes.

usage: against_tools.py VELK FOLDER, which has the example images
"""

import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

VELK, FOLDER = sys.argv[1], pathlib.Path(sys.argv[2])
PACKAGES = {"objcopy": "binutils", "srec_cat": "srecord", "xxd": "xxd", "hexdump": "bsdextrautils", "gzip": "gzip"}
WORKERS = len(os.sched_getaffinity(0))
HIGH = 0x08000000

# What a file's form alone decides.
FORM_MEMBERS = ("file", "format", "address", "gaps")

# A form of an image: what velk calls its container, the command that writes it to standard output or to {out}, the
# address at which it puts the image, the one that it reaches, and whether the tools read it themselves.
Form = collections.namedtuple("Form", "name container command address reach is_read", defaults=[0, 1 << 32, True])

OBJCOPY_KINDS = {"hex": "ihex", "srec": "srec"}
SREC_CAT_KINDS = {"hex": "-Intel", "srec": "-Motorola"}


def objcopy(name, container, *options, address=0):
    moved = ["--change-addresses", str(address)]
    command = ("objcopy", "-I", "binary", "-O", OBJCOPY_KINDS[container], *moved, *options, "{in}", "{out}")
    return Form(f"objcopy-{name}", container, command, address)


def srec_cat(name, container, *options, address=0, reach=1 << 32, is_read=True):
    command = ("srec_cat", "{in}", "-Binary", "-offset", str(address), "-o", "{out}", SREC_CAT_KINDS[container], *options)
    return Form(f"srec_cat-{name}", container, command, address, reach, is_read)


FORMS = [
    objcopy("ihex", "hex"),
    objcopy("ihex-moved", "hex", address=0x4000),
    objcopy("ihex-odd", "hex", address=0xFFF3),
    objcopy("ihex-high", "hex", address=HIGH),
    objcopy("srec", "srec"),
    objcopy("srec-moved", "srec", address=0x4001),
    objcopy("srec-high", "srec", address=HIGH),
    objcopy("srec-short", "srec", "--srec-len", "7"),
    objcopy("srec-long", "srec", "--srec-len", "240"),
    objcopy("srec-s3", "srec", "--srec-forceS3"),
    objcopy("srec-s3-long", "srec", "--srec-forceS3", "--srec-len", "64"),
    srec_cat("intel", "hex"),
    srec_cat("intel-16-bit", "hex", "-address-length=2", reach=1 << 16),
    srec_cat("intel-20-bit", "hex", "-address-length=3", reach=1 << 20),
    srec_cat("intel-32-bit", "hex", "-address-length=4"),
    srec_cat("intel-8", "hex", "-obs=8"),
    srec_cat("intel-1", "hex", "-obs=1"),
    srec_cat("intel-255", "hex", "-obs=255"),
    srec_cat("intel-narrow", "hex", "-line-length=33"),
    srec_cat("intel-crlf", "hex", "-line-termination=crlf"),
    srec_cat("intel-start", "hex", "-execution-start-address=0x100"),
    srec_cat("intel-moved", "hex", address=0x1234),
    srec_cat("intel-20-bit-moved", "hex", "-address-length=3", address=0xFFF1, reach=1 << 20),
    srec_cat("intel-high", "hex", address=HIGH + 0x8001),
    srec_cat("motorola", "srec"),
    srec_cat("motorola-S1", "srec", "-address-length=2", reach=1 << 16),
    srec_cat("motorola-S2", "srec", "-address-length=3", reach=1 << 24),
    srec_cat("motorola-S3", "srec", "-address-length=4"),
    srec_cat("motorola-9", "srec", "-obs=9"),
    srec_cat("motorola-250", "srec", "-obs=250"),
    srec_cat("motorola-wide", "srec", "-line-length=100"),
    srec_cat("motorola-header", "srec", "-header", "made of S1 and S9"),
    srec_cat("motorola-headless", "srec", "-disable=header"),
    srec_cat("motorola-start", "srec", "-execution-start-address=0x100"),
    srec_cat("motorola-uncounted", "srec", "-disable=data-count", "-execution-start-address=0"),
    srec_cat("motorola-cr", "srec", "-line-termination=cr", is_read=False),
    srec_cat("motorola-high", "srec", address=HIGH + 3),
    Form("xxd", "hexdump", ("xxd", "{in}")),
    Form("xxd-upper", "hexdump", ("xxd", "-u", "{in}")),
    Form("xxd-plain", "hexdump", ("xxd", "-p", "{in}")),
    Form("xxd-8", "hexdump", ("xxd", "-c", "8", "{in}")),
    Form("xxd-bytes", "hexdump", ("xxd", "-g", "1", "{in}")),
    Form("hexdump", "hexdump", ("hexdump", "-C", "{in}")),
    Form("hexdump-all", "hexdump", ("hexdump", "-C", "-v", "{in}")),
    Form("gzip", "gzip", ("gzip", "-1", "-c", "{in}")),
    Form("gzip-best", "gzip", ("gzip", "-9", "-n", "-c", "{in}")),
    Form("gzip-of-hex", "gzip", ("gzip", "-9", "-c", "{objcopy-ihex}")),
]


def known_containers():
    """The names that velk takes for a container of a file."""
    text = subprocess.run([VELK, "list", "--help"], capture_output=True, text=True, check=True).stdout
    return set(re.search(r"--input (\S+)", text)[1].split("|"))


def images():
    return sorted(path for path in FOLDER.iterdir() if path.suffix in (".bin", ".dump"))


def run(words):
    return subprocess.run(list(map(str, words)), capture_output=True, check=False)


def made_by(words):
    result = run(words)
    assert result.returncode == 0, f"{' '.join(map(str, words))}: {result.stderr.decode()}"
    return result.stdout


def make(form, image, folder):
    """Writes one form of an image. Returns its path."""
    path = folder / f"{form.name}.{image.name}"
    words = {"{in}": image, "{out}": path}
    words.update({f"{{{other.name}}}": folder / f"{other.name}.{image.name}" for other in FORMS})
    output = made_by([words.get(word, word) for word in form.command])
    if "{out}" not in form.command:
        path.write_bytes(output)
    return path


def make_all(image, folder):
    """Writes every form of an image that reaches its end and that velk knows. Returns their paths by form."""
    size, known = image.stat().st_size, known_containers()
    forms = [form for form in FORMS if form.container in known and form.address + size <= form.reach]
    return {form: make(form, image, folder) for form in forms}


def found(arguments, paths):
    """What velk reports of each file, and the exit code."""
    result = run([VELK, *arguments, *paths])
    assert result.returncode < 2, result.stderr.decode()
    return json.loads(result.stdout)["files"], result.returncode


def difference(one, other, path=""):
    """The first place at which two JSON values differ, with both values; None if they are equal."""
    if isinstance(one, dict) and isinstance(other, dict) and one.keys() == other.keys():
        inner = (difference(one[key], other[key], f"{path}.{key}") for key in one)
    elif isinstance(one, list) and isinstance(other, list) and len(one) == len(other):
        inner = (difference(a, b, f"{path}[{i}]") for i, (a, b) in enumerate(zip(one, other)))
    else:
        return None if one == other else f"{path}: {str(one)[:200]} and not {str(other)[:200]}"
    return next((place for place in inner if place), None)


def check_reading(image, made):
    """Yields what is wrong with velk's reading of the forms of an image."""
    for arguments in (["list", "--json"], ["export"]):
        [expected], expected_code = found(arguments, [image])
        files, code = found(arguments, made.values())
        if code != expected_code:
            yield f"{arguments[0]}: {image.name}: exit code is {code} and not {expected_code}"
        for form, file in zip(made, files, strict=True):
            wanted = expected | {key: file[key] for key in FORM_MEMBERS} | {"address": form.address}
            if place := difference(file, wanted):
                yield f"{arguments[0]}: {form.name}.{image.name}: {place}"


def change(path, words, to):
    """Changes fields with velk. Returns the file, or None if velk refuses."""
    return to if run([VELK, "set", path, *words, "-o", to]).returncode == 0 else None


def an_edit(image, folder):
    """The arguments of `velk set` that change a number in an image, and the file with the change."""
    for block in found(["export"], [image])[0][0]["blocks"]:
        fields = block.get("fields", {}).items()
        values = [*fields, *((f"{key}[0]", value[0]) for key, value in fields if isinstance(value, list) and value)]
        for name, value in values:
            words = ["--id", block["id"], "--stored", f"{name}=4"]
            if block["sound"] and isinstance(value, (int, float)) and value != 4:
                if changed := change(image, words, folder / f"changed.{image.name}"):
                    return words, changed
    sys.exit(f"velk set changes nothing in {image.name}")


def read_back(path, form):
    """Yields the name of each of the other tools, and the bytes that it reads from a file."""
    raw = path.with_name(f"{path.name}.raw")
    made_by(["objcopy", "-I", OBJCOPY_KINDS[form.container], "-O", "binary", path, raw])
    yield "objcopy", raw.read_bytes()
    made_by(["srec_cat", path, SREC_CAT_KINDS[form.container], "-offset", -form.address, "-o", raw, "-Binary"])
    yield "srec_cat", raw.read_bytes()


def check_writing(image, made, folder):
    """Yields each file that velk wrote, and what is wrong with the other tools' reading of it."""
    words, expected = an_edit(image, folder)
    readable = [form for form in made if form.container in OBJCOPY_KINDS and form.is_read]
    some = readable[:: 4 if image.stat().st_size > 0x10000 else 1]  # a large image takes long
    work = [(form, made[form], words) for form in some]
    for name in OBJCOPY_KINDS:
        work.append((Form(f"velk-{name}", name, ()), image, [*words, "--container", name]))
    for form, path, words_ in work:
        changed = change(path, words_, folder / f"changed.{form.name}.{image.name}")
        assert changed, f"velk set {path.name} {words} writes nothing"
        readers = [tool for tool, contents in read_back(changed, form) if contents != expected.read_bytes()]
        yield changed, [f"{tool} reads other bytes from {changed.name}" for tool in readers]


def check(image, folder):
    """Returns how many forms of an image were read, how many written, and what was wrong."""
    made = make_all(image, folder)
    wrong = list(check_reading(image, made))
    written = list(check_writing(image, made, folder))
    return len(made), len(written), wrong + [line for _, lines in written for line in lines]


def main():
    for tool, package in PACKAGES.items():
        if shutil.which(tool) is None:
            sys.exit(f"{tool} is not installed: ./dev test installs {package}")
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        results = list(pool.map(lambda image: check(image, pathlib.Path(folder)), images()))
    read, written, wrong = zip(*results)
    print(f"{len(results)} images: {sum(read)} files read, {sum(written)} written")
    if any(wrong):
        sys.exit("\n".join(line for lines in wrong for line in lines))


main()
