#!/usr/bin/env python3
"""Checks the dependency rules of the source tree.

usage: house_rules.py ROOT

Prints one line per violation and ends with status 1 when there is any.
"""

import os
import re
import sys

CORE_BASE = ["base", "platform", "model"]
CORE_DATA = CORE_BASE + ["localization"]
CORE_SERVICES = CORE_DATA + ["storage", "icons"]
FEATURES = ["pie", "actions", "windows", "commands", "input", "running_apps", "permissions"]

# What a layer may include, besides itself. Siblings are missing on purpose: app/ injects what one needs from another.
ALLOWED = {
    "base": [],
    "platform": ["base"],
    "model": ["base", "platform"],
    "localization": CORE_BASE,
    "storage": CORE_DATA,
    "icons": CORE_DATA,
    **{feature: CORE_SERVICES for feature in FEATURES},
    "settings": CORE_SERVICES + FEATURES,
    "app": CORE_SERVICES + FEATURES + ["settings"],
    "platform/posix": CORE_BASE,
    "platform/curl": CORE_BASE,
    "platform/qt": CORE_BASE,
    "platform/linux": CORE_BASE + ["pie", "platform/posix"],
    "platform/macos": CORE_BASE + ["pie", "platform/posix"],
    "ui/painting": CORE_BASE + ["pie"],
    "ui/qt": CORE_SERVICES + ["pie", "settings", "platform/qt", "ui/painting"],
    "ui/appkit": CORE_SERVICES + ["pie", "settings", "platform/macos", "ui/painting"],
    "ui/appkit/settings": CORE_SERVICES + ["pie", "settings", "platform/macos", "ui/painting", "ui/appkit", "ui/qt"],
}
BACKENDS = ["platform/posix", "platform/curl", "platform/qt", "platform/linux", "platform/macos", "ui/qt", "ui/appkit/settings",
            "ui/appkit"]
NESTED = BACKENDS + ["ui/painting"]

# The folders of pie/, lowest first. A folder includes itself and lower ones.
PIE_FOLDERS = ["pie/geometry", "pie/labels", "pie/picture", "pie/controller"]

# The only headers from outside the project that the core may use, besides those of the C++ standard library.
CORE_LIBRARIES = {"nlohmann/json.hpp", "nlohmann/json_fwd.hpp", "utf8proc.h"}
STANDARD_HEADER = re.compile(r"^[a-z][a-z0-9_]*$")
# Their library is a part of macOS only since version 14.
YOUNG_HEADERS = {"memory_resource"}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*([<"])([^>"]+)[>"]')
CONDITION = re.compile(r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b(.*)")
OPERATING_SYSTEM = re.compile(
    r"\b(__linux__|__linux|linux|__gnu_linux__|__APPLE__|__MACH__|_WIN32|_WIN64|__unix__|__unix|__FreeBSD__|__OpenBSD__"
    r"|__NetBSD__|TARGET_OS_\w+|Q_OS_\w+)\b")
GLOB = re.compile(r"^[^#]*\b(?:file\s*\(\s*GLOB(?:_RECURSE)?|aux_source_directory)\b", re.IGNORECASE)

SOURCE_ENDINGS = (".h", ".hpp", ".cpp", ".cc", ".mm", ".m")
SKIPPED_FOLDERS = {"build", ".git"}


def layer_of(path):
    """The layer of a path below src/, or None for a path outside every layer."""
    for layer in NESTED:
        if path.startswith(layer + "/"):
            return layer
    first = path.split("/")[0]
    return first if "/" in path and first in ALLOWED else None


def knows_backends(path):
    return path.startswith(("app/composition", "app/main_"))


def is_core(path):
    return layer_of(path) not in BACKENDS and not knows_backends(path)


def climbs_pie(path, target):
    source, included = os.path.dirname(path), os.path.dirname(target)
    if source not in PIE_FOLDERS or included not in PIE_FOLDERS:
        return False
    return PIE_FOLDERS.index(included) > PIE_FOLDERS.index(source)


def may_include(path, target):
    source_layer, target_layer = layer_of(path), layer_of(target)
    if target_layer is None or climbs_pie(path, target):
        return False
    if knows_backends(path):
        return True
    return target_layer == source_layer or target_layer in ALLOWED[source_layer]


def check_include(path, bracket, target, exists):
    if bracket == "<":
        is_standard = STANDARD_HEADER.match(target) and target not in YOUNG_HEADERS
        if is_core(path) and not is_standard and target not in CORE_LIBRARIES:
            return f"the core may not use <{target}>"
        return None
    if not exists(target):
        return f'"{target}" is not a path below src/'
    if not may_include(path, target):
        return f'{os.path.dirname(path)} may not include "{target}"'
    return None


def check_source(path, lines, exists):
    """Yields (line number, message) for one file; `path` and `exists` are relative to src/."""
    if layer_of(path) is None:
        yield 1, "this file belongs to no layer"
        return
    may_ask_system = not is_core(path) and not path.startswith("app/composition")
    for number, line in enumerate(lines, 1):
        include = INCLUDE.match(line)
        if include:
            message = check_include(path, include.group(1), include.group(2), exists)
            if message:
                yield number, message
        condition = CONDITION.match(line)
        if condition and OPERATING_SYSTEM.search(condition.group(1)) and not may_ask_system:
            yield number, "a condition on the operating system"


def check_build_file(lines):
    for number, line in enumerate(lines, 1):
        if GLOB.match(line):
            yield number, "source lists are written out, not globbed"


def files_below(root):
    for folder, folders, names in os.walk(root):
        folders[:] = sorted(name for name in folders if name not in SKIPPED_FOLDERS)
        for name in sorted(names):
            yield os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")


def read_lines(path):
    with open(path, encoding="utf-8") as file:
        return file.read().splitlines()


def violations(root):
    """Returns ("path:line: message" of every violation, number of source files read)."""
    found, sources = [], 0
    for path in files_below(root):
        checks = []
        if path.startswith("src/") and path.endswith(SOURCE_ENDINGS):
            sources += 1
            exists = lambda target: os.path.isfile(os.path.join(root, "src", target))
            checks = check_source(path[len("src/"):], read_lines(os.path.join(root, path)), exists)
        elif os.path.basename(path) == "CMakeLists.txt" or path.endswith(".cmake"):
            checks = check_build_file(read_lines(os.path.join(root, path)))
        found += [f"{path}:{number}: {message}" for number, message in checks]
    return found, sources


def main(root):
    found, sources = violations(root)
    print("\n".join(found + [f"{sources} source files read, {len(found)} violations"]))
    if sources == 0:
        print("no source files found", file=sys.stderr)
    return 1 if found or sources == 0 else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
