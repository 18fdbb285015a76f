#!/usr/bin/env python3
"""What the binaries for Windows show to the system: exports, imports, type library, manifests, and
how they are guarded.

  tests/windows/check_binaries.py dist/windows-x64 [dist/windows-x86 ...]
"""

import os
import re
import struct
import subprocess
import sys
import unittest
import uuid
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(__file__).resolve().parents[2]
# Where the libraries are built.
CACHE = Path(os.environ.get("XDG_CACHE_HOME", Path.home() / ".cache")) / "kelvane"
FOLDERS = [Path(folder) for folder in sys.argv[1:]]

EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer",
           "DllUnregisterServer"]

# Part of every Windows that the component is for.
SYSTEM = {
    "advapi32.dll", "bcrypt.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll",
    "msvcrt.dll", "odbc32.dll", "ole32.dll", "oleacc.dll", "oleaut32.dll", "rpcrt4.dll",
    "shell32.dll", "shlwapi.dll", "user32.dll", "usp10.dll", "uxtheme.dll", "version.dll",
    "winmm.dll", "winspool.drv",
}

# What is linked into them, or compiled in, by the names of the notices.
LINKED = ["wxWidgets", "nanosvg", "cairo", "pixman", "libxml2", "libxlsxwriter", "minizip", "zlib",
          "SQLite", "CLI11", "JSON for Modern C++", "libstdc++ and libgcc", "mingw-w64", "winpthreads", "Unicode"]

BINARIES = ("Kelvane.dll", "kelvane.exe", "samples/host.exe")
# Bits of a binary's header, and what the guards say before they end the process.
RELOCATIONS_STRIPPED = 0x0001
HIGH_ENTROPY, DYNAMIC_BASE, NO_CODE_IN_DATA = 0x0020, 0x0040, 0x0100
STACK_GUARD = b"*** stack smashing detected ***"
BUFFER_GUARD = b"*** buffer overflow detected ***"

SCRIPTS = ["data-access.vbs", "host.vbs", "register-machine.cmd", "register-user.cmd",
           "registration.cmd", "trial.cmd", "trial.vbs", "unregister-machine.cmd", "unregister-user.cmd"]
FORMATS = {"windows-x64": ("pei-x86-64", "amd64"), "windows-x86": ("pei-i386", "x86")}
# The variables by which tests work the windows of a component that is made for them.
DRIVING = ("KELVANE_DRIVE", "KELVANE_TRANSCRIPT", "KELVANE_SCREENSHOT")
ASSEMBLY = {"a": "urn:schemas-microsoft-com:asm.v1"}


def dump(binary, *options):
    return subprocess.run(["x86_64-w64-mingw32-objdump", *options, str(binary)], check=True,
                          capture_output=True, text=True).stdout


def exports_of(binary):
    table = dump(binary, "-p").partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
    return re.findall(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+\w+\s+)?(\S+)$", table, re.MULTILINE)


def imports_of(binary):
    return {name.lower() for name in re.findall(r"DLL Name: (\S+)", dump(binary, "-p"))}


def header_bits(binary):
    """The characteristics of the file, and those that the loader heeds."""
    content = binary.read_bytes()
    start, = struct.unpack_from("<I", content, 0x3C)
    of_file, = struct.unpack_from("<H", content, start + 4 + 18)
    for_loader, = struct.unpack_from("<H", content, start + 4 + 20 + 70)
    return of_file, for_loader


