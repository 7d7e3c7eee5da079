"""What the user's guide says is what the program does, in both languages."""
import configparser
import re
import unittest

import guide_pages
import source_texts
from guide_pages import GUIDE, LANGUAGES, UNTRIED
from source_texts import ROOT

GUIDES = {language: guide_pages.pages(language) for language in LANGUAGES}

# What the guide quotes for its readers to type or to look for, and what the tests or the
# desk's player say where they try it.
TRIED = {
    r"msiexec /i hublink-<version>.msi /qn TYPE=OUTLOOK,LOTUS POPUP=true LANGUAGE=1036":
        ("TYPE=OUTLOOK,LOTUS POPUP=", "LANGUAGE=1036", "/qn"),
    r"HublinkCheck": ("HublinkCheck.exe",),
    r'HublinkCheck --save "%USERPROFILE%\report.txt"': ("--save",),
    r"HublinkCheck --map": ("--map",),
    r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\App Paths\Pavex.exe":
        (r"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe",),
    r"HKLM\SOFTWARE\Microsoft\Exchange\Client\Extensions":
        (r"SOFTWARE\\Microsoft\\Exchange\\Client\\Extensions",),
    r"HKCU\Software\Classes": (r"Software\\Classes\\PavexConvId.OrvelConvertId",),
    r"HKLM\SOFTWARE\Hublink": (r'L"SOFTWARE\\Hublink"',),
    r"Connector\pavexconnector.ini": (r"Connector\\pavexconnector.ini",),
    r"%APPDATA%\Hublink": (r"\\Hublink\\identifiers.map",),
    r"%APPDATA%\Hublink\identifiers.map": (r"\\Hublink\\identifiers.map",),
    r"%APPDATA%\Hublink\identifiers.map.damaged-1": (r"identifiers.map.damaged-1",),
    r"* Marc Durand (0123456)": ("* Marc Durand (0123456)",),
}

TESTS = "\n".join(path.read_text(encoding="utf-8") for folder in ("tests", "desk/player")
                  for path in sorted((ROOT / folder).rglob("*"))
                  if path.suffix in (".cpp", ".h", ".sh", ".py", ".txt") and path.parent.name != "scripts")


def all_pages():
    for language, pages in GUIDES.items():
        for name, page in pages.items():
            yield language, name, page


def explained_lines(page):
    """What the first cells of the tables of log lines quote."""
    for table in page.tables:
        if len(table[0]) == 4:
            for row in table[1:]:
                yield re.fullmatch("`(.+)`", row[0])[1]


def parts_of(line, texts):
    """The texts of the program that a line of the guide is put together from; values are in angle brackets."""
    for piece in re.split("<[^>]*>", line):
        rest = piece.strip()
        while rest:
            known = [text for text in texts if rest.startswith(text)]
            if not known:
                raise AssertionError(f"the program never writes {rest!r}, of {line!r}")
            longest = max(known, key=len)
            yield longest
            rest = rest[len(longest):].strip()


