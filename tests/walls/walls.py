#!/usr/bin/env python3
"""Compiles, for each room, an include of each other room with the room's own compiler flags.

walls.py COMPILER ROOMS ALLOWED SOURCE

ROOMS is what the build knows, a line a room: name|prefix|folder of public headers|include folders, separated by ;.
ALLOWED is what the architecture says, a line a room: name: the rooms that it may include. An include of any other
room must not compile, one of an allowed room must be found. A header is included as PREFIX/Header.h. No product file
below SOURCE climbs over a wall by "../".
"""

import os
import subprocess
import sys
import tempfile
from pathlib import Path


def read_rooms(path):
    rooms = {}
    for line in Path(path).read_text().splitlines():
        name, prefix, folder, include = line.split("|")
        headers = sorted(Path(folder, prefix).glob("*.h")) if folder else []
        rooms[name] = (f"{prefix}/{headers[0].name}" if headers else None, [part for part in include.split(";") if part])
    return rooms


def read_allowed(path):
    allowed = {}
    for line in Path(path).read_text().splitlines():
        if line and not line.startswith("#"):
            name, _, others = line.partition(":")
            allowed[name.strip()] = set(others.split())
    return allowed


def finds(compiler, include, header):
    """Whether a source file of the room can include the header. What the header itself includes does not matter."""
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as probe:
        probe.write(f'#include "{header}"\n')
        probe.flush()
        command = [compiler, "-std=c++17", "-E", *(f"-I{folder}" for folder in include), probe.name]
        ended = subprocess.run(command, capture_output=True, text=True, env={**os.environ, "LC_ALL": "C"})
        missing = f"{probe.name}:1:10: fatal error: "
        return missing not in ended.stderr


def main():
    compiler, rooms_file, allowed_file, source = sys.argv[1:]
    rooms = read_rooms(rooms_file)
    allowed = read_allowed(allowed_file)
    wrong = []
    if rooms.keys() != allowed.keys():
        wrong.append(f"the build has {sorted(rooms)}, the list {sorted(allowed)}")
    forbidden = 0
    for name, (_, include) in rooms.items():
        for other, (header, _) in rooms.items():
            if other == name or header is None:
                continue
            if other in allowed.get(name, set()):
                if not finds(compiler, include, header):
                    wrong.append(f"{name} may include {header} and does not find it")
            else:
                forbidden += 1
                if finds(compiler, include, header):
                    wrong.append(f"{name} must not include {header}, and can")
    for folder in ("client", "gateway", "modules", "platform"):
        for path in sorted([*Path(source, folder).rglob("*.h"), *Path(source, folder).rglob("*.cpp")]):
            if '#include "../' in path.read_text():
                wrong.append(f'{path} includes "../"')
    print(f"{len(rooms)} rooms, {forbidden} forbidden includes tried, {len(wrong)} wrong")
    for text in wrong:
        print(text)
    return 1 if wrong or forbidden == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
