#!/usr/bin/env python3
"""Holds the includes of src/ against the floors: a file includes headers of its own folder and of folders on lower floors.

check_floors.py SRC prints every include that goes up, sideways or to nowhere, and ends with 1 if there is one.
"""
import pathlib, re, sys

# From the ground up; folders on one floor don't see each other.
FLOORS = [
    ["run"],
    ["config"],
    ["report"],
    ["notices", "files"],
    ["analysis", "tree"],
    ["report/project"],
    ["baseline", "tools"],
    ["run/driver"],
    ["."],
]
FLOOR_OF = {folder: floor for floor, folders in enumerate(FLOORS) for folder in folders}


def main():
    src = pathlib.Path(sys.argv[1])
    faults = includes = 0
    for path in sorted([*src.rglob("*.cpp"), *src.rglob("*.h")]):
        folder = str(path.parent.relative_to(src))
        if folder not in FLOOR_OF:
            print(f"{path}: {folder}/ is on no floor")
            faults += 1
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            found = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
            if not found:
                continue
            includes += 1
            target = str(pathlib.PurePath(found[1]).parent)
            if not (src / found[1]).is_file() or (target != folder and FLOOR_OF.get(target, 99) >= FLOOR_OF[folder]):
                print(f"{path}:{number}: {folder}/ must not include {found[1]}")
                faults += 1
    print(f"{includes} includes, {faults} of them not downwards")
    return 1 if faults or not includes else 0


sys.exit(main())
