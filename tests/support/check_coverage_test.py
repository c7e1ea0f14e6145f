#!/usr/bin/env python3
"""Tests of check_coverage."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).parent / "check_coverage"


class CheckCoverage(unittest.TestCase):
    def check(self, exports, digests):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "exports.list").write_text(exports)
            (folder / "digests").mkdir()
            for binary, lines in digests.items():
                (folder / "digests" / binary).write_text(lines)
            command = [sys.executable, TOOL, folder / "exports.list", folder / "digests"]
            run = subprocess.run(command, capture_output=True, text=True)
            return run.returncode, run.stdout.splitlines()

    def test_all_looked_at_in_several_binaries(self):
        digests = {"a.txt": "orvsAdd_16s 01\nfake 02\n", "b.txt": "orvsSub_16s 03\norvsAdd_16s 04\n"}
        self.assertEqual(self.check("orvsAdd_16s\norvsSub_16s\n", digests), (0, ["coverage: 2 of 2 exports looked at"]))

    def test_missing_names_are_told(self):
        status, lines = self.check("orvsSub_16s\tarith\norvsAdd_16s\tarith\n", {"a.txt": "orvsAdd_16s_I 01\n"})
        self.assertEqual(status, 1)
        self.assertEqual(lines, ["no test looks at orvsAdd_16s", "no test looks at orvsSub_16s",
                                 "coverage: 0 of 2 exports looked at"])

    def test_no_digests_is_a_failure(self):
        self.assertEqual(self.check("orvsAdd_16s\n", {})[0], 1)

    def test_no_exports_is_a_failure(self):
        self.assertEqual(self.check("# nothing\n", {"a.txt": "orvsAdd_16s 01\n"})[0], 1)


if __name__ == "__main__":
    unittest.main()
