#!/usr/bin/env python3
"""Holds the floors of src/: fails on an include that runs upwards or sideways, on stray sources beside main.cpp, and on
an event loop inside of another one that holds nothing back.

    layering.py SRC        checks the folder SRC
    layering.py --self-test
"""

import pathlib
import re
import sys
import tempfile
import unittest

# Each floor with the floors that its files may include, besides its own.
ALLOWED = {
    "core": "",
    "appearance": "core",
    "storage": "core",
    "model": "core appearance storage",
    "commands": "core appearance storage model",
    "analysis": "core appearance storage model commands",
    "view": "core appearance storage model commands analysis",
    "printing": "core appearance storage model commands analysis view",
    "conversion": "core appearance storage model commands analysis view",
    "app": "core appearance storage model commands analysis view printing conversion",
}
# The floors below the screen know Qt Core only.
WITHOUT_GUI = {"core", "storage"}

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<((?:QtGui|QtWidgets)\b[^>]*)>)', re.MULTILINE)
# What waits in an event loop of its own. It has to say so by a ModalHold.
WAITS = re.compile(r"\bQEventLoop\b|\bprocessEvents\b|"
                   r"\bQ\w*(?:Dialog|MessageBox)::(?:get\w+|exec|question|warning|information|critical|about)\b")
GENERATED = re.compile(r"^(moc_\w+\.cpp|\w+\.moc)$")


def faults_of_file(path, floor):
    """What is wrong with the includes of one file; `floor` is None for the program's main.cpp."""
    text = path.read_text(encoding="utf-8")
    if WAITS.search(text) and "ModalHold const" not in text:
        yield f"{path}: waits in an event loop of its own without a ModalHold"
    for included, gui in INCLUDE.findall(text):
        if gui:
            if floor in WITHOUT_GUI:
                yield f"{path}: {floor} must not know <{gui}>"
            continue
        if GENERATED.match(included):
            continue
        target = included.split("/")[0] if "/" in included else ""
        if target not in ALLOWED:
            yield f'{path}: "{included}" does not start with the name of a floor'
        elif floor is not None and target != floor and target not in ALLOWED[floor].split():
            yield f'{path}: {floor} must not include {target} ("{included}")'


def faults(src):
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        parts = path.relative_to(src).parts
        if len(parts) == 1 and path.name != "main.cpp":
            yield f"{path}: main.cpp is the only source outside the floors"
        elif len(parts) > 1 and parts[0] not in ALLOWED:
            yield f"{path}: {parts[0]} is not a floor"
        else:
            yield from faults_of_file(path, parts[0] if len(parts) > 1 else None)


class SelfTest(unittest.TestCase):
    def faults_with(self, path, text):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
            return len(list(faults(pathlib.Path(folder))))

    def test_what_is_found(self):
        for path, text, expected in [
            ("model/A.cpp", '#include "model/A.h"\n#include "core/B.h"\n#include "A.moc"\n#include <QtGui>', 0),
            ("main.cpp", '#include "app/Application.h"', 0),
            ("core/A.h", '#include "storage/B.h"', 1),
            ("storage/A.h", '  #  include "appearance/Theme.h"', 1),
            ("printing/A.cpp", '#include "conversion/B.h"\n#include "app/C.h"', 2),
            ("model/A.cpp", '#include "A.h"', 1),
            ("view/A.cpp", '#include "../model/A.h"', 1),
            ("storage/A.h", "#include <QtGui/QColor>", 1),
            ("view/A.cpp", "ModalHold const hold; QEventLoop loop;", 0),
            ("view/A.cpp", "QEventLoop loop; loop.exec();", 1),
            ("app/A.cpp", "QFileDialog::getOpenFileNames(this);", 1),
            ("extras/A.h", "", 1),
            ("helper.cpp", "", 1),
        ]:
            with self.subTest(path=path, text=text):
                self.assertEqual(self.faults_with(path, text), expected)


if __name__ == "__main__":
    if sys.argv[1:] == ["--self-test"]:
        unittest.main(argv=sys.argv[:1])
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "The floors are in order.")
    sys.exit(bool(found))
