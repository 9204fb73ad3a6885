#!/usr/bin/env python3
"""Holds the texts against the code and the languages against each other. Exit status 1 with one line per breach.

- Every key that the code names is in en.json, and every key there is named in the code.
- A command's title menuX has other words to be found by, synX, and no synX stands alone. Those keys are composed, so
  the code does not name them.
- Every other language has the keys of en.json and no others, the same placeholders {0}, {1}, … in each text, an
  ellipsis where the English has one, and the two buttons that are the same everywhere.
- Every file is sorted by key and holds texts only.
"""
import json
import pathlib
import re
import sys

KEY = re.compile(r'"((?:msg|err|ask|title|str|menu)[A-Z0-9]\w*|errorNotFoundOneNote|appTitle|'
                 r'WinBackupSuccess|ClearBackupSuccess|MWinFavoriteSectionsTitle|Columns|Rows|Paragraphs|Character_No_Spaces|Character_With_Spaces|Words|Non_Asian_Words|Asian_Words|Images)"')
COMMENT = re.compile(r"^\s*//.*$", re.MULTILINE)
PLACEHOLDER = re.compile(r"\{\d\}")
COMPOSED = ("menuGroup", "syn")

NOT_KEYS = {"titleText"}  # a function of the practice page
FIXED = {"strNo", "strYes", "appTitle"}  # the same in every language


def code():
    files = sorted(f for f in pathlib.Path("src").rglob("*") if f.suffix in (".h", ".cpp", ".mm", ".js"))
    return "\n".join(COMMENT.sub("", f.read_text(encoding="utf-8")) for f in files)


def synonym_problems(file, keys):
    """Breaches of the rule that the titles of commands, and they alone, have synonyms."""
    table = pathlib.Path("src/shell/command_table.cpp").read_text(encoding="utf-8")
    titles = {key for key in KEY.findall(table) if key.startswith("menu") and not key.startswith("menuGroup")}
    wanted = {"syn" + title.removeprefix("menu") for title in titles}
    found = {key for key in keys if key.startswith("syn")}
    return ([f"{file}: missing {key}, the synonyms of a command's title" for key in sorted(wanted - found)] +
            [f"{file}: {key} has no command with the title menu{key.removeprefix('syn')}" for key in sorted(found - wanted)])


def english_problems(file, texts):
    used = set(KEY.findall(code())) - NOT_KEYS
    composed = {key for key in texts if key.startswith(COMPOSED)}
    problems = [f"{file}: missing {key}" for key in sorted(used - set(texts))]
    problems += [f"{file}: nobody uses {key}" for key in sorted(set(texts) - used - composed)]
    return problems + synonym_problems(file, texts)


def text_problem(key, english, text):
    """What is wrong with one text of another language; empty when nothing is."""
    if sorted(PLACEHOLDER.findall(text)) != sorted(PLACEHOLDER.findall(english)):
        return "has other placeholders than the English text"
    if key in FIXED and text != english:
        return "is the same in every language"
    if key.startswith("menu") and text.endswith(("…", "...")) != english.endswith("…"):
        return "has an ellipsis where the English has none, or none where it has one"
    if text != text.strip() or not text:
        return "is empty, or begins or ends with a blank"
    return ""


def language_problems(file, texts, english):
    problems = [f"{file}: missing {key}" for key in sorted(set(english) - set(texts))]
    problems += [f"{file}: {key} is not in en.json" for key in sorted(set(texts) - set(english))]
    for key in sorted(set(english) & set(texts)):
        problem = text_problem(key, english[key], texts[key])
        if problem:
            problems.append(f"{file}: {key} {problem}")
    return problems


def main():
    folder = pathlib.Path("resources/strings")
    english = json.loads((folder / "en.json").read_text(encoding="utf-8"))
    problems = english_problems(folder / "en.json", english)
    for file in sorted(folder.glob("*.json")):
        texts = json.loads(file.read_text(encoding="utf-8"))
        if list(texts) != sorted(texts):
            problems.append(f"{file}: keys are not sorted")
        if not all(isinstance(text, str) for text in texts.values()):
            problems.append(f"{file}: holds something that is no text")
        elif file.name != "en.json":
            problems += language_problems(file, texts, english)
    print("\n".join(problems), end="\n" if problems else "")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
