"""Saves the first table of a clipboard document as CSV, with lxml: FILE OUT."""
import sys

from lxml import html


def quoted(cell):
    return '"' + cell.replace('"', '""') + '"' if "," in cell or '"' in cell else cell


with open(sys.argv[1], "rb") as file:
    table = html.fromstring(file.read().decode("utf-8").replace("\r\n", "\n")).find(".//table")
with open(sys.argv[2], "w", encoding="utf-8", newline="") as out:
    for row in table.iter("tr"):
        out.write(",".join(quoted(cell.text_content().replace("\n", "")) for cell in row.iter("td")) + "\n")