class Guide(unittest.TestCase):
    def test_every_ini_key_is_explained_with_its_default_and_no_other(self):
        keys = source_texts.ini_keys()
        self.assertGreater(len(keys), 50)
        for language in LANGUAGES:
            told = {(section, key): cell for section, key, cell in GUIDES[language]["settings.md"].keys_by_section()}
            self.assertEqual(sorted(told), sorted(keys), language)
            for key, default in keys.items():
                quoted = set(re.findall("`([^`]+)`", told[key]))
                self.assertEqual(quoted - {"false"}, {default} - {"", "false"}, (language, key))

    def test_every_ini_key_is_named_for_maintainers(self):
        named = set(re.findall(r"`(\w+)`", (ROOT / "docs/settings.md").read_text(encoding="utf-8")))
        self.assertEqual({key for _, key in source_texts.ini_keys()} - named, set())

    def test_installed_file_has_every_key_that_is_read_and_no_other(self):
        file = configparser.RawConfigParser(delimiters="=", comment_prefixes=";", strict=True)
        file.optionxform = str
        file.read(ROOT / "packaging/pavexconnector.ini", encoding="utf-8")
        installed = {(section, key) for section in file.sections() for key in file[section]}
        self.assertEqual(sorted(installed), sorted(source_texts.ini_keys()))

    def test_settings_that_the_text_quotes_exist(self):
        keys = {key for _, key in source_texts.ini_keys()}
        for language, name, page in all_pages():
            if name != "log.md":
                for key in re.findall(r"`(\w+)=[^`\s]*`", page.text):
                    self.assertIn(key, keys, (language, name))

    def test_values_that_the_page_of_settings_quotes_are_those_of_the_installed_file(self):
        lines = (ROOT / "packaging/pavexconnector.ini").read_text(encoding="utf-8").splitlines()
        for language in LANGUAGES:
            quoted = re.findall(r"`(\w+=\w+)`", GUIDES[language]["settings.md"].text)
            self.assertGreater(len(quoted), 0, language)
            self.assertEqual(set(quoted) - set(lines), set(), language)

    def test_every_line_of_the_log_is_explained_and_no_other(self):
        texts = source_texts.log_texts()
        self.assertGreater(len(texts), 40)
        for language in LANGUAGES:
            lines = list(explained_lines(GUIDES[language]["log.md"]))
            told = {part for line in lines for part in parts_of(line, texts)}
            self.assertEqual(texts - told, set(), language)
            self.assertEqual(len(lines), len(set(lines)), language)

    def test_lines_of_the_log_that_other_pages_quote_are_explained(self):
        for language, pages in GUIDES.items():
            explained = tuple(explained_lines(pages["log.md"]))
            quoted = {span for name, page in pages.items() if name != "log.md" for span, _ in page.spans
                      if re.fullmatch(r"[A-Z]\w+(?: +\w+)+", span)} - {"Program Files"}
            self.assertGreater(len(quoted), 3, language)
            self.assertEqual({line for line in quoted if not any(each.startswith(line) for each in explained)},
                             set(), language)

    def test_languages_have_the_same_pages_headings_tables_code_and_pictures(self):
        english, french = (GUIDES[language] for language in LANGUAGES)
        self.assertEqual(list(english), list(french))
        self.assertIn("README.md", english)
        for name, page in english.items():
            other = french[name]
            self.assertEqual(*([heading.count("#") for heading in each.headings] for each in (page, other)), name)
            self.assertEqual(*([(len(rows), len(rows[0])) for rows in each.tables] for each in (page, other)), name)
            self.assertEqual(*([line for line, _ in each.quoted_lines] for each in (page, other)), name)
            self.assertEqual(page.pictures, other.pictures, name)
            self.assertEqual(page.text.lower().count(UNTRIED["en"]), other.text.lower().count(UNTRIED["fr"]), name)

    def test_rows_are_whole(self):
        for language, name, page in all_pages():
            for table in page.tables:
                for row in table:
                    self.assertEqual(len(row), len(table[0]), (language, name, row))
                    self.assertTrue(all(row), (language, name, row))

    def test_index_leads_to_every_page(self):
        for language, pages in GUIDES.items():
            self.assertEqual(set(pages) - {"README.md"} - set(pages["README.md"].links), set(), language)

    def test_pictures_are_small_made_by_the_script_and_all_in_use(self):
        script = (ROOT / "scripts/guide-pictures.sh").read_text(encoding="utf-8")
        used = {(page.path.parent / picture).resolve() for _, _, page in all_pages() for picture in page.pictures}
        self.assertEqual(used, set((GUIDE / "pictures").iterdir()))
        for picture in used:
            self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n", picture)
            self.assertLess(picture.stat().st_size, 40_000, picture)
            self.assertRegex(script, rf"(?m)^cut \S+ {picture.stem} ")

    def test_commands_and_paths_are_tried_or_said_to_be_untried(self):
        for language, name, page in all_pages():
            quoted = list(page.quoted_lines)
            quoted += [span for span in page.spans if "\\" in span[0] or re.match("(%|HublinkCheck( |$)|msiexec)", span[0])]
            for text, around in quoted:
                if UNTRIED[language] in around.lower():
                    continue
                self.assertIn(text, TRIED, (language, name))
                for tried in TRIED[text]:
                    self.assertTrue(tried in TESTS, f"no test tries {tried} any more, for {language}/{name}")

    def test_nothing_is_kept_that_the_guide_does_not_quote(self):
        text = "\n".join(page.text for page in GUIDES["en"].values())
        for quoted in TRIED:
            self.assertIn(quoted, text)

    def test_programs_that_are_said_to_open_no_connection_have_no_means_to(self):
        for path in sorted((ROOT / "src").rglob("*")):
            if path.is_file() and path.suffix in (".cpp", ".h", ".txt"):
                self.assertNotRegex(path.read_text(encoding="utf-8").lower(),
                                    r"\b(winsock2?|ws2_32|wininet|winhttp|urlmon|mswsock)\b", path)

    def test_pages_read_well_in_plain_text(self):
        for language, name, page in all_pages():
            for line in page.lines:
                self.assertNotRegex(line, r"<(br|img|p|a|b|i|table|sup|sub|div|details)\b", (language, name))
                self.assertTrue(line.startswith("|") or len(line) <= 110, (language, name, line))

    def test_french_signs_stand_behind_a_space_that_does_not_break(self):
        for name, page in GUIDES["fr"].items():
            for line in page.lines:
                if not line.startswith("    "):
                    text = re.sub("`[^`]*`", "", line)
                    self.assertNotRegex(text, r" [:;?»]|« | !(?!\[)", name)


if __name__ == "__main__":
    unittest.main()