def project_version():
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(Kelvane VERSION ([0-9.]+)", text)[1]


def shown_versions(binary):
    """The version in the file's resource: as numbers, and as the text that the system shows."""
    content = binary.read_bytes()
    start = content.index(struct.pack("<II", 0xFEEF04BD, 0x00010000))
    high, low = struct.unpack_from("<II", content, start + 8)
    numbers = ".".join(str(part) for part in (high >> 16, high & 0xFFFF, low >> 16))
    name = "FileVersion\0".encode("utf-16-le")
    text = content[content.index(name, start) + len(name):][:64].decode("utf-16-le", "replace")
    return numbers, text.lstrip("\0").partition("\0")[0]


def functions_of(binary):
    imported = dump(binary, "-p").partition("The Import Tables")[2].partition("\nThe ")[0]
    return set(re.findall(r"^\s+[0-9a-f]+\s+\d+\s+(\w+)", imported, re.MULTILINE))


def described_ids():
    """The identities in the interface description: interface, library, enumeration of errors and class."""
    text = (ROOT / "host/com_server/kelvane.idl").read_text(encoding="utf-8")
    ids = [uuid.UUID(found) for found in re.findall(r"uuid\(([0-9A-F-]{36})\)", text)]
    assert len(ids) == 4, ids
    return ids


def manifest(folder):
    return ElementTree.parse(folder / "Kelvane.manifest").getroot()


class Binaries(unittest.TestCase):
    def test_architecture(self):
        for folder in FOLDERS:
            for name in BINARIES:
                found = re.search(r"file format (\S+)", dump(folder / name, "-f"))
                self.assertEqual(found[1], FORMATS[folder.name][0], name)

    def test_component_exports_only_the_entry_points_undecorated(self):
        for folder in FOLDERS:
            self.assertEqual(exports_of(folder / "Kelvane.dll"), EXPORTS)

    def test_only_system_libraries_are_imported(self):
        for folder in FOLDERS:
            for name in BINARIES:
                imported = imports_of(folder / name)
                self.assertIn("kernel32.dll", imported, name)
                self.assertEqual(imported - SYSTEM, set(), name)

    def test_text_is_shaped_by_the_library_that_every_system_has_for_it(self):
        for folder in FOLDERS:
            for name in ("Kelvane.dll", "kelvane.exe"):
                libraries = dump(folder / name, "-p").split("DLL Name: ")[1:]
                shaping = [library.split()[0].lower() for library in libraries
                           if re.search(r"\bScriptShape\b", library)]
                self.assertEqual(shaping, ["usp10.dll"], name)

    def test_the_loader_chooses_addresses_and_runs_no_data(self):
        for folder in FOLDERS:
            wanted = DYNAMIC_BASE | NO_CODE_IN_DATA
            if FORMATS[folder.name][1] == "amd64":
                wanted |= HIGH_ENTROPY
            for name in BINARIES:
                of_file, for_loader = header_bits(folder / name)
                self.assertEqual(for_loader & wanted, wanted, name)
                self.assertEqual(of_file & RELOCATIONS_STRIPPED, 0, name)
                self.assertRegex(dump(folder / name, "-h"), r"\.reloc ", name)

    def test_stack_and_buffers_are_guarded(self):
        for folder in FOLDERS:
            for name in BINARIES:
                content = (folder / name).read_bytes()
                self.assertIn(STACK_GUARD, content, name)
                if name != "samples/host.exe":  # it fills no buffer whose size is known
                    self.assertIn(BUFFER_GUARD, content, name)

    def test_binaries_do_not_tell_where_they_were_built(self):
        for folder in FOLDERS:
            for name in BINARIES:
                content = (folder / name).read_bytes()
                for place in (str(ROOT), str(Path.home()), str(CACHE)):
                    self.assertEqual(content.count(place.encode() + b"/"), 0, (name, place))

    def test_files_show_their_version(self):
        for folder in FOLDERS:
            for name in ("Kelvane.dll", "kelvane.exe"):
                self.assertEqual(shown_versions(folder / name), (project_version(),) * 2, name)

    def test_licence_and_notices_lie_beside_them(self):
        for folder in FOLDERS:
            self.assertIn("MIT License", (folder / "LICENSE.txt").read_text(encoding="utf-8"))
            self.assertIn(project_version(), (folder / "CHANGELOG.txt").read_text(encoding="utf-8"))
            notices = (folder / "THIRD-PARTY-NOTICES.txt").read_text(encoding="utf-8")
            titles = re.findall(r"^(.+)\n-+$", notices, re.MULTILINE)
            for linked in LINKED:
                self.assertTrue(any(linked in title for title in titles), linked)

    def test_where_libraries_are_looked_for_is_the_program_s_business_alone(self):
        for folder in FOLDERS:
            for name, sets in (("Kelvane.dll", False), ("kelvane.exe", True)):
                imported = functions_of(folder / name)
                self.assertIn("GetProcAddress", imported, name)
                self.assertEqual("SetDefaultDllDirectories" in imported, sets, name)
                self.assertEqual(imported & {"SetDllDirectoryA", "SetDllDirectoryW",
                                             "AddDllDirectory"}, set(), name)

    def test_registration_starts_the_system_s_own_programs(self):
        for folder in FOLDERS:
            for script in folder.glob("*register*.cmd"):
                self.assertNotIn("regsvr32", script.read_text(encoding="ascii"), script)
            text = (folder / "registration.cmd").read_text(encoding="ascii")
            started = [line for line in text.splitlines() if line.startswith('"')]
            self.assertEqual([line.split('"')[1] for line in started],
                             ["%inspector%", "%registrar%"])
            for name, places in (("registrar", r"System32|SysWOW64|Sysnative"),
                                 ("inspector", r"System32\\WindowsPowerShell\\v1\.0")):
                values = re.findall(rf'set "{name}=([^"]*)"', text)
                self.assertTrue(values, name)
                for value in values:
                    self.assertRegex(value, rf"^%SystemRoot%\\({places})\\\w+\.exe$")

    def test_nothing_for_the_debugger_is_left(self):
        for folder in FOLDERS:
            for name in BINARIES:
                self.assertNotIn(".debug_", dump(folder / name, "-h"), name)
                self.assertIn("no symbols", dump(folder / name, "-t"), name)

    def test_no_script_can_work_what_is_delivered(self):
        for folder in FOLDERS:
            content = (folder / "Kelvane.dll").read_bytes()
            for name in ("KELVANE_LOG", *DRIVING):
                held = any(name.encode(encoding) in content for encoding in ("ascii", "utf-16-le"))
                self.assertEqual(held, name not in DRIVING, name)

    def test_type_library_lies_in_the_component(self):
        for folder in FOLDERS:
            content = (folder / "Kelvane.dll").read_bytes()
            library = content.find(b"MSFT\x02\x00\x01\x00")
            self.assertGreaterEqual(library, 0)
            for identity in described_ids():
                self.assertIn(identity.bytes_le, content[library:], identity)

    def test_manifest_names_what_the_description_names(self):
        interface, library, _, component = described_ids()
        for folder in FOLDERS:
            root = manifest(folder)
            self.assertEqual(root.find("a:assemblyIdentity", ASSEMBLY).get("processorArchitecture"),
                             FORMATS[folder.name][1])
            made = root.find("a:file[@name='Kelvane.dll']/a:comClass", ASSEMBLY)
            self.assertEqual(uuid.UUID(made.get("clsid")), component)
            self.assertEqual(uuid.UUID(made.get("tlbid")), library)
            self.assertEqual(made.get("progid"), "Kelvane.PeriodItem")
            self.assertEqual(made.get("threadingModel"), "Apartment")
            typed = root.find("a:file/a:typelib", ASSEMBLY)
            self.assertEqual(uuid.UUID(typed.get("tlbid")), library)
            stub = root.find("a:comInterfaceExternalProxyStub", ASSEMBLY)
            self.assertEqual(uuid.UUID(stub.get("iid")), interface)

    def test_sample_host_depends_on_the_manifest_beside_it(self):
        for folder in FOLDERS:
            needed = ElementTree.parse(folder / "samples/host.exe.manifest").getroot().find(
                "a:dependency/a:dependentAssembly/a:assemblyIdentity[@name='Kelvane']", ASSEMBLY)
            own = manifest(folder).find("a:assemblyIdentity", ASSEMBLY)
            self.assertEqual(needed.attrib, own.attrib)

    def test_scripts_end_their_lines_as_windows_does(self):
        for folder in FOLDERS:
            scripts = [*folder.glob("**/*.cmd"), *folder.glob("**/*.vbs")]
            self.assertEqual(sorted(script.name for script in scripts), SCRIPTS)
            for script in scripts:
                lines = script.read_bytes().split(b"\n")[:-1]
                self.assertTrue(lines and all(line.endswith(b"\r") for line in lines), script)


if __name__ == "__main__":
    if not FOLDERS:
        sys.exit("usage: check_binaries.py FOLDER...")
    unittest.main(argv=sys.argv[:1])
