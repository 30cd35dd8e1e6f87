"""The changes that a mutant makes to a C++ source: one each, found in the text itself.

The sources are formatted by clang-format, which is relied on: binary operators stand between
blanks, template brackets do not, and a statement begins its line.
"""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Mutant:
    """One change: the text from `start` to `end` of `file` becomes `new`."""

    file: str
    operator: str
    line: int
    start: int
    end: int
    new: str
    before: str  # the line as it is
    after: str  # the line as the mutant has it

    def apply(self, text):
        return text[: self.start] + self.new + text[self.end :]


_LITERAL = re.compile(
    r"""//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)'(?:\\.|[^'\\\n])+'"""
    r"""|^[ \t]*\#(?:\\\n|[^\n])*""",
    re.DOTALL | re.MULTILINE,
)
# What only states an invariant, or is worth nothing but speed.
_IGNORED_CALL = re.compile(r"\b(Q_ASSERT|Q_ASSERT_X|Q_UNREACHABLE|static_assert|reserve|squeeze)\b")

_SWAPS = [  # name, what is looked for, what it becomes
    ("comparison", r"(?<= )==(?= )", ["!="]),
    ("comparison", r"(?<= )!=(?= )", ["=="]),
    ("comparison", r"(?<= )<(?= )", ["<=", ">="]),
    ("comparison", r"(?<= )>(?= )", [">=", "<="]),
    ("comparison", r"(?<= )<=(?= )", ["<", ">"]),
    ("comparison", r"(?<= )>=(?= )", [">", "<"]),
    ("logic", r"(?<= )&&(?= )", ["||"]),
    ("logic", r"(?<= )\|\|(?= )", ["&&"]),
    ("logic", r"!(?=[\w(:*])", [""]),
    ("arithmetic", r"(?<= )\+(?= )", ["-"]),
    ("arithmetic", r"(?<= )-(?= )", ["+"]),
    ("arithmetic", r"(?<= )\+=(?= )", ["-="]),
    ("arithmetic", r"(?<= )-=(?= )", ["+="]),
    ("step", r"\+\+", ["--"]),
    ("step", r"--", ["++"]),
    ("constant", r"\btrue\b", ["false"]),
    ("constant", r"\bfalse\b", ["true"]),
    ("bound", r"(?<=std::)min(?=[(<])", ["max"]),
    ("bound", r"(?<=std::)max(?=[(<])", ["min"]),
    ("bound", r"\bqMin(?=[(<])", ["qMax"]),
    ("bound", r"\bqMax(?=[(<])", ["qMin"]),
]
_NUMBER = re.compile(r"(?<![\w.'])\d[\d']*(?=(?:s|ms|min|h)?\b)(?![.'xX])")
_CONDITION = re.compile(r"\b(?:if|while)( constexpr)? \(")
_RETURN = re.compile(r"^[ \t]*(return )", re.MULTILINE)
_PLAIN_VALUE = re.compile(r"\{\}|true|false|nullptr|0|\w+\(\)|\*this")
_STATEMENT = re.compile(r"^[ \t]*((?:Q_EMIT )?[A-Za-z_*(:][\w:.>\[\]()*-]*)", re.MULTILINE)
_CALL = re.compile(r"(?:Q_EMIT )?[\w:.>\[\]-]+(?:<[^ ]*>)?\(")
_BEFORE_STATEMENT = (";", "{", "}", ")", ":", "else")
_KEYWORD = re.compile(
    r"(?:return|if|else|for|while|do|switch|case|default|break|continue|using|delete|throw|auto|"
    r"const|constexpr|static|public|private|protected|namespace|class|struct|enum|template)\b"
)


def masked(text):
    """The text with blanks in place of comments, literals and preprocessor lines."""

    def blank(match):
        found = match.group()
        if found[0] in "\"'R" and len(found) > 2:  # a literal stays one
            return found[0] + re.sub(r"[^\n]", "_", found[1:-1]) + found[-1]
        return re.sub(r"[^\n]", " ", found)

    text = _LITERAL.sub(blank, text)
    for call in reversed(list(_IGNORED_CALL.finditer(text))):
        end = closing(text, text.find("(", call.end()))
        start = text.rfind("\n", 0, call.start()) + 1
        text = text[:start] + re.sub(r"[^\n]", " ", text[start:end]) + text[end:]
    return text


def closing(text, start):
    """The position behind the bracket that closes the one at `start`."""
    depth = 0
    for position in range(start, len(text)):
        if text[position] in "([{":
            depth += 1
        elif text[position] in ")]}":
            depth -= 1
            if depth == 0:
                return position + 1
    return len(text)


def _statement_end(code, start):
    """The position of the semicolon that ends the statement at `start`, or -1."""
    position = start
    while position < len(code):
        if code[position] in "([{":
            position = closing(code, position)
            continue
        if code[position] == ";":
            return position
        if code[position] in ")]}":
            return -1
        position += 1
    return -1


def _conditions(code):
    for match in _CONDITION.finditer(code):
        start, end = match.end(), closing(code, match.end() - 1) - 1
        first = code.find(";", start, end)
        if first >= 0:
            start = first + 2
        if match.group(1) or re.search(r"[\w>*&] =(?!=)", code[start:end]):
            continue  # a declaration cannot be negated
        if re.fullmatch(r"![\w(:*][^&|]*", code[start:end]):
            continue  # dropping the "!" does the same
        yield "condition", start, end, "!({})"


def _statements(code):
    """Calls and assignments that stand alone, and returned values."""
    for match in _STATEMENT.finditer(code):
        start = match.start(1)
        previous = code[:start].rstrip()
        if _KEYWORD.match(match.group(1)) or not previous.endswith(_BEFORE_STATEMENT):
            continue
        end = _statement_end(code, start)
        if end < 0:
            continue
        statement = code[start:end]
        if re.match(r"[\w:.>\[\]()*-]+ [-+|&]?= ", statement):
            yield "assignment", start, end, ""
        elif statement.endswith(")") and _CALL.match(statement):
            yield "call", start, end, ""
    for match in _RETURN.finditer(code):
        start = match.end()
        end = _statement_end(code, start)
        if end > 0 and not _PLAIN_VALUE.fullmatch(code[start:end]):
            yield "value", start, end, "{{}}"


def _words(code):
    for name, pattern, replacements in _SWAPS:
        for match in re.finditer(pattern, code):
            if name == "arithmetic" and '"' in code[match.start() - 3 : match.end() + 3]:
                continue  # joins texts
            for replacement in replacements:
                yield name, match.start(), match.end(), replacement
    for match in _NUMBER.finditer(code):
        yield "number", match.start(), match.end(), str(int(match.group().replace("'", "")) + 1)


def mutants(file, text):
    """All mutants of the source `text` of `file`, in the order of their places."""
    code = masked(text)
    found = []
    for operator, start, end, form in [*_conditions(code), *_statements(code), *_words(code)]:
        new = form.format(text[start:end])
        line_start = text.rfind("\n", 0, start) + 1
        line_end = text.find("\n", end)
        before = text[line_start:line_end]
        after = text[line_start:start] + new + text[end:line_end]
        line = text.count("\n", 0, start) + 1
        found.append(Mutant(file, operator, line, start, end, new,
                            " ".join(before.split()), " ".join(after.split())))
    return sorted(set(found), key=lambda each: (each.start, each.end, each.operator, each.new))
