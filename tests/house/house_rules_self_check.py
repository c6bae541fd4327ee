#!/usr/bin/env python3
"""Plants violations into a small tree and fails unless house_rules finds each of them, and nothing else."""

import os
import sys
import tempfile

import house_rules

CLEAN = {
    "CMakeLists.txt": "add_library(a a.cpp)  # file(GLOB is only a word here",
    "build/CMakeLists.txt": "file(GLOB sources *.cpp)",
    "src/base/uuid.h": "#include <string>",
    "src/platform/clock.h": '#include "base/uuid.h"',
    "src/model/pie_menu.h": '#include "base/uuid.h"\n#include "platform/clock.h"\n#if defined(NDEBUG)\n#endif',
    "src/storage/config_manager.h": '#include <nlohmann/json.hpp>\n#include "model/pie_menu.h"',
    "src/pie/ring.h": '#include "storage/config_manager.h"\n#include "pie/ring.h"',
    "src/pie/controller/view.h": '#include "pie/labels/keys.h"',
    "src/pie/labels/keys.h": "#include <string>",
    "src/platform/linux/x11/keys.h": '#include <xcb/xcb.h>\n#include "pie/ring.h"\n#ifdef __linux__\n#endif',
    "src/ui/qt/painter.h": '#include <QPainter>\n#include "model/pie_menu.h"',
    "src/app/app_delegate.h": '#include "pie/ring.h"',
    "src/app/composition.h": '#include "platform/linux/x11/keys.h"\n#include "ui/qt/painter.h"',
    "src/app/main_linux.cpp": '#include <QApplication>\n#include "app/composition.h"\n#ifdef __linux__\n#endif',
}

PLANTED = {
    "src/base/wrong.h": '#include "model/pie_menu.h"',
    "src/input/sibling.h": '#include "pie/ring.h"',
    "src/pie/backend.h": '#include "platform/linux/x11/keys.h"',
    "src/pie/labels/climbs.h": '#include "pie/controller/view.h"',
    "src/actions/display.cpp": "#  include <xcb/xcb.h>",
    "src/actions/system.cpp": "#include <unistd.h>",
    "src/input/young.cpp": "#include <memory_resource>",
    "src/app/delegate_backend.h": '#include "ui/qt/painter.h"',
    "src/ui/qt/backend.h": '#include "platform/linux/x11/keys.h"',
    "src/platform/linux/x11/ui.h": '#include "ui/qt/painter.h"',
    "src/platform/linux/x11/delegate.h": '#include "app/app_delegate.h"',
    "src/pie/relative.h": '#include "ring.h"',
    "src/input/system.cpp": "#if defined(__APPLE__)\n#endif",
    "src/app/composition_system.cpp": "# ifdef Q_OS_LINUX\n#endif",
    "src/stray/file.cpp": "int x;",
    "src/loose.cpp": "int x;",
    "src/pie/CMakeLists.txt": "file( GLOB_RECURSE sources *.cpp)",
    "cmake/extra.cmake": "aux_source_directory(. sources)",
}


def write_tree(root, files):
    for path, text in files.items():
        full = os.path.join(root, path)
        os.makedirs(os.path.dirname(full), exist_ok=True)
        with open(full, "w", encoding="utf-8") as file:
            file.write(text + "\n")


def main():
    with tempfile.TemporaryDirectory() as root:
        write_tree(root, CLEAN)
        found, sources = house_rules.violations(root)
        if found or sources == 0:
            print("the clean tree was refused:", *found, sep="\n")
            return 1
        write_tree(root, PLANTED)
        blamed = [line.split(":")[0] for line in house_rules.violations(root)[0]]
        missed = sorted(set(PLANTED) - set(blamed))
        wrong = sorted(set(blamed) - set(PLANTED))
        print("not found:", missed, "wrongly blamed:", wrong)
        return 1 if missed or wrong else 0


if __name__ == "__main__":
    sys.exit(main())
