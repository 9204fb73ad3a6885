#!/usr/bin/env python3
"""Holds the string table against the code: every key that the code names is there, every key that is there is
named, and the file is sorted. Exit status 1 with one line per breach."""
import json
import pathlib
import re
import sys

KEY = re.compile(r'"((?:msg|err|ask|title|str|menu)[A-Z0-9]\w*|appTitle)"')

NOT_KEYS = {"titleText"}  # a function of the practice page


def main():
    source = "\n".join(f.read_text(encoding="utf-8") for f in pathlib.Path("src").rglob("*") if f.suffix in (".h", ".cpp", ".mm", ".js"))
    used = set(KEY.findall(source)) - NOT_KEYS
    problems = []
    for file in sorted(pathlib.Path("resources/strings").glob("*.json")):
        keys = list(json.loads(file.read_text(encoding="utf-8")))
        problems += [f"{file}: missing {key}" for key in sorted(used - set(keys))]
        composed = {key for key in keys if key.startswith("menuGroup")}
        problems += [f"{file}: nobody uses {key}" for key in sorted(set(keys) - used - composed)]
        if keys != sorted(keys):
            problems.append(f"{file}: keys are not sorted")
    print("\n".join(problems), end="\n" if problems else "")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
