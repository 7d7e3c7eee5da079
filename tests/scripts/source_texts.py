"""What the sources say: the ini keys that Hublink reads and the lines that it writes into its log."""
import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
ROOMS = ("shell", "softphone", "outlook", "lotus", "common")

# Whatever becomes a line of the log, or the text of a box, is an argument of one of these
# or stands beside the flags of a message box.
SINKS = ("WriteLog", "WriteLotusLog", "LogToOutlookJournal", "showTrace", "logNoAccess")

NARROW = r'"((?:[^"\\]|\\.)*)"'
WIDE = r'L"((?:[^"\\]|\\.)*)"'
FUNCTION = re.compile(r"^(?P<head>[^\s#/{}][^\n;{]*(?:\n +[^\n;{]*)*)\n(?:try )?\{\n(?P<body>.*?)^\}", re.M | re.S)


class Source:
    def __init__(self, path):
        self.path = path
        text = path.read_text(encoding="utf-8")
        text = re.sub(r"'(\\.|[^'\\\n])'", "0", text)  # characters: a parenthesis or quote counts no more
        self.text = re.sub(r"(?m)^\s*//.*$|(?<=[;{}),]) +//.*$", "", text)
        self.functions = [(match["head"], match["body"]) for match in FUNCTION.finditer(self.text)]


def sources():
    return [Source(path) for room in ROOMS for path in sorted((ROOT / "src" / room).rglob("*.cpp"))]


def without_texts(code):
    """The same with every text literal blanked: what stands in it counts no more, and nothing moves."""
    return re.sub(NARROW, lambda text: '"' + "_" * (len(text[0]) - 2) + '"', code)


def depths(code):
    depth = 0
    for at, char in enumerate(without_texts(code)):
        depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(char, 0)
        yield at, char, depth


def arguments_at(code, start):
    """The text between the parenthesis that opens at `start` and the one that closes it."""
    return next(code[start + 1:start + at] for at, _, depth in depths(code[start:]) if depth == 0)


def split_arguments(code):
    commas = [at for at, char, depth in depths(code) if char == "," and depth == 0]
    return [code[begin + 1:end].strip() for begin, end in zip([-1] + commas, commas + [len(code)])]


def calls(text, name):
    """The arguments of each call of the functions whose names match, as texts."""
    return [arguments_at(text, match.end() - 1) for match in re.finditer(rf"(?<![\w:]){name}\(", text)]


# ---------------------------------------------------------------- the ini keys


SETTING = re.compile(r'^    \{(?:"([^"]*)"|bookSection), "(\w+)", SettingKind::\w+, "([^"]*)"', re.M)


def ini_keys():
    """{(section, key): fallback} of all that the program reads."""
    table = (ROOT / "src/common/settings_table.h").read_text(encoding="utf-8")
    return {(section or "lotus base description 1", key): fallback for section, key, fallback in SETTING.findall(table)}


# --------------------------------------------------------------- the log lines


def unescaped(literal):
    return literal.replace("\\n", "\n").replace('\\"', '"').replace("\\\\", "\\")


class LogTexts:
    """Follows what the sinks are given, through variables, parameters and functions of the same file."""

    def __init__(self):
        self.found, self.seen, self.used = set(), set(), set()
        self.files = sources()
        for source in self.files:
            for head, body in source.functions:
                for sink in SINKS:
                    for arguments in calls(body, rf"(?:[\w.]+\.)?{sink}"):
                        self.used.add(sink)
                        self.follow(arguments, head, body, source)
                for arguments in calls(body, r"[\w.]+"):
                    if any(part.startswith("MB_") for part in split_arguments(arguments)):
                        self.follow(arguments, head, body, source)

    def follow(self, expression, head, body, source):
        if (expression, head, source.path) in self.seen:
            return
        self.seen.add((expression, head, source.path))
        self.found.update(unescaped(literal) for literal in re.findall(WIDE, expression))
        for name in set(re.findall(r"[A-Za-z_]\w*", re.sub(NARROW, "", expression))):
            self.follow_name(name, head, body, source)

    def follow_name(self, name, head, body, source):
        for value in re.findall(rf"\b{name} \+?= ([^;]*);", body):
            self.follow(value, head, body, source)
        for other_head, other_body in source.functions:
            if re.match(rf"std::wstring (?:\w+::)?{name}\(", other_head):
                self.found.update(unescaped(literal) for literal in re.findall(WIDE, other_body))
        function = re.search(r"(\w+)\((.*)\)", head, re.S)
        if function and function[1] not in SINKS and re.search(rf"\b{name}(?:,|$|\s)", function[2]):
            for other_head, other_body in source.functions:
                for arguments in calls(other_body, function[1]):
                    self.follow(arguments, other_head, other_body, source)


def log_texts():
    """The texts from which lines and boxes are put together, without what surrounds them."""
    texts = LogTexts()
    missing = set(SINKS) - texts.used
    assert not missing, f"nobody calls {missing} any more: what writes the log now?"
    pieces = {piece.strip() for literal in texts.found for piece in literal.split("\n")}
    return {piece for piece in pieces if re.search("[A-Za-z]", piece)}


if __name__ == "__main__":
    for entry in sorted(ini_keys().items()):
        print(entry)
    for text in sorted(log_texts()):
        print(repr(text))
