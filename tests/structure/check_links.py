#!/usr/bin/env python3
"""Holds that the documents speak of what is there: links and pictures lead somewhere, a path in
backticks is the path of a file or folder, and the documents that explain the code name nothing that
the code does not have."""
import fnmatch
import pathlib
import posixpath
import re
import subprocess
import sys

from check_includes import GENERATED

# Documents whose names in backticks are names of the code.
ON_THE_CODE = ["docs/architecture.md", "docs/glossary.md"]

SOURCE_EXTENSIONS = (".h", ".cpp", ".inc", ".py", ".md", ".idl")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
SPAN = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(\s*([^()\s]+)[^()]*\)")
HEADING = re.compile(r"^#+ +(.+?) *$", re.MULTILINE)
PATH = re.compile(r"(?:\./)?[\w.*-]+(?:/[\w.*-]+)*/?")
NAME = re.compile(r"[A-Za-z_]\w*(?:::[A-Za-z_]\w*)*(?:\(\))?")


class Tree:
    """The repository's files, by their paths."""

    def __init__(self, files):
        self.paths = set(files)
        for path in files:
            self.paths.update(str(parent) for parent in pathlib.PurePosixPath(path).parents)
        self.folders = self.paths - set(files)
        self.tops = {path.split("/")[0] for path in files}
        self.bare_names = {posixpath.basename(path) for path in files}

    def has(self, path):
        """Whether there is such a file or folder; "*" in `path` stands for anything."""
        return path in self.paths or "*" in path and bool(fnmatch.filter(self.paths, path))


def anchors_of(text):
    """The headings' anchors as a code host makes them."""
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
            for heading in HEADING.findall(FENCE.sub("", text))}


def link_problem(document, target, tree, texts):
    if re.match(r"[a-z]+:", target):
        return None
    path, _, anchor = target.partition("#")
    whole = document if not path else posixpath.normpath(
        posixpath.join(posixpath.dirname(document), path))
    if not tree.has(whole):
        return f"{document}: the link {target} leads nowhere"
    if anchor and whole in texts and anchor not in anchors_of(texts[whole]):
        return f"{document}: the link {target} names no heading"
    return None


def looks_like_path(word, tree):
    if not PATH.fullmatch(word):
        return False
    if word.endswith(SOURCE_EXTENSIONS):
        return not word.startswith(".")
    return word.startswith("./") or "/" in word and word.split("/")[0] in tree.tops


def is_there(word, document, tree):
    """A whole path, one from the document's folder, a file's bare name, or a header and its source
    named without their extensions. NAME stands for any name."""
    if word in GENERATED or word in tree.bare_names:
        return True
    word = word.removeprefix("./").replace("NAME", "*")
    if word.endswith("/"):
        return word.rstrip("/") in tree.folders
    return any(tree.has(path) for path in (
        word, word + ".h", word + ".cpp", posixpath.join(posixpath.dirname(document), word)))


def problems_of(document, tree, texts, names):
    """`texts`: the documents by path; `names`: the words of the code."""
    text = FENCE.sub("", texts[document])
    for target in LINK.findall(SPAN.sub("", text)):
        problem = link_problem(document, target, tree, texts)
        if problem:
            yield problem
    for span in SPAN.findall(text):
        for word in span.split():
            if looks_like_path(word, tree) and not is_there(word, document, tree):
                yield f"{document}: there is no {word}"
        if document in ON_THE_CODE and NAME.fullmatch(span):
            for part in span.removesuffix("()").split("::"):
                if part not in names:
                    yield f"{document}: the code has no {part}"


def check_itself():
    tree = Tree(["README.md", "docs/a.md", "ui/x.h", "ui/x.cpp", "test"])
    code = ON_THE_CODE[0]

    def found(text, document="docs/a.md"):
        return list(problems_of(document, tree, {document: text, "README.md": "# One word\n"},
                                {"Known"}))

    for wrong in ("[a](b.md)", "![p](images/p.png)", "[a](../README.md#two)", "[a](#none)",
                  "`ui/y.h`", "`y.cpp`", "`ui/old/`", "run `./tests/all now`", "`ui/z*.cpp`"):
        assert found(wrong), wrong
    for right in ("[a](../README.md#one-word)", "[a](https://example.org/b)", "`[a](b.md)`",
                  "`ui/x`", "`x.cpp`", "`ui/`", "`./test --quick`", "`a/b`", "`ui/*.h`",
                  "`ui/NAME.h`", "```\n`ui/y.h`\n```"):
        assert not found(right), right
    assert found("`Known::Unknown()`", code)
    assert not found("`Known()` and `two words`", code)


def main():
    root = pathlib.Path(sys.argv[1])
    files = subprocess.run(
        ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True, text=True).stdout.split("\0")[:-1]
    files = [path for path in files if (root / path).exists()]
    texts = {path: (root / path).read_text(encoding="utf-8") for path in files
             if path.endswith(".md")}
    missing = [document for document in ["README.md", "CONTRIBUTING.md", *ON_THE_CODE]
               if document not in texts]
    if missing:
        sys.exit(f"not found, so not checked: {', '.join(missing)}")
    names = set()
    for path in files:
        if path.endswith((".h", ".cpp", ".idl", ".py")) and not path.startswith("tests/structure/"):
            names.update(re.findall(r"\w+", (root / path).read_text(encoding="utf-8")))
    check_itself()
    tree = Tree(files)
    found = [problem for document in sorted(texts)
             for problem in problems_of(document, tree, texts, names)]
    print("\n".join(found) or f"{len(texts)} documents name what is there")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
