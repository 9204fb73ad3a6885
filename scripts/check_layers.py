#!/usr/bin/env python3
"""Holds the includes against the drawing in ARCHITECTURE.md: no include runs up, no Qt in the core, no system
macro outside platform/. Exit status 1 with one line per breach."""
import pathlib
import re
import sys

# A room may include from itself and from the rooms named here.
MAY_INCLUDE = {
    "base": set(),
    "content": {"base"},
    "platform": {"base", "content"},
    "tools": {"base", "content", "platform"},
    "online": {"base", "content", "platform"},
    "files": {"base", "content", "platform"},
    "shell": {"base", "content", "platform", "tools", "online", "files"},
    "cli": {"base", "content", "platform", "tools", "online", "files", "shell"},
    "ui": {"base", "content", "platform", "tools", "online", "files", "shell"},
    "equation": {"base", "content", "platform", "tools", "shell", "ui"},
    "sign_in": {"base", "content", "platform", "online", "shell", "ui"},
    "find_replace": {"base", "content", "platform", "online", "shell", "ui"},
    "practice": {"base", "content", "platform", "online", "shell", "ui", "equation", "find_replace", "sign_in"},
}
QT_ROOMS = ("ui/", "equation/", "find_replace/", "sign_in/", "practice/", "platform/qt/")
WITHOUT_QT = ("practice/service/", "practice/service_main/")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+(["<])([^">]+)[">]')
QT_HEADER = re.compile(r"^(Q[A-Z]\w*|Qt\w*/.*)$")
SYSTEM_MACRO = re.compile(r"\b(__APPLE__|__linux__|__unix__|_WIN32|Q_OS_\w+)\b")


def check(root, file):
    name = file.relative_to(root).as_posix()
    room = name.split("/")[0]
    allowed = MAY_INCLUDE.get(room)
    if allowed is None:
        return [f"src/{name}: a room that the drawing does not know"]
    problems = []
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        if room != "platform" and SYSTEM_MACRO.search(line):
            problems.append(f"src/{name}:{number}: system macro outside platform/")
        match = INCLUDE.match(line)
        if not match:
            continue
        header = match.group(2)
        target = header.split("/")[0]
        if target in MAY_INCLUDE and target != room and target not in allowed:
            problems.append(f"src/{name}:{number}: {room} must not include {header}")
        if QT_HEADER.match(header) and (not name.startswith(QT_ROOMS) or name.startswith(WITHOUT_QT)):
            problems.append(f"src/{name}:{number}: Qt header {header} in the core")
    return problems


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "src")
    files = sorted(f for f in root.rglob("*") if f.suffix in (".h", ".cpp", ".mm") and f.name != "version.h.in")
    problems = [line for file in files for line in check(root, file)]
    print("\n".join(problems), end="\n" if problems else "")
    return 1 if problems or not files else 0


if __name__ == "__main__":
    sys.exit(main())
