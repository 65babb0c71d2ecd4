"""Splits a C++ header into tokens, keeping what the reflection step needs:
line numbers, the comment just before each token, the preprocessor
condition each token sits under, and the #include lines."""

from dataclasses import dataclass, field

from .errors import HeaderError

# Conditions that may wrap reflected members; their code is generated under the same guard.
KNOWN_CONDITIONS = ("WITH_EDITORONLY_DATA", "WITH_EDITOR")
# "#if CPP" is C++ only and skipped, as the engine's header tool does; "#if !CPP" is read (its #else skipped).
SKIPPED = "<skipped>"
CPP_ONLY = ("CPP", "CPP == 1")
NOT_CPP = ("!CPP", "CPP == 0")

PUNCTUATORS = ("::", "->", "...", "<<=", ">>=", "&&", "||", "==", "!=", "<=", ">=", "++", "--",
               "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=")


@dataclass
class Token:
    kind: str            # "id", "num", "str", "chr" or "punct"
    text: str
    line: int
    comment: str = ""    # comment block directly before this token, raw
    conditions: tuple = ()

    def is_id(self, text=None):
        return self.kind == "id" and (text is None or self.text == text)

    def is_punct(self, text):
        return self.kind == "punct" and self.text == text


@dataclass
class Include:
    path: str
    line: int


@dataclass
class TokenizedHeader:
    tokens: list = field(default_factory=list)
    includes: list = field(default_factory=list)


