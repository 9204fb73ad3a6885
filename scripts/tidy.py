#!/usr/bin/env python3
"""Runs clang-tidy over the project's own sources with two workers. Takes the compile commands of a g++ build and
leaves out the precompiled header, which clang cannot read. With "core" as second word the Qt faces are left out. Remembers clean files by content, so that a second
run looks only at what changed."""
import concurrent.futures
import hashlib
import json
import pathlib
import re
import subprocess
import sys

CACHE = pathlib.Path("build/tidy-cache")
FACES = ("src/ui", "src/practice", "src/equation", "src/platform/qt")


def commands(path):
    here = pathlib.Path.cwd()
    result = []
    for entry in json.loads(pathlib.Path(path).read_text()):
        file = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if not file.is_relative_to(here / "src"):
            continue
        command = re.sub(r"-include \S*cmake_pch\S*|-Winvalid-pch", "", entry["command"])
        command = command[command.index(" -") :] if "ccache" in command.split(" -")[0] else command
        result.append({"directory": entry["directory"], "file": str(file), "command": "g++ " + command[command.index(" -") :]})
    return result


def fingerprint(entry):
    command = re.sub(r" -o \S+ -c ", " -E -P ", entry["command"])
    text = subprocess.run(command, shell=True, cwd=entry["directory"], capture_output=True, check=True).stdout
    return hashlib.sha256(text + pathlib.Path(".clang-tidy").read_bytes()).hexdigest()


def tidy(folder, entry):
    stamp = CACHE / fingerprint(entry)
    if stamp.exists():
        return ""
    run = subprocess.run(["clang-tidy", "--quiet", "-p", str(folder), entry["file"]], capture_output=True, text=True)
    if run.returncode == 0 and "warning:" not in run.stdout:
        stamp.touch()
        return ""
    return run.stdout + (run.stderr if run.returncode else "")


def main():
    CACHE.mkdir(parents=True, exist_ok=True)
    folder = pathlib.Path("build/tidy")
    folder.mkdir(exist_ok=True)
    entries = commands(sys.argv[1])
    if sys.argv[2:] == ["core"]:
        faces = tuple(str(pathlib.Path.cwd() / face) + "/" for face in FACES)
        entries = [entry for entry in entries if not entry["file"].startswith(faces)]
    (folder / "compile_commands.json").write_text(json.dumps(entries))
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        reports = [text for text in pool.map(lambda entry: tidy(folder, entry), entries) if text]
    print("\n".join(reports), end="")
    return 1 if reports or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
