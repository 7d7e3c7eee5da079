"""The pictures of docs/architecture.md show the rooms and steps as they are."""
import importlib.util
import tempfile
import unittest
from pathlib import Path

root = Path(__file__).resolve().parents[2]
description = importlib.util.spec_from_file_location("pictures", root / "scripts/pictures.py")
pictures = importlib.util.module_from_spec(description)
description.loader.exec_module(pictures)


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

    def test_room_that_is_reached_through_another_gets_no_arrow(self):
        rooms = {"a": ["b", "c"], "b": ["c"], "c": []}
        self.assertEqual(pictures.direct("a", rooms), ["b"])

    def test_line_that_is_no_step_is_refused(self):
        for line in ("a -> c: asks", "a => b: asks", "a -> b"):
            with self.assertRaises(ValueError):
                pictures.steps_of("parts: a | b\n" + line)


if __name__ == "__main__":
    unittest.main()