class _Scanner:
    def __init__(self, text, file_name):
        self.text = text
        self.file_name = file_name
        self.pos = 0
        self.line = 1
        self.result = TokenizedHeader()
        self.pending_comment = ""
        self.pending_comment_is_line = False
        self.condition_stack = []   # one entry per open #if: the known condition or None
        self.at_line_start = True
        self.line_has_token = False

    def error(self, message, line=None):
        raise HeaderError(self.file_name, line or self.line, message)

    def peek(self, offset=0):
        index = self.pos + offset
        return self.text[index] if index < len(self.text) else ""

    def active_conditions(self):
        return tuple(c for c in self.condition_stack if c and c not in (SKIPPED, "!" + SKIPPED))

    def skipping(self):
        return SKIPPED in self.condition_stack

    def run(self):
        text = self.text
        while self.pos < len(text):
            ch = text[self.pos]
            if ch == "\n":
                self.line += 1
                self.pos += 1
                self.at_line_start = True
                self.line_has_token = False
                continue
            if ch in " \t\r\f\v":
                self.pos += 1
                continue
            if ch == "\\" and self.peek(1) == "\n":
                self.pos += 2
                self.line += 1
                continue
            if ch == "#" and self.at_line_start:
                self.read_directive()
                continue
            self.at_line_start = False
            if ch == "/" and self.peek(1) == "/":
                self.read_line_comment()
            elif ch == "/" and self.peek(1) == "*":
                self.read_block_comment()
            elif ch.isalpha() or ch == "_":
                self.read_identifier_or_prefixed_literal()
            elif ch.isdigit() or (ch == "." and self.peek(1).isdigit()):
                self.read_number()
            elif ch == '"':
                self.read_string(self.pos, "")
            elif ch == "'":
                self.read_char()
            else:
                self.read_punct()
        if self.condition_stack:
            self.error("unterminated #if block at end of file")
        return self.result

    def add(self, kind, text, line):
        if self.skipping():
            self.pending_comment = ""
            return
        self.result.tokens.append(Token(kind, text, line, self.pending_comment, self.active_conditions()))
        self.pending_comment = ""
        self.pending_comment_is_line = False
        self.line_has_token = True

    def read_line_comment(self):
        start = self.pos
        end = self.text.find("\n", start)
        end = len(self.text) if end < 0 else end
        body = self.text[start:end]
        self.pos = end
        if self.line_has_token:
            return  # a comment after code on its line describes that code, not what follows
        # Consecutive // lines form one block, as one comment above a declaration.
        if self.pending_comment_is_line and self.pending_comment:
            self.pending_comment += "\n" + body
        else:
            self.pending_comment = body
        self.pending_comment_is_line = True

    def read_block_comment(self):
        start = self.pos
        end = self.text.find("*/", start + 2)
        if end < 0:
            self.error("unterminated comment")
        body = self.text[start:end + 2]
        self.line += body.count("\n")
        self.pos = end + 2
        if self.line_has_token:
            return
        self.pending_comment = body
        self.pending_comment_is_line = False

    def read_identifier_or_prefixed_literal(self):
        start = self.pos
        while self.pos < len(self.text) and (self.text[self.pos].isalnum() or self.text[self.pos] == "_"):
            self.pos += 1
        word = self.text[start:self.pos]
        if self.peek() == '"' and word in ("L", "u", "U", "u8", "R", "LR", "uR", "UR", "u8R"):
            self.read_string(start, word)
            return
        self.add("id", word, self.line)

    def read_number(self):
        start = self.pos
        while self.pos < len(self.text):
            ch = self.text[self.pos]
            if ch.isalnum() or ch in "._'":
                self.pos += 1
            elif ch in "+-" and self.text[self.pos - 1] in "eEpP" and not self.text[start:self.pos].startswith(("0x", "0X")):
                self.pos += 1
            else:
                break
        self.add("num", self.text[start:self.pos], self.line)

    def read_string(self, start, prefix):
        line = self.line
        if prefix.endswith("R"):
            open_paren = self.text.find("(", self.pos)
            delimiter = self.text[self.pos + 1:open_paren]
            close = self.text.find(")" + delimiter + '"', open_paren)
            if open_paren < 0 or close < 0:
                self.error("unterminated raw string literal")
            end = close + len(delimiter) + 2
            self.line += self.text.count("\n", self.pos, end)
            self.pos = end
            self.add("str", self.text[start:end], line)
            return
        self.pos += 1
        while True:
            if self.pos >= len(self.text) or self.text[self.pos] == "\n":
                self.error("unterminated string literal", line)
            ch = self.text[self.pos]
            if ch == "\\":
                self.pos += 2
                continue
            self.pos += 1
            if ch == '"':
                break
        self.add("str", self.text[start:self.pos], line)

    def read_char(self):
        start = self.pos
        self.pos += 1
        while self.pos < len(self.text) and self.text[self.pos] != "'":
            if self.text[self.pos] == "\n":
                self.error("unterminated character literal")
            self.pos += 2 if self.text[self.pos] == "\\" else 1
        self.pos += 1
        self.add("chr", self.text[start:self.pos], self.line)

    def read_punct(self):
        for candidate in PUNCTUATORS:
            if self.text.startswith(candidate, self.pos):
                self.pos += len(candidate)
                self.add("punct", candidate, self.line)
                return
        self.add("punct", self.text[self.pos], self.line)
        self.pos += 1

    def read_directive(self):
        line = self.line
        parts = []
        while self.pos < len(self.text):
            end = self.text.find("\n", self.pos)
            end = len(self.text) if end < 0 else end
            segment = self.text[self.pos:end]
            self.pos = end
            if segment.rstrip().endswith("\\"):
                parts.append(segment.rstrip()[:-1])
                self.pos += 1
                self.line += 1
                continue
            parts.append(segment)
            break
        directive = " ".join(parts).strip()[1:].strip()
        # A comment on a directive line is not part of the directive.
        for marker in ("//", "/*"):
            cut = directive.find(marker)
            if cut >= 0:
                directive = directive[:cut].strip()
        keyword, _, rest = directive.partition(" ")
        rest = rest.strip()
        if keyword in ("if", "ifdef", "ifndef"):
            if keyword == "if" and rest in CPP_ONLY:
                self.condition_stack.append(SKIPPED)
            elif keyword == "if" and rest in NOT_CPP:
                self.condition_stack.append("!" + SKIPPED)
            else:
                self.condition_stack.append(rest if keyword == "if" and rest in KNOWN_CONDITIONS else None)
        elif keyword in ("elif", "else"):
            if not self.condition_stack:
                self.error("#%s without #if" % keyword, line)
            top = self.condition_stack[-1]
            if top == SKIPPED and keyword == "else":
                self.condition_stack[-1] = "!" + SKIPPED
            elif top == "!" + SKIPPED:
                self.condition_stack[-1] = SKIPPED
            else:
                self.condition_stack[-1] = None
        elif keyword == "endif":
            if not self.condition_stack:
                self.error("#endif without #if", line)
            self.condition_stack.pop()
        elif keyword == "include":
            if rest.startswith('"') and rest.count('"') >= 2:
                self.result.includes.append(Include(rest[1:rest.index('"', 1)], line))
            elif rest.startswith("<") and ">" in rest:
                self.result.includes.append(Include(rest[1:rest.index(">")], line))
        # A directive separates a comment from what follows it.
        self.pending_comment = ""
        self.pending_comment_is_line = False


def tokenize(text, file_name):
    return _Scanner(text, file_name).run()
