#!/usr/bin/env python3
"""Writes the tab separated tables of this folder from MANIFEST.json.

The C++ tests read the tables, so that they need no JSON library. README.md explains the columns.
With --check nothing is written; the exit code says whether the tables are what they should be.
"""
import json
import pathlib
import sys

FOLDER = pathlib.Path(__file__).resolve().parent


def cell(value):
    if value is None:
        return ""
    if isinstance(value, bool):
        return "1" if value else "0"
    return str(value)


def pairs(values):
    """[[a, b], [c, d]] as "a:b,c:d"."""
    return ",".join(":".join(str(number) for number in pair) for pair in values)


def numbers(values):
    return ",".join(str(value) for value in values)


def get(entry, *path):
    for key in path:
        entry = entry.get(key) if isinstance(entry, dict) else None
    return entry


def image_rows(images):
    yield ["image", "size", "sha256", "family", "container", "tracks", "sides", "sectors",
           "header_bytes", "files", "free_bytes", "deleted"]
    for image in images:
        shape = image["geometry"] if isinstance(image["geometry"], dict) else {}
        yield [image["file"], image["size"], image["sha256"], image["family"], image["container"],
               shape.get("tracks"), shape.get("sides"), shape.get("sectors"),
               shape.get("header_bytes"), len(image["files"]), get(image, "free", "imgtool", "bytes"),
               ",".join(image.get("deleted", []))]


def decb_rows(images):
    yield ["image", "name", "ext", "size", "sha256", "type_code", "flag", "granules",
           "first_granule", "last_sector_bytes", "chain", "same_as"]
    for image in images:
        if image["family"] != "DECB" or "damage" in image:
            continue
        for row in image["files"]:
            yield [image["file"], row["name"], row["ext"], row["size"], row["sha256"],
                   row["type_code"], row["flag"], row["granules"], row["first_granule"],
                   row["last_sector_bytes"], pairs(row["chain"]), row.get("same_as")]


def damaged_rows(images):
    yield ["image", "name", "ext", "hurt", "size", "sha256", "chain", "chain_now"]
    for image in images:
        if "damage" not in image:
            continue
        for row in image["files"]:
            good = row["undamaged"]
            yield [image["file"], row["name"], row["ext"], row["hurt"], good["size"],
                   good["sha256"], numbers(good["chain"]), numbers(row["chain_now"])]


def dragon_rows(images):
    yield ["image", "name", "ext", "size", "sha256", "protected", "type", "load", "length", "exec",
           "extents", "entries", "same_as"]
    for image in images:
        if image["family"] != "Dragon":
            continue
        for row in image["files"]:
            header = row.get("file_header", {})
            yield [image["file"], row["name"], row["ext"], row["size"], row["sha256"],
                   row.get("protected", False), header.get("type"), header.get("load"),
                   header.get("length"), header.get("exec"),
                   pairs(row["extents_second_reading"]),
                   numbers(row["directory_entries_second_reading"]), row.get("same_as")]


def os9_rows(images):
    yield ["image", "kind", "path", "name", "size", "sha256", "attributes", "owner", "modified",
           "fd_sector", "segments", "same_as"]
    for image in images:
        if image["family"] != "OS9":
            continue
        for row in image["directories"]:
            yield [image["file"], "directory", row["path"], row["path"].split("/")[-1],
                   row["size"], "", row["attributes"], "", row["modified"], row["fd_sector"],
                   pairs(row["segments"]), ""]
        for row in image["files"]:
            yield [image["file"], "file", row["path"], row["name"], row["size"], row["sha256"],
                   row["attributes"], row["owner"], row["modified"], row["fd_sector"],
                   pairs(row["segments"]), row.get("same_as")]


def tape_rows(images):
    yield ["image", "rate", "name", "type", "ascii", "gap", "exec", "load", "name_block",
           "data_blocks", "size", "sha256", "same_as"]
    for image in images:
        if image["family"] != "tape":
            continue
        for row in image["second_reading"]:
            yield [image["file"], get(image, "wav", "rate"), row["name"], row["type"],
                   row["ascii"], row["gap"], row["exec"], row["load"], row["name_block"],
                   row["data_blocks"], row["size"], row["sha256"], row.get("same_as")]


TABLES = {
    "images.txt": image_rows,
    "decb_manifest.txt": decb_rows,
    "decb_damaged_manifest.txt": damaged_rows,
    "dragon_manifest.txt": dragon_rows,
    "os9_manifest.txt": os9_rows,
    "tape_manifest.txt": tape_rows,
}


def main():
    images = json.loads((FOLDER / "MANIFEST.json").read_text(encoding="utf-8"))["images"]
    stale = []
    for name, rows in TABLES.items():
        text = "".join("\t".join(cell(value) for value in row) + "\n" for row in rows(images))
        path = FOLDER / name
        if "--check" not in sys.argv:
            path.write_text(text, encoding="utf-8", newline="\n")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(name)
    for name in stale:
        print(f"{name} is not what MANIFEST.json gives: run make_tables.py")
    return 1 if stale else 0


sys.exit(main())
