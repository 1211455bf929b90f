# SPDX-License-Identifier: MIT
"""Where a C++ source can be broken, one small change at a time, and which of those places a seed takes.

Works on tokens and on the layout that clang-format gives the sources: a comparison has blanks on both sides, the
angle bracket of a template has none. A change that doesn't compile is no loss; the run takes the next place.
"""

import random
import re
from dataclasses import dataclass

TOKEN = re.compile(r"""
    (?P<directive>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<text>R"(?P<mark>[^(\n]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:[eE][+-]|'(?=\w)|[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><<=|>>=|<=>|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])
""", re.X | re.S | re.M)

SWAPS = {
    "comparison": {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="},
    "logic": {"&&": "||", "||": "&&"},
    "arithmetic": {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "<<": ">>", ">>": "<<", "&": "|", "|": "&"},
    "assignment": {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=", "<<=": ">>=", ">>=": "<<="},
    "step": {"++": "--", "--": "++"},
}
PREFIXED = {"step"}  # these have no blanks around them

BODY_WORDS = {"else", "do", "try", "const", "noexcept", "override", "final", "mutable"}
SCOPE_WORDS = {"namespace", "class", "struct", "union", "enum"}
NO_STATEMENT = {"return", "using", "typedef", "case", "default", "goto", "if", "for", "while", "do", "switch", "else",
                "break", "continue", "const", "constexpr", "static", "auto", "class", "struct", "enum", "friend",
                "public", "private", "protected", "template", "extern"}
# What is checked while compiling, and what only saves time: breaking it changes no behaviour.
SKIPPED_CALLS = {"static_assert", "assert", "reserve", "shrink_to_fit"}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Place:
    """One change: `text[start:end]` becomes `replacement`."""
    path: str
    start: int
    end: int
    replacement: str
    kind: str
    line: int
    function: str
    before: str
    after: str


def tokens_of(text):
    found = []
    for match in TOKEN.finditer(text):
        kind = match.lastgroup if match.lastgroup != "mark" else "text"
        if kind not in ("comment", "directive"):
            found.append(Token(kind, match.group(), match.start(), match.end()))
    return found


def closing(tokens, opening):
    """The index of the bracket that closes the one at `opening`, or None."""
    depth = 0
    for index in range(opening, len(tokens)):
        if tokens[index].text in ("(", "[", "{"):
            depth += 1
        elif tokens[index].text in (")", "]", "}"):
            depth -= 1
            if depth == 0:
                return index
    return None


@dataclass
class Brace:
    kind: str  # "scope", "body" or "list"
    function: str
    answers_bool: bool


def name_in(head):
    """The name of the function that a head such as `void Scan::show(Micros now)` begins."""
    for index, token in enumerate(head):
        if token.text != "(" or index == 0:
            continue
        name, at = "", index - 1
        while at >= 0 and (head[at].kind == "word" or head[at].text in ("::", "~")):
            if name and head[at].kind == "word" and not name.startswith(("::", "~")):
                break
            name, at = head[at].text + name, at - 1
        if not name and "operator" in (token.text for token in head[:index]):
            name = "operator" + head[index - 1].text
        return name
    return ""


def begins_lambda(texts):
    """Whether a body's head ends in `]` or `](...)`, with what may stand after."""
    at = len(texts) - 1
    while at >= 0 and texts[at] not in (")", "]"):
        at -= 1
    depth = 0
    while at >= 0 and texts[at] != "]":
        depth += {")": 1, "(": -1}.get(texts[at], 0)
        at -= 1
        if depth == 0:
            break
    return at >= 0 and texts[at] == "]"


def brace_of(head, outer):
    """What an opening brace begins, told by the tokens since the last statement ended."""
    texts = [token.text for token in head]
    function = outer.function if outer else ""
    answers_bool = outer.answers_bool if outer else False
    if not texts:
        return Brace("body" if outer and outer.kind == "body" else "list", function, answers_bool)
    in_body = outer is not None and outer.kind != "scope"
    if SCOPE_WORDS & set(texts) and "(" not in texts:
        return Brace("scope", function, False)
    last = texts[-1]
    arrow = max((i for i in range(1, len(texts)) if texts[i] == "->" and texts[i - 1] == ")"), default=None)
    returns_type = arrow is not None and all(head[i].kind == "word" or texts[i] in ("::", "<", ">", "*", "&", ",")
                                             for i in range(arrow + 1, len(texts)))
    is_body = last in (")", "]", ":") or last in BODY_WORDS or returns_type
    if not is_body and not in_body and "(" in texts and ":" in texts and last == "}":
        is_body = True  # after a constructor's list of members
    if not is_body:
        return Brace("list", function, answers_bool)
    if begins_lambda(texts):
        return Brace("body", function or name_in(head), False)
    if not in_body:
        before = texts[:texts.index("(")] if "(" in texts else []
        return Brace("body", name_in(head) or function, "bool" in before and "optional" not in before)
    return Brace("body", function, answers_bool)


class Finder:
    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = tokens_of(text)
        self.places = []
        self.function = ""

    def line_at(self, offset):
        first = self.text.rfind("\n", 0, offset) + 1
        last = self.text.find("\n", offset)
        return first, len(self.text) if last < 0 else last

    def add(self, kind, start, end, replacement):
        first = self.line_at(start)[0]
        last = self.line_at(end)[1]
        before = self.text[first:last]
        after = self.text[first:start] + replacement + self.text[end:last]
        squeeze = lambda part: " ".join(part.split())
        self.places.append(Place(self.path, start, end, replacement, kind, self.text.count("\n", 0, start) + 1,
                                 self.function, squeeze(before), squeeze(after)))

    def blank_around(self, token):
        return (token.start > 0 and self.text[token.start - 1] in " \n" and
                token.end < len(self.text) and self.text[token.end] in " \n")

    def text_at(self, index):
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def run(self):
        stack, heads, head, skip_to, depths = [], [], [], -1, [0]
        for index, token in enumerate(self.tokens):
            top = stack[-1] if stack else None
            if index > skip_to:
                if token.text in SKIPPED_CALLS and self.text_at(index + 1) == "(":
                    skip_to = closing(self.tokens, index + 1) or index
                elif token.text == "template" and self.text_at(index + 1) == "<":
                    skip_to = self.template_end(index + 1)
                else:
                    self.function = self.named(top, head)
                    self.look(index, token, top)
                    if top and top.kind == "body" and depths[-1] == 0:
                        self.look_at_statement(index, token, head)
            depths[-1] += {"(": 1, ")": -1}.get(token.text, 0)
            if token.text == "{":
                stack.append(brace_of(head, top))
                heads.append(head)
                depths.append(0)
                head = []
            elif token.text == "}":
                kind = stack.pop().kind if stack else "scope"
                outer_head = heads.pop() if heads else []
                if len(depths) > 1:
                    depths.pop()
                head = [*outer_head, token] if kind == "list" or depths[-1] > 0 else []
            elif token.text == ";":
                head = []
            else:
                head.append(token)
        return self.places

    def named(self, top, head):
        if top and top.function:
            return top.function
        names = [token.text for token in head if token.kind == "word"]
        texts = [token.text for token in head]
        if "=" in texts:
            named = [token.text for token in head[:texts.index("=")] if token.kind == "word"]
            return named[-1] if named else ""
        return name_in(head) or (names[-1] if names else "")

    def template_end(self, index):
        depth = 0
        while index < len(self.tokens):
            depth += {"<": 1, ">": -1, ">>": -2}.get(self.tokens[index].text, 0)
            if depth <= 0:
                return index
            index += 1
        return index

    def look(self, index, token, top):
        before, after = self.text_at(index - 1), self.text_at(index + 1)
        if before == "operator":
            return
        if before == ")" and self.text_at(index - 3) in ("data", "begin", "end"):
            return  # where a text lies in memory: what comes of another place is undefined
        for kind, swaps in SWAPS.items():
            if token.text in swaps and (kind in PREFIXED or self.blank_around(token)) and before not in (",", "("):
                self.add(kind, token.start, token.end, swaps[token.text])
            elif kind in PREFIXED and token.text in swaps:
                self.add(kind, token.start, token.end, swaps[token.text])
        if token.kind == "number":
            self.look_at_number(token, index, before, after)
        elif token.text in ("true", "false"):
            self.add("constant", token.start, token.end, "false" if token.text == "true" else "true")
        elif token.text in ("min", "max") and before == "::" and self.text_at(index - 2) == "std":
            self.add("bound", token.start, token.end, "max" if token.text == "min" else "min")
        elif token.text == "!" and not self.blank_around(token):
            self.add("negation", token.start, token.end, "")
        elif token.text in ("if", "while") and after == "(":
            self.look_at_condition(index + 1)
        elif token.text == "return" and top and top.answers_bool and after != ";":
            self.look_at_return(index)

    def look_at_number(self, token, index, before, after):
        closes_template = after in (">", ">>") and token.end < len(self.text) and self.text[token.end] == ">"
        sizes_buffer = before == "[" and self.text_at(index - 3) == "char"
        pure_virtual = token.text == "0" and before == "=" and self.text_at(index - 2) in (")", "const", "noexcept")
        if closes_template or sizes_buffer or pure_virtual:
            return
        self.add("constant", token.start, token.end, f"({token.text} + 1)")
        if re.sub(r"[0'.xXuUlLfF]", "", token.text):
            self.add("constant", token.start, token.end, f"({token.text} - 1)")

    def look_at_condition(self, opening):
        end = closing(self.tokens, opening)
        if end is None:
            return
        depth, first = 0, opening + 1
        for index in range(opening + 1, end):
            depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(self.tokens[index].text, 0)
            if depth == 0 and self.tokens[index].text == ";":
                first = index + 1
        start, stop = self.tokens[first].start, self.tokens[end].start
        if " = " not in self.text[start:stop]:
            self.add("condition", start, stop, f"!({self.text[start:stop]})")

    def statement_end(self, index):
        depth = 0
        while index < len(self.tokens):
            text = self.tokens[index].text
            depth += {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}.get(text, 0)
            if depth < 0:
                return None
            if depth == 0 and text == ";":
                return index
            index += 1
        return None

    def look_at_return(self, index):
        end = self.statement_end(index)
        if end is not None:
            start, stop = self.tokens[index + 1].start, self.tokens[end].start
            self.add("answer", start, stop, f"!({self.text[start:stop]})")

    def look_at_statement(self, index, token, head):
        first, last = (head[0].text, head[-1].text) if head else ("", "")
        in_case = first in ("case", "default") and last == ":"
        if head and last != "else" and not (last == ")" and first in ("if", "for", "while", "else")) and not in_case:
            return
        if token.text in ("break", "continue") and self.text_at(index + 1) == ";":
            if not (in_case and self.text_at(index + 2) == "}"):  # the last case ends without it as well
                self.add("jump", token.start, token.end, "")
            return
        if token.text in NO_STATEMENT or not (token.kind == "word" or token.text in ("*", "(", "++", "--")):
            return
        end = self.statement_end(index)
        if end is None:
            return
        body = self.tokens[index:end]
        if any(part.text in SKIPPED_CALLS for part in body):
            return
        if self.declares(body):
            return
        self.add("statement", token.start, self.tokens[end].start, "")

    @staticmethod
    def declares(body):
        """Two names side by side, as in `Holding_Block_Rec block = ...`: not a statement that can go."""
        for left, right in zip(body, body[1:]):
            if right.text in ("(", "=", "[", "{", "."):
                return left.kind == "word" and len(body) > 1 and Finder.is_typed(body, left)
        return False

    @staticmethod
    def is_typed(body, name):
        at = body.index(name)
        return at > 0 and body[0].text != "throw" and (body[at - 1].kind == "word" or body[at - 1].text in (">", "&", "*"))


def find_places(path, text):
    return Finder(path, text).run()


def lines_with_places(places):
    return len({place.line for place in places})


def shares(weights, count):
    """`count` divided by weight, at least one for everything that has a weight while that's possible."""
    names = [name for name in sorted(weights) if weights[name] > 0]
    total = sum(weights[name] for name in names)
    if not total:
        return {}
    exact = {name: count * weights[name] / total for name in names}
    given = {name: int(exact[name]) for name in names}
    if count >= len(names):
        given = {name: max(1, share) for name, share in given.items()}
    by_rest = sorted(names, key=lambda name: (given[name] - exact[name], name))
    while sum(given.values()) < count:
        name = by_rest.pop(0)
        given[name] += 1
        by_rest.append(name)
    while sum(given.values()) > count:
        largest = max(names, key=lambda name: (given[name] - exact[name] if given[name] > 1 else -count, name))
        given[largest] -= 1
    return given


def queue_of(seed, path, places):
    """All places of a file in the order in which a seed takes them: one a line first, then further ones."""
    chance = random.Random(f"{seed}:{path}")
    rounds = []
    by_line = {}
    for place in places:
        by_line.setdefault(place.line, []).append(place)
    lines = sorted(by_line)
    while lines:
        chance.shuffle(lines)
        for line in lines:
            kinds = sorted({place.kind for place in by_line[line]})
            kind = chance.choice(kinds)
            place = chance.choice([place for place in by_line[line] if place.kind == kind])
            by_line[line].remove(place)
            rounds.append(place)
        lines = sorted(line for line in lines if by_line[line])
    return rounds
