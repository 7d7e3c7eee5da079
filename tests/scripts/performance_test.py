"""What scripts/performance.py makes of the bench's output."""
import importlib.util
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

script = Path(__file__).resolve().parents[2] / "scripts/performance.py"
description = importlib.util.spec_from_file_location("performance", script)
performance = importlib.util.module_from_spec(description)
description.loader.exec_module(performance)

PAGE = "# Costs\n<!-- machine -->\n<!-- end of machine -->\nbefore\n<!-- costs -->\nold\n<!-- end of costs -->\n" \
       "<!-- latency -->\n<!-- end of latency -->\n<!-- targets -->\n<!-- end of targets -->\nafter\n"
CIRCLE = "{http://www.w3.org/2000/svg}circle"


def log_lines():
    lines = ["      told to the reader", "figure\tmachine\t2 cores of a desk",
             "   met      5 calls; at most 6", "   NOT MET  9 KB; at most 8", "   met      5 calls; at most 6"]
    for number, (work, contacts, _) in enumerate(performance.WORKS):
        lines += [f"figure\tcost\t{work}\tHublink\t{contacts}\t{1000 + number}\t1234\tmeasured",
                  f"figure\tcost\t{work}\tscript\t{contacts}\t567890\t700000\treckoned",
                  f"figure\tneeded\t{work}\t{number}"]
    for client in ("Hublink", "Hublink without tables", "script"):
        lines += [f"figure\tcost\t{performance.DRAWN}\t{client}\t100\t60\t30\tmeasured",
                  f"figure\tcost\t{performance.DRAWN}\t{client}\t10000\t6000\t3000\treckoned"]
    return lines + ["figure\tlatency\tHublink\t200\t1\t2\t3\t4", "figure\tlatency\tscript\t12\t5\t6\t7\t8"]


class Performance(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.log, self.page, self.picture = (Path(folder.name) / name for name in ("log", "page.md", "picture.svg"))
        self.page.write_text(PAGE, encoding="utf-8")

    def run_with(self, lines):
        self.log.write_text("\n".join(lines), encoding="utf-8")
        return performance.main([self.log, self.page, self.picture])

    def test_figures_stand_in_the_tables(self):
        self.assertEqual(self.run_with(log_lines()), 0)
        page = self.page.read_text(encoding="utf-8")
        self.assertIn("Measured on 2 cores of a desk.\n", page)
        self.assertIn("| Outlook: unknown caller, who becomes a contact | 1,000 | 1.2 s "
                      "| about 567,890 | about 12 min | 0 |\n", page)
        self.assertIn("| script | 12 | 5 | 6 | 7 | 8 |\n", page)
        self.assertIn("<!-- targets -->\n- 5 calls; at most 6\n- 9 KB; at most 8 (**not met**)\n<!--", page)
        self.assertNotIn("old", page)
        self.assertTrue(page.endswith("after\n"))

    def test_figures_of_a_later_run_replace_the_earlier(self):
        self.run_with(log_lines())
        first = self.page.read_text(encoding="utf-8")
        self.run_with([line.replace("\t1234\t", "\t9900\t") for line in log_lines()])
        self.assertEqual(self.page.read_text(encoding="utf-8"), first.replace("1.2 s", "9.9 s"))

    def test_reckoned_points_of_the_picture_are_hollow(self):
        self.run_with(log_lines())
        circles = [circle.get("fill") for circle in xml.etree.ElementTree.parse(self.picture).iter(CIRCLE)]
        self.assertEqual(len(circles), 6)
        self.assertEqual(circles.count("white"), 3)

    def test_missing_figure_changes_nothing(self):
        for missing in ("figure\tneeded\tunknown\t0", "figure\tlatency\tHublink\t200\t1\t2\t3\t4"):
            self.assertEqual(self.run_with([line for line in log_lines() if line != missing]), 1)
            self.assertEqual(self.page.read_text(encoding="utf-8"), PAGE)
            self.assertFalse(self.picture.exists())


if __name__ == "__main__":
    unittest.main()
