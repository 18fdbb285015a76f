#!/usr/bin/env python3
"""Holds that every text that the program says is in each of its catalogues, translated, with the same
values in it, that no text of the program was forgotten, and that the reasons which are translated for
the adapters are still theirs.

  check_catalogue.py SOURCE_FOLDER
"""
import ast
import gettext
import io
import pathlib
import re
import subprocess
import sys
import tempfile

MARKS = ["Translated", "Told", "ToTranslate"]
# Where the program's texts are; the rest of host/ speaks to hosts, or writes accounts.
FOLDERS = ["host/account", "host/commands", "host/creation", "host/ledger",
           "host/surroundings"]
REASONS = "host/surroundings/adapter_reasons.cpp"
VALUE = re.compile(r"%\d")

# A sentence, by its words; those that nobody is told are statements, or errors of the program itself;
# counts are told in any language alike.
SENTENCE = re.compile(r"[a-z]{2,} [a-z]{2,}")
UNTOLD = re.compile(r"^(select|insert|update|delete) |^ (from|into|values|order|and|where) |^a row of $|"
                    r"^, uncovered (entries|accounts) $|"
                    r" has not one value for every column$|^an item class has none, one or two key ")


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, **options).stdout


def texts_of(sources, *options):
    """The texts that xgettext finds in `sources`, a list of paths."""
    found = run("xgettext", "--language=C++", "--from-code=UTF-8", "--no-location", "--no-wrap",
                "--output=-", *options, *sources, text=True)
    return {ast.literal_eval(f'"{line}"') for line in re.findall(r'^msgid "(.+)"$', found, re.MULTILINE)}


def marked_texts(sources):
    return texts_of(sources, "--keyword", *(f"--keyword={mark}" for mark in MARKS))


def sentences(sources):
    return {text for text in texts_of(sources, "--extract-all")
            if SENTENCE.search(text) and not UNTOLD.search(text)}


def catalogue_of(text):
    """The translations that `text`, a catalogue's, holds; what is fuzzy is none."""
    compiled = run("msgfmt", "--check", "--output-file=-", "-", input=text.encode())
    translations = gettext.GNUTranslations(io.BytesIO(compiled))
    return {key: value for key, value in translations._catalog.items() if key}


def named_texts(text):
    """All texts that `text`, a catalogue's, names, translated or not."""
    with tempfile.NamedTemporaryFile("w", suffix=".po", encoding="utf-8") as file:
        file.write(text)
        file.flush()
        listed = run("msgattrib", "--no-obsolete", "--clear-fuzzy", "--no-wrap", file.name, text=True)
    return {ast.literal_eval(f'"{line}"') for line in re.findall(r'^msgid "(.+)"$', listed, re.MULTILINE)}


def problems_of(name, text, wanted):
    translated = catalogue_of(text)
    for each in sorted(wanted - set(translated)):
        yield f"{name}: not translated: {each}"
    for each in sorted(named_texts(text) - wanted):
        yield f"{name}: the program does not say: {each}"
    for each, translation in sorted(translated.items()):
        if set(VALUE.findall(each)) != set(VALUE.findall(translation)):
            yield f"{name}: other values than the text: {each}"


def main():
    root = pathlib.Path(sys.argv[1])
    sources = [str(path) for folder in FOLDERS for path in sorted((root / folder).rglob("*"))
               if path.suffix in (".h", ".cpp")]
    wanted = marked_texts(sources)
    assert len(wanted) > 50, wanted
    found = [f"not marked as a text of the program: {text}"
             for text in sorted(sentences(sources) - wanted)]

    adapters = "".join(path.read_text(encoding="utf-8")
                       for path in (root / "adapters").rglob("*.cpp"))
    reasons = marked_texts([str(root / REASONS)])
    assert reasons, "no reasons: nothing was checked"
    found += [f"{REASONS}: no adapter says: {text}" for text in sorted(reasons)
              if f'"{text}"' not in adapters and f": {text}: " not in adapters]

    catalogues = sorted((root / "po").glob("*.po"))
    assert catalogues, "no catalogue: nothing was checked"
    for path in catalogues:
        text = path.read_text(encoding="utf-8")
        found += problems_of(path.name, text, wanted)
        # The check itself must be able to fail.
        one = 'msgid "%1 is missing"\n'
        assert one in text
        for spoilt in (text.replace(one, "#, fuzzy\n" + one),
                       text.replace(one, 'msgid "%1 is gone"\n'),
                       re.sub(one + r'msgstr ".*"', one + 'msgstr ""', text),
                       re.sub(one + r'msgstr ".*"', one + 'msgstr "%2"', text)):
            assert spoilt != text and list(problems_of(path.name, spoilt, wanted)), spoilt
    print("\n".join(found) or f"{len(catalogues)} catalogue has all of {len(wanted)} texts")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
