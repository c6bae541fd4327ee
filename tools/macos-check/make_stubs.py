#!/usr/bin/env python3
"""Writes a text-based stub library for each header below FOLDER/include that names one, with what it declares.

usage: make_stubs.py FOLDER STUBS
"""

import pathlib
import re
import sys

LIBRARY = re.compile(r"^// Library: (/\S+)$", re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*$", re.MULTILINE)
CLASS = re.compile(r"@interface\s+(\w+)\s*(?:<[^>]*>)?\s*:")
INTERFACE = re.compile(r"@(?:interface|protocol)\b.*?@end|@(?:class|protocol)[^;]*;", re.DOTALL)
BLOCK = re.compile(r"\{[^{}]*\}")
FUNCTION = re.compile(r"[\s*](\w+)\s*\(")
VARIABLE = re.compile(r"^(?:extern|FOUNDATION_EXPORT)\b[^()]*?(\w+)(?:\[\])?$", re.DOTALL)

STUB = """--- !tapi-tbd
tbd-version: 4
targets: [ arm64-macos ]
install-name: '{library}'
exports:
  - targets: [ arm64-macos ]
    symbols: [ {symbols} ]
    objc-classes: [ {classes} ]
...
"""


def declared(text):
    """Returns the functions and variables, and the classes, that a header declares."""
    text = DIRECTIVE.sub("", COMMENT.sub("", text))
    classes = set(CLASS.findall(text))
    text = INTERFACE.sub("", text).replace('extern "C" {', "")
    while BLOCK.search(text):
        text = BLOCK.sub("", text)
    names = set()
    for statement in (each.strip() for each in text.replace("}", "").split(";")):
        if not statement or statement.startswith(("typedef", "enum", "struct", "NS_", "static const")):
            continue
        found = VARIABLE.match(statement) or FUNCTION.search(statement)
        if not found:
            sys.exit(f"make_stubs.py: cannot read «{statement}»")
        names.add("_" + found.group(1))
    return names, classes


def main(folder, stubs):
    libraries = {}
    for header in sorted((folder / "include").rglob("*.h")):
        text = header.read_text(encoding="utf-8")
        for library in LIBRARY.findall(text):
            names, classes = libraries.setdefault(library, (set(), set()))
            found = declared(text)
            names |= found[0]
            classes |= found[1]
    for library, (names, classes) in libraries.items():
        name = library.rsplit("/", 1)[1]
        stub = stubs / f"{name}.framework" / f"{name}.tbd"
        stub.parent.mkdir(parents=True, exist_ok=True)
        content = STUB.format(library=library, symbols=", ".join(sorted(names)), classes=", ".join(sorted(classes)))
        if not stub.exists() or stub.read_text(encoding="utf-8") != content:
            stub.write_text(content, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
