"""A C++ source as tokens with the brackets around them; as much of the language as finding places for faults needs."""

import re
from dataclasses import dataclass

TOKEN = re.compile(r'''
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
  | (?P<string>(?:u8|[uUL])?(?:R"(?P<raw>[^(\s]*)\(.*?\)(?P=raw)"|"(?:[^"\\\n]|\\.)*"))
  | (?P<char>(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\.?\d(?:'?[\w.]|(?<=[eEpP])[+-])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<mark><=>|<<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])
''', re.VERBOSE | re.MULTILINE | re.DOTALL)

# Words before the brace of a function's body.
BODY_WORDS = {')', ']', ':', 'else', 'do', 'try', 'mutable', 'const', 'override', 'noexcept', 'final'}
PAIRS = {'(': ')', '[': ']', '{': '}'}


@dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    mate: int = -1      # index of the other bracket
    inside: int = -1    # index of the bracket that stands open around this token
    brace: str = ''     # of an opening brace: namespace, type, enum, block or list
    barred: bool = False  # no fault goes here


class Source:
    """The tokens of one file without comments and directives."""

    def __init__(self, text):
        self.text = text
        self.tokens = [Token(m.lastgroup if m.lastgroup != 'raw' else 'string', m.group(), m.start(), m.end())
                       for m in TOKEN.finditer(text) if m.lastgroup not in ('comment', 'directive')]
        self._match_brackets()
        self._bar()

    def word(self, index):
        """The text of a token; empty beyond both ends."""
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ''

    def kind(self, index):
        return self.tokens[index].kind if 0 <= index < len(self.tokens) else ''

    def context(self, index):
        """The kind of the innermost brace around a token."""
        around = self.tokens[index].inside
        while around >= 0 and self.tokens[around].text != '{':
            around = self.tokens[around].inside
        return self.tokens[around].brace if around >= 0 else 'namespace'

    def spaced(self, index):
        """Whether white space stands on both sides, as it does beside every operator of two operands."""
        token = self.tokens[index]
        return self.text[token.start - 1:token.start].isspace() and self.text[token.end:token.end + 1].isspace()

    def line(self, offset):
        return self.text.count('\n', 0, offset) + 1

    def items(self, opening):
        """The first and last token of each item between a bracket and its mate, parted by commas."""
        result, first, index, end = [], opening + 1, opening + 1, self.tokens[opening].mate
        while index <= end:
            if index == end or self.tokens[index].text == ',':
                if index > first:
                    result.append((first, index - 1))
                first = index + 1
            elif self.tokens[index].text in PAIRS:
                index = self.tokens[index].mate
            index += 1
        return result

    def end_of(self, index, *marks):
        """The index of the first of these marks behind a token outside further brackets; -1 without one."""
        while 0 <= index < len(self.tokens):
            token = self.tokens[index]
            if token.text in marks:
                return index
            if token.text in PAIRS.values():
                return -1
            index = (token.mate if token.text in PAIRS else index) + 1
        return -1

    def _match_brackets(self):
        open_ = []
        for index, token in enumerate(self.tokens):
            if token.kind == 'mark' and token.text in PAIRS.values() and open_:
                token.mate = open_.pop()
                self.tokens[token.mate].mate = index
            token.inside = open_[-1] if open_ else -1
            if token.kind == 'mark' and token.text in PAIRS:
                if token.text == '{':
                    token.brace = self._brace_kind(index)
                open_.append(index)

    def _brace_kind(self, index):
        before = self.word(index - 1)
        head, at = set(), index - 1
        while at >= 0 and self.word(at) not in (';', '{', '}'):
            head.add(self.word(at))
            at -= 1
        if 'namespace' in head:
            return 'namespace'
        if 'enum' in head:
            return 'enum'
        if head & {'class', 'struct', 'union'} and ')' not in head:
            return 'type'
        if before in BODY_WORDS or before in (';', '{', '}') and self.context(index) == 'block':
            return 'block'
        # The body of a constructor behind the last of its members.
        if before == '}' and self.tokens[self.tokens[index - 1].mate].brace == 'list' and \
                self.context(index) in ('namespace', 'type'):
            return 'block'
        return 'list'

    def _bar(self):
        for index, token in enumerate(self.tokens):
            if token.text in ('static_assert', 'using', 'friend', 'namespace', 'typedef'):
                self._bar_to(index, self.end_of(index, ';', '{') if token.text == 'namespace' else
                             self.end_of(index, ';'))
            elif token.text == 'operator':
                self._bar_to(index, index + 2)
            elif token.text == 'template' and self.word(index + 1) == '<':
                depth, end = 0, index + 1
                while end < len(self.tokens):
                    depth += {'<': 1, '>': -1, '>>': -2}.get(self.word(end), 0)
                    if depth <= 0:
                        break
                    end += 1
                self._bar_to(index, end)

    def _bar_to(self, first, last):
        for token in self.tokens[first:max(last, first) + 1]:
            token.barred = True
