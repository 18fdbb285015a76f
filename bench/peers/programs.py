"""The programs that are compared: what is installed for each, what file it opens and how it is started."""
import shutil
import subprocess
from pathlib import Path

import contents

OFFICE_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse">
<value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="FirstRun" oor:op="fuse">
<value>false</value></prop></item>
</oor:items>
"""

BOOK_SETTINGS = """[org/gnucash/GnuCash/dialogs/tip-of-the-day]
show-at-startup=false

[org/gnucash/GnuCash/dialogs/new-user]
first-startup=false
"""

# What the program keeps of its windows: the account's register is open.
BOOK_WINDOWS = f"""[Top]
BookGuid={contents.BOOK}
WindowCount=1

[Window 1]
PageCount=1
FirstPage=1

[Page 1]
PageType=GncPluginPageRegister
RegisterType=Account
AccountName=Projects
AccountGuid={contents.PROJECTS}
RegisterStyle=Ledger
DoubleLineMode=false
"""


def _office(home):
    profile = home / "office"
    (profile / "user").mkdir(parents=True)
    (profile / "user" / "registrymodifications.xcu").write_text(OFFICE_SETTINGS, encoding="utf-8")
    return ["soffice", "--norestore", "--nologo", f"-env:UserInstallation={profile.as_uri()}"]


class Program:
    # Keys that bring the table in front, as xdotool names them.
    first_keys = []


class Kelvane(Program):
    """Ours, as an operator starts it."""
    name, title, packages, forward = "kelvane", "Kelvane", [], "Next"
    suffix = "kelvane"

    def make(self, samples):
        return samples.account

    def start(self, file, home, samples):
        return [samples.program, "open", file]


class GnuCash(Program):
    """A book in its usual format; the register shows its end, so that further is up."""
    name, title, packages, forward = "gnucash", "GnuCash's register", ["gnucash"], "Prior"
    suffix = "gnucash"

    def make(self, samples):
        book = samples.folder / "book.gnucash"
        contents.make_book(samples.account, book)
        return book

    def start(self, file, home, samples):
        for path, text in ((".config/glib-2.0/settings/keyfile", BOOK_SETTINGS),
                           (f".local/share/gnucash/books/{file.name}.gcm", BOOK_WINDOWS)):
            (home / path).parent.mkdir(parents=True, exist_ok=True)
            (home / path).write_text(text, encoding="utf-8")
        return ["gnucash", file]


class CalcWorkbook(Program):
    name, title, forward = "calc-xlsx", "LibreOffice Calc, .xlsx", "Next"
    packages, suffix = ["libreoffice-calc", "libreoffice-gtk3"], "xlsx"

    def make(self, samples):
        book = samples.folder / "list.xlsx"
        if not book.exists():
            contents.make_workbook(samples.program, samples.account, book)
        return book

    def start(self, file, home, samples):
        return [*_office(home), "--calc", file]


class CalcDocument(CalcWorkbook):
    """Its own format."""
    name, title, suffix = "calc-ods", "LibreOffice Calc, .ods", "ods"

    def make(self, samples):
        home = samples.folder / "converting"
        home.mkdir()
        subprocess.run([*_office(home), "--headless", "--convert-to", "ods", "--outdir", samples.folder,
                        super().make(samples)], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        return samples.folder / "list.ods"


class Base(Program):
    """The account's own table through the ODBC driver of its file."""
    name, title, forward = "base", "LibreOffice Base", "Next"
    packages = ["libreoffice-base", "libreoffice-gtk3", "libsqliteodbc", "python3-uno"]
    suffix = "kelvane"

    def make(self, samples):
        return samples.account

    def start(self, file, home, samples):
        source = home / "odbc.ini"
        source.write_text(f"[entries]\nDriver=SQLite3\nDatabase={file}\n", encoding="utf-8")
        document = home / "entries.odb"
        contents.make_base("entries", document)
        window = Path(__file__).with_name("base_window.py")
        return ["env", f"ODBCINI={source}", "/usr/bin/python3", window, contents.TABLE, document,
                *_office(home)]


class DatabaseBrowser(Program):
    """The account's own file. While it still reads, it asks whether it shall stop reading."""
    first_keys = ["Escape"]
    name, title, forward = "sqlitebrowser", "DB Browser for SQLite", "Next"
    packages, suffix = ["sqlitebrowser"], "kelvane"

    def make(self, samples):
        return samples.account

    def start(self, file, home, samples):
        return ["sqlitebrowser", "--table", contents.TABLE, file]


ALL = [Kelvane(), GnuCash(), CalcWorkbook(), CalcDocument(), Base(), DatabaseBrowser()]


def install(program, kept):
    """Whether all that it needs is there; what apt says of it goes to standard error."""
    if not program.packages:
        return True
    apt = ["apt-get", "-y", "-qq", "--no-install-recommends", "-o", "APT::Sandbox::User=root",
           "-o", f"Dir::Cache::archives={kept}", "install", *program.packages]
    return subprocess.run(apt, env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin",
                                    "DEBIAN_FRONTEND": "noninteractive",
                                    "DEBCONF_NOWARNINGS": "yes"},
                          stdout=subprocess.DEVNULL).returncode == 0


def fresh_copy(file, folder):
    """`file` where nobody has opened it yet."""
    folder.mkdir()
    return Path(shutil.copy(file, folder))
