#!/usr/bin/env python3
"""The component in a process of a host's: shown over its window, refused calls, unloading.

  scripts/with-postgres scripts/with-wine tests/windows/test_host_process.py \
      KELVANE ADO_LIBRARY COMPONENT HOST

KELVANE is this system's program, which makes the account; HOST runs the component.
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import wine_session

KELVANE, ADO_LIBRARY, COMPONENT, HOST = map(Path, sys.argv[1:5])
SECONDS = 1200


class HostProcessTest(unittest.TestCase):
    def test_host_process(self):
        account = os.environ["KELVANE_TEST_POSTGRES"]
        subprocess.run([KELVANE, "init", "--database", account, "--sample", "--entries", "5"],
                       check=True, capture_output=True)
        for library in (ADO_LIBRARY, COMPONENT):
            self.assertEqual(wine_session.register(library), 0, f"{library} did not register")
        with tempfile.TemporaryDirectory() as folder:
            script = Path(folder, "drive.script")
            script.write_text("print grid\nclick Find\nclose\n", encoding="utf-8")
            transcript = Path(folder, "transcript")
            result = wine_session.run(
                HOST, seconds=SECONDS,
                environment={"KELVANE_TEST_ACCOUNT": account,
                             "KELVANE_TEST_COMPONENT": wine_session.windows_path(COMPONENT),
                             "KELVANE_DRIVE": wine_session.windows_path(script),
                             "KELVANE_TRANSCRIPT": wine_session.windows_path(transcript)})
            output = result.stdout.decode("utf-8", "replace")
            print(output, flush=True)
            self.assertEqual(result.returncode, 0, output)
            shown = transcript.read_text(encoding="utf-8")
            self.assertEqual(shown.count("open frmPeriodItem"), shown.count("close frmPeriodItem"))
            self.assertEqual(shown.count("open frmPeriodItem"), shown.count("open frmFind"))
            self.assertNotIn("error:", shown)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
