#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The layer guard sees what it is there for: each row is one file that it must refuse or pass."""
import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
sys.dont_write_bytecode = True
import check_layers  # noqa: E402

REFUSED = [
    ("include/OvSylvarProducers/A.h", "#include <Platform/Support/Mutex.h>"),
    ("include/SylvarPlatform/A.h", "#include <OvSylvarProducers/B.h>"),
    ("include/SylvarPlatform/A.h", "#include <ResolutionTableOv/B.h>"),
    ("include/ResolutionTableOv/A.h", "#include <SylvarPlatform/Attribute.h>"),
    ("src/ResolutionTable/A.cpp", "#include <SylvarPlatform/Attribute.h>"),
    ("src/ResolutionTable/A.cpp", '#include "Platform/B.h"'),
    ("include/SylvarPlatform/suites/A.h", "#include <SylvarPlatform/Attribute.h>"),
    ("include/OvSylvarProducers/suites/A.hpp", "#include <OvSylvarProducers/GeometryProducer.h>"),
    ("include/OvSylvarProducers/suites/A.hpp", "#include <boost/optional.hpp>"),
    ("include/OvSylvarProducers/suites/A.h", "#include <OvSylvarProducers/suites/B.hpp>"),
    ("src/Platform/A.cpp", '#include "Producers/B.h"'),
    ("src/Platform/A.cpp", '#include "B.h"'),
    ("src/Camera/A.cpp", '#include "Producers/B.h"'),
    ("src/Filters/A.cpp", '#include "Producers/B.h"'),
    ("src/Producers/A.cpp", '#include "Platform/Embedded/Attributes/B.h"'),
    ("src/Producers/A.cpp", "#include <Platform/Support/Mutex.h>"),
    ("src/Platform/Embedded/Other/A.cpp", ""),
    ("src/Platform/Embedded/Runtime/A.cpp", '#include "Platform/Embedded/Ops/B.h"'),
    ("src/Platform/Embedded/Attributes/Values/A.cpp", '#include "Platform/Embedded/Services/B.h"'),
    ("src/Other/A.cpp", ""),
    ("tools/ovscene/A.cpp", '#include "Platform/Support/Mutex.h"'),
    ("plugins/P/A.cpp", "#include <SylvarPlatform/Attribute.h>"),
    ("tests/suites/A.c", "#include <SylvarPlatform/Attribute.h>"),
]
PASSED = [
    ("src/ResolutionTable/A.cpp", '#include "Platform/Support/Mutex.h"'),
    ("include/OvSylvarProducers/A.h", "#include <SylvarPlatform/Attribute.h>"),
    ("include/OvSylvarProducers/suites/A.hpp",
     "#include <SylvarPlatform/suites/B.h>\n#include <string>"),
    ("src/Producers/A.cpp", '#include "Platform/Support/Mutex.h"'),
    ("src/Producers/A.cpp", '#include "Filters/B.h"'),
    ("src/Platform/Embedded/Services/A.cpp", '#include "Platform/Embedded/Runtime/B.h"'),
    ("src/Platform/A.cpp", '#include "Platform/Embedded/Attributes/B.h"'),
    ("plugins/P/A.cpp", "#include <SylvarPlatform/suites/B.h>"),
    ("tools/ovscene/A.cpp", "#include <OvSylvarProducers/B.h>\n#include <CLI/CLI.hpp>"),
    ("tests/suites/A.c", "#include <SylvarPlatform/suites/B.h>"),
]


def is_refused(place, text):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        file = root / place
        file.parent.mkdir(parents=True)
        file.write_text(text + "\n", encoding="utf-8")
        return bool(list(check_layers.faults(root)))


wrong = [f"passed, but should not be: {row}" for row in REFUSED if not is_refused(*row)]
wrong += [f"refused, but should pass: {row}" for row in PASSED if is_refused(*row)]
print("\n".join(wrong) or f"{len(REFUSED) + len(PASSED)} rows as expected")
sys.exit(bool(wrong))
