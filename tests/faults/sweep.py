"""Makes every system call that the command uses for writing fail in turn, and checks the files afterwards.

usage: sweep.py VELK SHIM IMAGES TABLE

VELK is the command, SHIM the library that makes calls fail, IMAGES the folder of the example images. TABLE is the page with
the table of outcomes, which is rewritten if VELK_UPDATE_GOLDEN is set in the environment.

Whichever call fails, a file has its complete old or new contents, and the exit code says which: 0, the new ones; 1, the
new ones, which a crash of the machine may still lose; 3, the old ones.
"""
import collections
import concurrent.futures
import itertools
import os
import pathlib
import subprocess
import sys
import tempfile

VELK, SHIM, IMAGES, TABLE = sys.argv[1:]
FAULTS = {
    "open": ["EIO", "EINTR", "KILL"],
    "flock": ["EIO", "EINTR", "KILL"],
    "read": ["EIO", "EINTR", "KILL"],
    "write": ["ENOSPC", "EDQUOT", "EIO", "EINTR", "FULL", "SHORT", "KILL"],
    "fchown": ["EIO", "KILL"],
    "fchmod": ["EIO", "KILL"],
    "fsync": ["EIO", "ENOSPC", "EINTR", "KILL"],
    "close": ["EIO", "EDQUOT", "EINTR", "KILL"],
    "rename": ["EIO", "ENOSPC", "EINTR", "KILL"],
}
USUAL_SIZE = 20_000
# Around the buffers of reading and writing. Only what reads and writes depends on the size.
SIZES = [4096, 16_383, 16_384, 16_385, 32_767, 32_768, 65_536, 200_000]
DEADLINE = 60

Command = collections.namedtuple("Command", "name arguments target old")
SET = ["set", "in.bin", "--id", "2", "serialNumber=7"]
TEXT = ["table", "import", "in.bin", "in.txt"]
COMMANDS = [
    Command("set --in-place", SET + ["--in-place"], "in.bin", "in.bin"),
    Command("set --in-place --backup", SET + ["--in-place", "--backup"], "in.bin", "in.bin"),
    Command("set -o NEW", SET + ["-o", "out.bin"], "out.bin", None),
    Command("set -o OLD", SET + ["-o", "old.bin"], "old.bin", "old.bin"),
    Command("redact -o OLD", ["redact", "in.bin", "-o", "old.bin"], "old.bin", "old.bin"),
    Command("table import --in-place", TEXT + ["--in-place"], "in.bin", "in.bin"),
    Command("table export -o OLD", ["table", "export", "in.bin", "--id", "15750", "-o", "old.bin"], "old.bin", "old.bin"),
    Command("export --format tidy -o FOLDER", ["export", "--format", "tidy", "--id", "2", "in.bin", "-o", "."], "Ident.csv", None),
    Command("export -o FOLDER", ["export", "--format", "csv", "--id", "2", "in.bin", "-o", "."], "in.IDENT_2.csv", None),
]


def image_of(size):
    image = pathlib.Path(IMAGES, "rf_board_tables.bin").read_bytes()
    return image + b"\xff" * (size - len(image))


def set_up(folder, size):
    image = image_of(size)
    pathlib.Path(folder, "in.bin").write_bytes(image)
    pathlib.Path(folder, "old.bin").write_bytes(image[::-1])
    os.chmod(pathlib.Path(folder, "in.bin"), 0o640)
    text = pathlib.Path(IMAGES, "attenuator_registers.txt").read_bytes()
    pathlib.Path(folder, "in.txt").write_bytes(text)


def contents(folder, name):
    path = pathlib.Path(folder, name)
    return path.read_bytes() if path.exists() else None


