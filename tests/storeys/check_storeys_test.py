"""Tests of tools/check_storeys.py, each on a small house of its own."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check_storeys.py"


class CheckStoreys(unittest.TestCase):
    def check(self, files):
        """The tool's answer for a house of these files: whether it passes, and what it prints."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = pathlib.Path(folder) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            run = subprocess.run([sys.executable, TOOL, folder], capture_output=True, text=True, check=False)
            self.assertEqual(run.stderr, "")
            return run.returncode == 0, run.stdout.strip()

    def test_a_storey_may_include_itself_and_those_below(self):
        self.assertEqual(
            self.check({
                "foundation/Base.h": "",
                "foundation/posix/Impl.cpp": '#include "foundation/Base.h"\n#include <vector>\n',
                "graphics/model/Document.h": '#include "foundation/Base.h"\n#include <wx/string.h>\n',
                "graphics/model/Document.cpp": '#include "graphics/model/Document.h"\n',
            }), (True, ""))

    def test_a_storey_may_not_include_one_above(self):
        self.assertEqual(
            self.check({
                "graphics/model/Document.h": "",
                "graphics/paint/Context.cpp": '// A line.\n#include "graphics/model/Document.h"\n',
            }), (False, "graphics/paint/Context.cpp:2: graphics/model/Document.h: "
                 "graphics/model/ stands above graphics/paint/"))

    def test_a_folder_inside_a_storey_belongs_to_it(self):
        passes, text = self.check({
            "graphics/model/Document.h": "",
            "graphics/paint/native/Cairo.cpp": '  #  include "graphics/model/Document.h"\n',
        })
        self.assertFalse(passes)
        self.assertIn("graphics/model/ stands above graphics/paint/", text)

    def test_the_foundation_knows_no_toolkit_but_in_its_bridge(self):
        self.assertEqual(
            self.check({
                "foundation/String.cpp": "#include <wx/string.h>\n",
                "foundation/wxutil/WXString.cpp": "#include <wx/string.h>\n",
            }), (False, "foundation/String.cpp:1: wx/string.h: foundation/ knows no toolkit"))

    def test_an_include_is_written_from_the_root(self):
        passes, text = self.check({"foundation/Base.h": "", "foundation/Object.cpp": '#include "Base.h"\n'})
        self.assertFalse(passes)
        self.assertIn("is not written from the root", text)

    def test_the_command_knows_the_c_header_alone(self):
        self.assertEqual(
            self.check({
                "include/mfilter/mfilter.h": "",
                "filter/Blend.h": "",
                "host/Main.cpp": '#include "include/mfilter/mfilter.h"\n#include "filter/Blend.h"\n',
            }), (False, "host/Main.cpp:2: filter/Blend.h: host/ may include host, include only"))

    def test_everybody_may_include_the_c_header(self):
        self.assertEqual(
            self.check({
                "include/mfilter/mfilter.h": "",
                "host/Main.cpp": '#include "mfilter/mfilter.h"\n',
                "filter/exports/Exports.cpp": '#include "include/mfilter/mfilter.h"\n',
            }), (True, ""))

    def test_nobody_includes_tests_or_folders_without_a_storey(self):
        passes, text = self.check({
            "tests/Sample.h": "",
            "filter/Blend.cpp": '#include "tests/Sample.h"\n',
            "graphics/sky/Cloud.cpp": "",
        })
        self.assertFalse(passes)
        self.assertIn("filter/Blend.cpp:1: tests/Sample.h: lies in no storey that filter/ may include", text)
        self.assertIn("graphics/sky/Cloud.cpp: lies in no storey", text)


if __name__ == "__main__":
    unittest.main()
