"""docs/names.md lists the given names where they are declared, and each one once."""
import re
import unittest
from pathlib import Path

root = Path(__file__).resolve().parents[2]
NAME = re.compile(r"`(\w+)`")


def listed():
    """(file, name) of each row; the file is the row's own or the one named above the table."""
    above = None
    for line in (root / "docs/names.md").read_text(encoding="utf-8").splitlines():
        if found := re.match(r"`(src/\S+)`", line):
            above = found.group(1)
        cells = line.split("|")
        if not line.startswith("| `"):
            continue
        own = re.match(r" `(src/\S+)` $", cells[1])
        for name in NAME.findall(cells[2] if own else cells[1]):
            yield (own.group(1) if own else above), name


class GivenNames(unittest.TestCase):
    def test_each_is_in_the_file_that_is_said_to_declare_it(self):
        gone = [f"{name} in {file}" for file, name in listed()
                if not re.search(rf"\b{name}\b", (root / file).read_text(encoding="utf-8"))]
        self.assertEqual(gone, [])

    def test_each_is_listed_once(self):
        names = list(listed())
        self.assertGreater(len(names), 150)
        self.assertEqual(sorted({n for n in names if names.count(n) > 1}), [])


if __name__ == "__main__":
    unittest.main()