def run(command, size, fault):
    """Returns whether the fault struck, the exit code, and what the target and the backup had before and have now."""
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as aside:
        set_up(folder, size)
        before = contents(folder, command.old) if command.old else None
        mark = os.path.join(aside, "struck")
        environment = dict(os.environ, LD_PRELOAD=SHIM, VELK_FAULT=fault, VELK_FAULT_MARK=mark)
        done = subprocess.run([VELK, *command.arguments], cwd=folder, env=environment, capture_output=True, timeout=DEADLINE)
        backup = contents(folder, command.target + ".bak")
        left = [name for name in os.listdir(folder) if name.startswith(".velk-")]
        return os.path.exists(mark), done, before, contents(folder, command.target), backup, left


def complaint(done, what):
    return f"{what}: exit {done.returncode}, {done.stderr.decode(errors='replace')!r}"


def outcome(command, size, fault, new):
    """How a run with a fault ended, as "old, 3"; None where the fault did not strike. Raises where data were lost."""
    struck, done, before, after, backup, left = run(command, size, fault)
    if not struck:
        return None
    what = f"velk {' '.join(command.arguments)}, {size} bytes, {fault}"
    if after not in (before, new):
        raise AssertionError(complaint(done, f"{what}: the file is neither the old nor the new one"))
    is_killed = done.returncode == -9
    if not is_killed and left:
        raise AssertionError(complaint(done, f"{what}: left {left}"))
    if backup not in (None, before):
        raise AssertionError(complaint(done, f"{what}: the backup is not the old file"))
    state = "new" if after == new else "old"
    if is_killed:
        return state
    if done.returncode not in {"new": (0, 1), "old": (3,)}[state] or (done.returncode and not done.stderr):
        raise AssertionError(complaint(done, f"{what}: the file is the {state} one"))
    return f"{state}, {done.returncode}"


def new_contents(command, size):
    _, done, _, after, _, _ = run(command, size, "none none 0")
    assert done.returncode in (0, 1), complaint(done, f"velk {' '.join(command.arguments)}")
    assert after is not None
    return after


def sweep_one(command, size, call, fault, new):
    outcomes = []
    for number in itertools.count(1):
        ended = outcome(command, size, f"{call} {fault} {number}", new)
        if ended is None:
            return outcomes
        outcomes.append(ended)


def jobs():
    for command in COMMANDS:
        for size in SIZES:
            new = new_contents(command, size)
            calls = FAULTS if size == SIZES[0] else {"write": ["FULL", "SHORT", "EINTR", "KILL"]}
            for call, faults in calls.items():
                for fault in faults:
                    yield command, size, call, fault, new


def table(cells):
    lines = ["| call | fault | " + " | ".join(command.name for command in COMMANDS) + " |"]
    lines.append("|---" * (len(COMMANDS) + 2) + "|")
    for call, faults in FAULTS.items():
        for fault in faults:
            row = [" / ".join(sorted(cells[call, fault, command.name])) or "-" for command in COMMANDS]
            lines.append(f"| {call} | {fault} | " + " | ".join(row) + " |")
    return "\n".join(lines) + "\n"


def sweep(cells):
    """Fills the cells of the table; returns how many faults struck, and what was lost by which."""
    count = 0
    losses = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        work = [(job, pool.submit(sweep_one, *job)) for job in jobs()]
        for (command, _, call, fault, _), future in work:
            try:
                outcomes = future.result()
            except AssertionError as loss:
                losses.append(str(loss))
                continue
            count += len(outcomes)
            cells[call, fault, command.name].update(outcomes)
    return count, losses


def main():
    cells = collections.defaultdict(set)
    count, losses = sweep(cells)
    if losses:
        sys.exit("\n".join(losses))
    for call, faults in FAULTS.items():
        assert any(cells[call, fault, command.name] for fault in faults for command in COMMANDS), f"{call} was never made"
    made = table(cells)
    print(made)
    print(f"{count} faults, every file whole")
    page = pathlib.Path(TABLE).read_text()
    begin = page.index("| call | fault |")
    end = page.index("\n\n", begin) + 1 if "\n\n" in page[begin:] else len(page)
    if "VELK_UPDATE_GOLDEN" in os.environ:
        pathlib.Path(TABLE).write_text(page[:begin] + made + page[end:])
    elif page[begin:end] != made:
        sys.exit(f"{TABLE} has another table")


main()
