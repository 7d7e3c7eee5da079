"""Every link within the documentation leads to a file, and to a heading where it names one."""
import re
import unittest
from pathlib import Path

root = Path(__file__).resolve().parents[2]
PAGES = sorted(page for part in (".", "docs", "desk") for page in
               ((root / part).glob("*.md") if part == "." else (root / part).rglob("*.md")))
LINK = re.compile(r"\]\(([^)\s]+)\)")


def anchors(page):
    """The anchors of a page's headings, as the usual viewers make them."""
    for heading in re.findall(r"^#+ (.+)$", page.read_text(encoding="utf-8"), re.MULTILINE):
        yield re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")


def broken(page):
    for link in LINK.findall(page.read_text(encoding="utf-8")):
        if "://" in link or link.startswith("mailto:"):
            continue
        name, _, anchor = link.partition("#")
        target = (page.parent / name).resolve() if name else page
        if not target.exists():
            yield f"{page.relative_to(root)}: {link}"
        elif anchor and anchor not in anchors(target):
            yield f"{page.relative_to(root)}: {link}, which has no such heading"


class Links(unittest.TestCase):
    def test_each_leads_somewhere(self):
        self.assertGreater(sum(len(LINK.findall(page.read_text(encoding="utf-8"))) for page in PAGES), 100)
        self.assertEqual([link for page in PAGES for link in broken(page)], [])


if __name__ == "__main__":
    unittest.main()
