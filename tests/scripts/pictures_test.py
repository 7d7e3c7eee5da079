"""The pictures of docs/architecture.md show the rooms and steps as they are."""
import importlib.util
import re
import tempfile
import unittest
from pathlib import Path

root = Path(__file__).resolve().parents[2]
description = importlib.util.spec_from_file_location("pictures", root / "scripts/pictures.py")
pictures = importlib.util.module_from_spec(description)
description.loader.exec_module(pictures)


def direct_links(room):
    text = (root / "src" / room / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"\bUSES ([\w ]+)\)", text)[1].split()


def reached(room, linked):
    return linked[room].union(*(reached(used, linked) for used in linked[room]))


class Pictures(unittest.TestCase):
    def test_those_of_the_documentation_are_drawn_from_what_is_there(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(pictures.main([folder]), 0)
            for drawn in Path(folder).iterdir():
                kept = root / "docs/pictures" / drawn.name
                self.assertEqual(kept.read_text(encoding="utf-8"), drawn.read_text(encoding="utf-8"),
                                 f"{drawn.name}: run scripts/pictures.py")

    def test_rooms_are_those_of_the_source(self):
        rules = (root / "tests/layering/include_rules.cpp").read_text(encoding="utf-8")
        folders = {folder.name for folder in (root / "src").iterdir() if folder.is_dir()} | {"desk"}
        self.assertEqual(set(pictures.rooms_of(rules)), folders)

    def test_rooms_that_a_room_may_use_are_those_that_it_is_linked_with(self):
        rules = pictures.rooms_of((root / "tests/layering/include_rules.cpp").read_text(encoding="utf-8"))
        rules.pop("desk")
        linked = {room: set(direct_links(room)) & set(rules) for room in rules}
        self.assertEqual({room: reached(room, linked) for room in rules},
                         {room: set(used) for room, used in rules.items()})

    def test_room_that_is_reached_through_another_gets_no_arrow(self):
        rooms = {"a": ["b", "c"], "b": ["c"], "c": []}
        self.assertEqual(pictures.direct("a", rooms), ["b"])

    def test_line_that_is_no_step_is_refused(self):
        for line in ("a -> c: asks", "a => b: asks", "a -> b"):
            with self.assertRaises(ValueError):
                pictures.steps_of("parts: a | b\n" + line)


if __name__ == "__main__":
    unittest.main()
