"""The names that C++ source declares outside of its procedures: functions with their
parameters, data members and constants. Knows as much of the language as the source uses."""
import re
from dataclasses import dataclass

COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|L?"(?:\\.|[^"\\\n])*"|L?\'(?:\\.|[^\'\\\n])*\'', re.S)
DIRECTIVE = re.compile(r"^[ \t]*#(?:\\\n|[^\n])*", re.M)
TOKEN = re.compile(r"\w[\w']*|::|->|\.\.\.|&&|\|\||[<>=!]=|\S")
IDENTIFIER = re.compile(r"[A-Za-z_]\w*\Z")
WINDOWS_METHODS = {"STDMETHODIMP", "STDMETHODIMP_"}
SCOPE_WORDS = {"namespace", "class", "struct", "union", "enum"}
ACCESS_WORDS = {"public", "protected", "private"}
NO_DECLARATION = {"using", "friend", "typedef", "static_assert"}
NO_NAME = {"const", "auto", "void", "bool", "char", "wchar_t", "int", "long", "short", "float", "double", "unsigned",
           "volatile"}
OPENING, CLOSING = "([{<", ")]}>"


@dataclass(frozen=True)
class Declared:
    kind: str  # "function", "parameter" or "data"
    name: str
    is_public: bool = True


def tokens_of(text):
    text = COMMENT_OR_TEXT.sub(lambda found: " " if found[0].startswith("/") else " 0 ", text)
    return TOKEN.findall(DIRECTIVE.sub("", text))


def end_of(tokens, begin):
    """The place behind the bracket that closes the one at `begin`."""
    depth = 0
    for place in range(begin, len(tokens)):
        depth += (tokens[place] in "([{") - (tokens[place] in ")]}")
        if depth == 0:
            return place + 1
    return len(tokens)


def parts_of(tokens):
    """The parts between the commas that stand outside of every bracket."""
    parts, depth = [[]], 0
    for token in tokens:
        depth += (token in OPENING) - (token in CLOSING)
        if token == "," and depth == 0:
            parts.append([])
        else:
            parts[-1].append(token)
    return parts


def until_initialiser(tokens):
    depth = 0
    for place, token in enumerate(tokens):
        if depth == 0 and place > 0 and token in ("=", "{", "[", ":"):
            return tokens[:place]
        depth += (token in OPENING) - (token in CLOSING)
    return tokens


def parameter_of(tokens):
    """The parameter's name; None of one that has only a type."""
    tokens = until_initialiser(tokens)
    if len(tokens) < 2 or not IDENTIFIER.match(tokens[-1]) or tokens[-1] in NO_NAME or tokens[-2] == "::":
        return None
    return tokens[-1] if any(token not in ("const", "volatile") for token in tokens[:-1]) else None


def parameter_list(tokens):
    """Where a function's parameters begin; None of what is no function."""
    depth = 0
    for place, token in enumerate(tokens):
        if token == "operator":
            return None
        if depth == 0 and token == "=":
            return None
        if depth == 0 and token == "(" and place > 0 and IDENTIFIER.match(tokens[place - 1]):
            return place
        depth += (token in OPENING) - (token in CLOSING)
    return None


def without_pointer(tokens):
    """A pointer to a function as the function that it points to: f(int) for (*f)(int)."""
    for place in range(len(tokens) - 3):
        if tokens[place:place + 2] == ["(", "*"] and tokens[place + 3] == ")":
            return tokens[:place] + [tokens[place + 2]] + tokens[place + 4:]
    return tokens


def declared_by(tokens, is_public):
    """The names that one declaration introduces."""
    if not tokens or tokens[0] in NO_DECLARATION:
        return
    if WINDOWS_METHODS & set(tokens[:2]):
        return  # named by an interface of Windows; "virtual" may stand before it
    if tokens[0] in SCOPE_WORDS and "(" not in tokens and "=" not in tokens:
        return  # announced only
    tokens = without_pointer(tokens)
    begin = parameter_list(tokens)
    if begin is None:
        for part in parts_of(tokens):
            head = until_initialiser(part)
            if "operator" not in head and head and IDENTIFIER.match(head[-1]) and head[-1] not in NO_NAME:
                yield Declared("data", head[-1], is_public)
        return
    is_maker = begin > 1 and tokens[begin - 2] == "~" or begin > 2 and tokens[begin - 3] == tokens[begin - 1]
    if not is_maker:
        yield Declared("function", tokens[begin - 1], is_public)
    for part in parts_of(tokens[begin + 1:end_of(tokens, begin) - 1]):
        if name := parameter_of(part):
            yield Declared("parameter", name)


def without_template(tokens):
    if not tokens or tokens[0] != "template":
        return tokens
    depth = 0
    for place, token in enumerate(tokens):
        depth += (token == "<") - (token == ">")
        if place > 0 and depth == 0:
            return tokens[place + 1:]
    return tokens


def is_body(declaration):
    """Whether a brace that follows opens a procedure's body, and no initial value."""
    return parameter_list(declaration) is not None and not IDENTIFIER.match(declaration[-1]) \
        or bool(declaration) and declaration[-1] in ("const", "noexcept", "override", "final", "try")


def declarations(tokens, class_name=None, is_public=True):
    """All that the tokens of a scope declare, with its inner scopes."""
    pending, place = [], 0
    while place < len(tokens):
        token = tokens[place]
        if token in ACCESS_WORDS and tokens[place + 1:place + 2] == [":"]:
            is_public, place = token == "public", place + 2
        elif token == ";":
            yield from own(declared_by(without_template(pending), is_public), class_name)
            pending, place = [], place + 1
        elif token == "{":
            end = end_of(tokens, place)
            head = without_template(pending)
            if head and head[0] in SCOPE_WORDS and parameter_list(head) is None:
                if head[0] != "enum":
                    name = None if head[0] == "namespace" else head[1]
                    yield from declarations(tokens[place + 1:end - 1], name, head[0] != "class")
                # What stands behind a class's brace is a member of it, unless it is a semicolon.
                pending = ["auto"] if tokens[end:end + 1] not in ([";"], []) and head[0] != "namespace" else []
            elif is_body(head):
                yield from own(declared_by(head, is_public), class_name)
                pending = []
            else:
                pending += tokens[place:end]
            place = end
        else:
            pending.append(token)
            place += 1


def own(declared, class_name):
    """Without the constructors."""
    return (one for one in declared if not (one.kind == "function" and one.name == class_name))


def declarations_in(text):
    return list(declarations(tokens_of(text)))
