#!/usr/bin/env python3
"""Holds that what an operator is told stands once: the texts of the catalogue of rules nowhere but in
the catalogue, and no other sentence in two places of the library."""
import pathlib
import re
import subprocess
import sys

CATALOGUE = "entries/rules.cpp"
LIBRARY = ("platform/", "controls/", "data/", "entries/", "ui/", "component/")
PROGRAM = LIBRARY + ("adapters/", "host/")
# Shorter texts are captions and titles, which many boxes and columns share.
SENTENCE_LENGTH = 6

# Adjacent literals are one text.
LITERALS = re.compile(r'"(?:[^"\\\n]|\\.)*"(?:\s+"(?:[^"\\\n]|\\.)*")*')
COMMENT = re.compile(r"^\s*//.*$", re.MULTILINE)
CHINESE = re.compile("[\u3400-\u9fff]")


def texts_of(source):
    for match in LITERALS.finditer(COMMENT.sub("", source)):
        text = "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', match.group()))
        if CHINESE.search(text):
            yield text


def problems_of(sources):
    """What stands twice in `sources`, a dictionary of file names and contents."""
    places = {}
    for name, source in sources.items():
        for text in texts_of(source):
            places.setdefault(text, []).append(name)
    rules = {text for text in texts_of(sources[CATALOGUE]) if len(text) > 2 and "." not in text}
    for text, names in sorted(places.items()):
        others = [name for name in names if name != CATALOGUE]
        if text in rules and len(text) >= SENTENCE_LENGTH - 2 and others:
            yield f"{text}: a rule's text, also in {', '.join(others)}"
        elif text not in rules and len(CHINESE.findall(text)) >= SENTENCE_LENGTH:
            library = [name for name in names if name.startswith(LIBRARY)]
            if len(library) > 1:
                yield f"{text}: in {', '.join(library)}"


def main():
    root = pathlib.Path(sys.argv[1])
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "--cached", "--others", "--exclude-standard", "*.h", "*.cpp"],
        check=True, capture_output=True, text=True).stdout.split()
    sources = {name: (root / name).read_text(encoding="utf-8") for name in listed
               if name.startswith(PROGRAM) and (root / name).exists()}
    found = list(problems_of(sources))
    # The check itself must be able to fail.
    rule = '{"date.empty", "日期不能为空"}'
    assert list(problems_of({CATALOGUE: rule, "host/a.cpp": 'Say("日期" "不能为空");'}))
    assert list(problems_of({CATALOGUE: rule, "ui/a.cpp": 'A("请先填充要素")', "ui/b.cpp":
                             'B("请先填充要素")'}))
    assert not list(problems_of({CATALOGUE: rule, "ui/a.cpp": '// "日期不能为空"\nA("提示");'}))
    count = len(list(texts_of(sources[CATALOGUE])))
    if count < 30:
        sys.exit(f"{CATALOGUE}: only {count} texts were found: the rules were not checked")
    print("\n".join(found) or f"{count} texts of rules stand once, and so does every sentence")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
