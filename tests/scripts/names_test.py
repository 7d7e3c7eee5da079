"""docs/names.md lists the given names where they are declared, each one once, and every
other name is in our own style."""
import re
import unittest
from pathlib import Path

from declarations import declarations_in

root = Path(__file__).resolve().parents[2]
NAME = re.compile(r"`(\w+)`")
LOWER_CAMEL_CASE = re.compile(r"[a-z][A-Za-z0-9]*\Z")
HUNGARIAN = re.compile(r"(sz|bg?|nb?|g|h)[A-Z]")


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


def declared(suffixes):
    """(file, declaration) of all that the source declares."""
    for file in sorted((root / "src").rglob("*")):
        if file.suffix in suffixes:
            for one in declarations_in(file.read_text(encoding="utf-8")):
                yield file.relative_to(root).as_posix(), one


def is_ours(name, is_public=True):
    """Whether a name is in our own style; what is private may end in "_"."""
    ours = name if is_public else name.removesuffix("_")
    return LOWER_CAMEL_CASE.match(ours) and not HUNGARIAN.match(ours)


class GivenNames(unittest.TestCase):
    def test_each_is_in_the_file_that_is_said_to_declare_it(self):
        gone = [f"{name} in {file}" for file, name in listed()
                if not re.search(rf"\b{name}\b", (root / file).read_text(encoding="utf-8"))]
        self.assertEqual(gone, [])

    def test_each_is_listed_once(self):
        names = list(listed())
        self.assertGreater(len(names), 150)
        self.assertEqual(sorted({n for n in names if names.count(n) > 1}), [])

    def test_what_is_declared_in_another_style_than_ours_is_among_them(self):
        given = {name for _, name in listed()}
        found = [(file, one) for file, one in declared({".h", ".cpp"}) if one.kind != "parameter"]
        self.assertGreater(len(found), 600)
        self.assertEqual([f"{one.name} in {file}" for file, one in found
                          if not is_ours(one.name, one.is_public) and one.name not in given], [])

    def test_no_parameter_is_among_them(self):
        found = [(file, one.name) for file, one in declared({".h", ".cpp"}) if one.kind == "parameter"]
        self.assertGreater(len(found), 600)
        self.assertEqual([f"{name} in {file}" for file, name in found if not is_ours(name)], [])


class Declarations(unittest.TestCase):
    def names(self, kind, text):
        return [one.name for one in declarations_in(text) if one.kind == kind]

    def test_a_class_declares_its_functions_and_members_but_no_constructor(self):
        text = """class Walk : public Base {
        public:
            explicit Walk(int First) : first_(First), rest_{1, 2} { Run(); }
            ~Walk() { Stop(); }
            bool operator==(const Walk& Other) const = default;
            std::function<void(int)> Told = [](int) {};
            Value (*Handler)(int Code);
            virtual STDMETHODIMP Next(ULONG Count) override;
            STDMETHODIMP_(ULONG) AddRef() override { return 1; }
            std::vector<int> SplitAt(const std::map<int, int>& Marks, int at = f(1, 2)) const { return Do(Marks); }
        private:
            int first_, rest_ = 0;
        };"""
        self.assertEqual(self.names("function", text), ["Handler", "SplitAt"])
        self.assertEqual(self.names("data", text), ["Told", "first_", "rest_"])
        self.assertEqual(self.names("parameter", text), ["First", "Code", "Marks", "at"])

    def test_a_source_declares_its_procedures_and_constants_but_nothing_inside_a_body(self):
        text = """namespace house { namespace { // Not(int Told);
        constexpr std::array<Pair, 2> Pairs{{{"f(int X)", 1}, {"b", 2}}};
        template <typename T> T* Made(T, std::uint32_t, const char Text[4]) { int Local = 0; return Other(Local); }
        Walk::Walk(int first) : first_(first) {}
        Object Room::Open(const Host& host)
        try { return Inner(); } catch (const Error& error) { throw; }
        enum class Kind { One, Two };
        } }"""
        self.assertEqual(self.names("data", text), ["Pairs"])
        self.assertEqual([n for n in self.names("function", text) if n != "catch"], ["Made", "Open"])
        self.assertEqual(self.names("parameter", text), ["Text", "first", "host", "error"])


if __name__ == "__main__":
    unittest.main()
