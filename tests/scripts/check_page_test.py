"""docs/check.md tells every note and problem of HublinkCheck, in its English words."""
import re
import unittest
from pathlib import Path

root = Path(__file__).resolve().parents[2]
PIECE = re.compile(r'L"((?:[^"\\]|\\.)*)"')


def findings():
    """What is found, of each text that has an advice; … stands for its gaps."""
    source = (root / "src/check/texts_english.cpp").read_text(encoding="utf-8")
    for pieces in re.findall(r'=\s*\{((?:\s*L"(?:[^"\\]|\\.)*")+),', source):
        text = "".join(PIECE.findall(pieces)).replace('\\"', '"').replace("\\\\", "\\")
        yield re.sub(r"\{\d\}", "…", text)


class CheckPage(unittest.TestCase):
    def test_each_finding_stands_in_a_table(self):
        page = (root / "docs/check.md").read_text(encoding="utf-8")
        told = list(findings())
        self.assertGreater(len(told), 60)
        self.assertEqual([text for text in told if f"| `{text}` |" not in page], [])

    def test_each_finding_of_the_tables_is_one(self):
        rows = re.findall(r"^\| (?:note|problem)[^|]* \| `([^`]*)` \|", (root / "docs/check.md").read_text("utf-8"), re.M)
        self.assertEqual([row for row in rows if row not in set(findings())], [])


if __name__ == "__main__":
    unittest.main()
