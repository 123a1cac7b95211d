#!/usr/bin/env python3
"""Counts the entities of DXF files, and the drawing rows that an import must make of them.

It knows nothing of the program's own reader: a text file is a list of lines of which every second
is a value, a binary one a list of records. Entities are those of the ENTITIES section.

Usage: count_dxf.py FILE... Prints for each file, tab-separated: rows, the entity types with their
numbers as "ARC=1 LINE=3" in alphabetic order, and the file. A file that ends early, or has a
coordinate that is no number, counts up to there.
"""

import struct
import sys
from collections import Counter
from pathlib import Path

BINARY_MARK = b"AutoCAD Binary DXF\r\n\x1a\0"
ONE_ROW = {"LINE", "ARC", "CIRCLE"}
POLYLINES = {"LWPOLYLINE", "POLYLINE"}


def text_tags(content: bytes):
    lines = content.decode("latin-1").replace("\r\n", "\n").replace("\r", "\n").split("\n")
    for code, value in zip(lines[0::2], lines[1::2]):
        yield int(code), value.strip()


# How many bytes a value has in a binary file, by the first code of each run; 0 is a text that ends
# with a zero byte, -1 a run of bytes behind its length.
SIZES = [(0, 0), (10, 8), (60, 2), (90, 4), (100, 0), (110, 8), (160, 8), (170, 2), (210, 8),
         (270, 2), (290, 1), (300, 0), (310, -1), (320, 0), (370, 2), (390, 0), (400, 2), (410, 0),
         (420, 4), (430, 0), (440, 4), (460, 8), (470, 0), (999, 0), (1004, -1), (1005, 0),
         (1010, 8), (1060, 2), (1071, 4)]


def size_of(code: int) -> int:
    return [size for first, size in SIZES if first <= code][-1]


def binary_tags(content: bytes):
    at = len(BINARY_MARK)
    short = content[at] == 0xFF or content[at + 1] != 0
    while at < len(content):
        code = content[at] if short else struct.unpack_from("<H", content, at)[0]
        at += 1 if short else 2
        if short and code == 255:
            code = struct.unpack_from("<H", content, at)[0]
            at += 2
        size = size_of(code)
        if size == 0:
            end = content.index(b"\0", at)
            yield code, content[at:end].decode("latin-1").strip()
            at = end + 1
        else:
            at += content[at] + 1 if size < 0 else size
            yield code, ""


def is_number(code: int, value: str) -> bool:
    """False for a coordinate that is none."""
    try:
        return code not in (10, 20, 11, 21, 40, 50, 51) or value == "" or float(value) is not None
    except ValueError:
        return False


def entities(tags):
    """Type and number of vertices of each entity; a VERTEX belongs to the POLYLINE before it."""
    inside, after_section, found, polyline = False, False, [], None
    for code, value in tags:
        if code == 999:
            continue
        if code == 0:
            if inside and value in ("ENDSEC", "EOF"):
                inside = False
            elif inside and value == "VERTEX" and polyline:
                polyline[1] += 1
            elif inside:
                if value != "SEQEND":
                    found.append([value, 0])
                polyline = found[-1] if value == "POLYLINE" else None
            if value == "EOF":
                break
        elif inside and found and not is_number(code, value):
            found.pop()
            break
        elif code == 2 and after_section:
            inside = value == "ENTITIES"
        elif code == 10 and inside and found and found[-1][0] == "LWPOLYLINE":
            found[-1][1] += 1
        after_section = code == 0 and value == "SECTION"
    return found


def rows_of(kind: str, vertices: int) -> int:
    if kind in POLYLINES:
        return max(vertices - 1, 0)
    return 1 if kind in ONE_ROW else 0


def main() -> int:
    for name in sys.argv[1:]:
        content = Path(name).read_bytes()
        tags = binary_tags(content) if content.startswith(BINARY_MARK) else text_tags(content)
        found = entities(tags)
        kinds = Counter(kind for kind, _ in found)
        listed = " ".join(f"{kind}={kinds[kind]}" for kind in sorted(kinds))
        print(sum(rows_of(*entity) for entity in found), listed, name, sep="\t")
    return 0


if __name__ == "__main__":
    sys.exit(main())
