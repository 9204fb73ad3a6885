"""Saves the first table of a clipboard document as CSV, with BeautifulSoup and Python's own parser: FILE OUT."""
import sys

from bs4 import BeautifulSoup


def quoted(cell):
    return '"' + cell.replace('"', '""') + '"' if "," in cell or '"' in cell else cell


with open(sys.argv[1], "rb") as file:
    table = BeautifulSoup(file.read().decode("utf-8").replace("\r\n", "\n"), "html.parser").find("table")
with open(sys.argv[2], "w", encoding="utf-8", newline="") as out:
    for row in table.find_all("tr"):
        out.write(",".join(quoted(cell.get_text().replace("\n", "")) for cell in row.find_all("td")) + "\n")
