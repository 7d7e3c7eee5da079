"""The pages of the user's guide, taken apart: tables, headings, links, code."""
import re

from source_texts import ROOT

GUIDE = ROOT / "docs/user"
LANGUAGES = ("en", "fr")
UNTRIED = {"en": "*untried", "fr": "*non essayé"}


class Page:
    def __init__(self, path):
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.lines = self.text.splitlines()

    @property
    def headings(self):
        return [line for line in self.lines if re.match("#+ ", line)]

    @property
    def tables(self):
        """Each table as its rows of cells, the header first, without the ruler."""
        found, rows = [], []
        for line in self.lines + [""]:
            if line.startswith("|"):
                cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
                if not all(re.fullmatch("-+", cell) for cell in cells):
                    rows.append(cells)
            elif rows:
                found.append(rows)
                rows = []
        return found

    @property
    def paragraphs(self):
        return self.text.split("\n\n")

    @property
    def quoted_lines(self):
        """(line, the text before it) of what stands in code blocks."""
        for before, paragraph in zip([""] + self.paragraphs, self.paragraphs):
            for line in paragraph.splitlines():
                if line.startswith("    "):
                    yield line.strip(), before

    @property
    def spans(self):
        """(code, its paragraph) of what stands between backquotes."""
        for paragraph in self.paragraphs:
            for span in re.findall("`([^`]+)`", paragraph):
                yield span, paragraph

    @property
    def links(self):
        return re.findall(r"\]\(([^)\s]+)\)", self.text)

    @property
    def pictures(self):
        return re.findall(r"!\[[^\]]*\]\(([^)\s]+)\)", self.text)

    def keys_by_section(self):
        """(section, key, default) of the tables of settings."""
        section = None
        for line in self.lines:
            if line.startswith("#"):
                section = line.lstrip("# ").strip("[]")
            row = re.match(r"\| `(\w+)` \|", line)
            if row:
                yield section, row[1], re.split(r"(?<!\\)\|", line)[3].strip()


def pages(language):
    return {path.name: Page(path) for path in sorted((GUIDE / language).glob("*.md"))}
