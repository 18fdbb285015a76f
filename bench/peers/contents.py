"""The same entries as a file for each of the programs."""
import sqlite3
import subprocess
import uuid
import zipfile
from xml.sax.saxutils import escape

BOOK = "0123456789abcdef0123456789abcdef"
ROOT, PROJECTS, OPENING = (f"{number:032x}" for number in (1, 2, 3))
TABLE = "PM_ItemQC"

SPACES = " ".join(f'xmlns:{name}="http://www.gnucash.org/XML/{name}"'
                  for name in ("gnc", "act", "book", "cd", "cmdty", "split", "trn", "ts"))
CURRENCY = "<cmdty:space>CURRENCY</cmdty:space><cmdty:id>CNY</cmdty:id>"


def make_account(program, file, entries):
    subprocess.run([program, "init", file, "--sample", "--entries", str(entries)], check=True,
                   stdout=subprocess.DEVNULL)
    # As a file that others read by themselves.
    with sqlite3.connect(file) as account:
        assert account.execute(f"select count(*) from {TABLE}").fetchone() == (entries,)


def make_workbook(program, account, file):
    subprocess.run([program, "export", account, "--to", file], check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def _account(guid, name, kind, parent):
    above = f'<act:parent type="guid">{parent}</act:parent>' if parent else ""
    money = "" if kind == "ROOT" else (f"<act:commodity>{CURRENCY}</act:commodity>"
                                       "<act:commodity-scu>100</act:commodity-scu>")
    return (f'<gnc:account version="2.0.0"><act:name>{name}</act:name><act:id type="guid">{guid}</act:id>'
            f"<act:type>{kind}</act:type>{money}{above}</gnc:account>\n")


def _split(value, account):
    return (f'<trn:split><split:id type="guid">{uuid.uuid4().hex}</split:id>'
            f"<split:reconciled-state>n</split:reconciled-state><split:value>{value}/100</split:value>"
            f"<split:quantity>{value}/100</split:quantity>"
            f'<split:account type="guid">{account}</split:account></trn:split>')


def _transaction(date, number, text, hundredths):
    day = f"<ts:date>{date[:10]} 10:59:00 +0000</ts:date>"
    return (f'<gnc:transaction version="2.0.0"><trn:id type="guid">{uuid.uuid4().hex}</trn:id>'
            f"<trn:currency>{CURRENCY}</trn:currency><trn:num>{escape(number)}</trn:num>"
            f"<trn:date-posted>{day}</trn:date-posted><trn:date-entered>{day}</trn:date-entered>"
            f"<trn:description>{escape(text)}</trn:description>"
            f"<trn:splits>{_split(hundredths, PROJECTS)}{_split(-hundredths, OPENING)}</trn:splits>"
            "</gnc:transaction>\n")


def make_book(account, file):
    """A book with each entry as a transaction of one account."""
    rows = sqlite3.connect(account).execute(
        f"select dDate, cItemCode, cDigest, mQC from {TABLE} order by iEleVid").fetchall()
    with open(file, "w", encoding="utf-8") as out:
        out.write(f'<?xml version="1.0" encoding="utf-8" ?>\n<gnc-v2 {SPACES}>\n'
                  '<gnc:count-data cd:type="book">1</gnc:count-data>\n<gnc:book version="2.0.0">\n'
                  f'<book:id type="guid">{BOOK}</book:id>\n'
                  f'<gnc:count-data cd:type="account">3</gnc:count-data>\n'
                  f'<gnc:count-data cd:type="transaction">{len(rows)}</gnc:count-data>\n')
        out.write(_account(ROOT, "Root", "ROOT", None) + _account(PROJECTS, "Projects", "ASSET", ROOT)
                  + _account(OPENING, "Opening", "EQUITY", ROOT))
        for date, item, digest, amount in rows:
            out.write(_transaction(date, item or "", digest or "", round(float(amount or 0) * 100)))
        out.write("</gnc:book>\n</gnc-v2>\n")


BASE_KIND = "application/vnd.oasis.opendocument.base"
BASE_CONTENT = """<?xml version="1.0" encoding="UTF-8"?>
<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:db="urn:oasis:names:tc:opendocument:xmlns:database:1.0"
 xmlns:xlink="http://www.w3.org/1999/xlink" office:version="1.2"><office:body><office:database>
<db:data-source><db:connection-data><db:connection-resource xlink:href="sdbc:odbc:{source}"
 xlink:type="simple"/><db:login db:is-password-required="false"/></db:connection-data></db:data-source>
</office:database></office:body></office:document-content>
"""
BASE_MANIFEST = f"""<?xml version="1.0" encoding="UTF-8"?>
<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0">
<manifest:file-entry manifest:full-path="/" manifest:media-type="{BASE_KIND}"/>
<manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/>
</manifest:manifest>
"""


def make_base(source, file):
    """A database document that shows the tables of an ODBC data source."""
    with zipfile.ZipFile(file, "w") as document:
        document.writestr("mimetype", BASE_KIND)
        document.writestr("content.xml", BASE_CONTENT.format(source=source))
        document.writestr("META-INF/manifest.xml", BASE_MANIFEST)
