"""All small faults that can be put into a source, one function for each kind."""

import hashlib
import re
from dataclasses import dataclass

from .source import Source

COMPARISONS = {'<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '==', '&&': '||', '||': '&&'}
SIGNS = {'+': '-', '-': '+', '*': '/', '/': '*', '%': '*', '+=': '-=', '-=': '+=', '&': '|', '|': '&',
         '|=': '&=', '&=': '|=', '<<': '>>', '>>': '<<'}
ASSIGNMENTS = {'=', '+=', '-=', '*=', '/=', '|=', '&=', '++', '--'}
NO_CALLS = {'if', 'while', 'for', 'switch', 'return', 'sizeof', 'catch', 'alignof', 'decltype', 'noexcept'}
NO_STATEMENTS = {'if', 'for', 'while', 'switch', 'do', 'else', 'case', 'default', 'static', 'const', 'constexpr', 'auto',
                 'struct', 'class', 'enum', 'union', 'try', 'catch', 'template', 'public', 'private', 'protected'}


@dataclass
class Fault:
    """One replacement in one file. The key stays the same while file, line and replacement do."""
    path: str
    kind: str
    line: int
    start: int
    end: int
    text: str
    before: list = None
    after: list = None
    key: str = ''

    def apply(self, text):
        return text[:self.start] + self.text + text[self.end:]

    def title(self):
        return f'{self.key}  {self.path}:{self.line}  {self.kind}'

    def diff(self):
        return [f'  - {line}' for line in self.before] + [f'  + {line}' for line in self.after]


def decimal_variants(digits, suffix):
    value = int(digits)
    yield f'{value + 1}{suffix}'
    if value > 0:
        yield f'{value - 1}{suffix}'
        yield f'{value * 10}{suffix}'
    if value > 9:
        yield f'{int(digits[0]) % 9 + 1}{digits[1:]}{suffix}'


def number_variants(text):
    text = text.replace("'", '')
    whole = re.fullmatch(r'(0|[1-9]\d*)([uUlL]*)', text)
    if whole:
        yield from decimal_variants(*whole.groups())
    hexadecimal = re.fullmatch(r'0[xX]([0-9a-fA-F]+)([uUlL]*)', text)
    if hexadecimal:
        digits, suffix = hexadecimal.groups()
        for bit in (1, 1 << 4 * (len(digits) - 1)):
            yield f'0x{int(digits, 16) ^ bit:0{len(digits)}X}{suffix}'
    broken = re.fullmatch(r'(\d*)\.(\d*)([fFlL]?)', text)
    if broken:
        before, behind, suffix = broken.groups()
        before = before or '0'
        if behind:
            yield f'{before}.{behind[:-1]}{(int(behind[-1]) + 1) % 10}{suffix}'
        yield f'{int(before) + 1}.{behind or "0"}{suffix}'
        yield f'{before}.{behind or "0"}e1{suffix}'


def constants(source):
    for index, token in enumerate(source.tokens):
        pure = source.word(index - 1) == '=' and source.word(index - 2) in (')', 'const', 'noexcept', 'override')
        if token.kind == 'number' and not pure:
            for variant in number_variants(token.text):
                yield index, index, variant


def exchanged(table):
    def find(source):
        for index, token in enumerate(source.tokens):
            joins = token.text == '+' and 'string' in (source.kind(index - 1), source.kind(index + 1))
            if token.kind == 'mark' and token.text in table and source.spaced(index) and not joins:
                yield index, index, table[token.text]
    return find


def turned_signs(source):
    yield from exchanged(SIGNS)(source)
    for index, token in enumerate(source.tokens):
        before = source.tokens[index - 1] if index else None
        if token.text == '-' and not source.spaced(index) and source.text[token.start - 1] in ' ({[':
            yield index, index, ''
        elif token.text in ('++', '--') and before and before.kind != 'number':
            yield index, index, '--' if token.text == '++' else '++'


def character_variant(c):
    if c.isascii() and c.isalnum():
        return {'z': 'a', 'Z': 'A', '9': '0'}.get(c) or chr(ord(c) + 1)
    return {' ': '_', '.': ','}.get(c, '.') if c.isascii() and c.isprintable() and c not in '"\'\\' else None


def characters(source):
    for index, token in enumerate(source.tokens):
        if token.kind not in ('string', 'char') or token.text.startswith('R'):
            continue
        first = token.text.index(token.text[-1]) + 1
        content = token.text[first:-1]
        # The name of a control is the name of its member; the windows are held against these names elsewhere.
        if token.inside >= 0 and source.word(token.inside - 1) == content:
            continue
        if not content:
            yield index, index, '"x"'
        for part in re.finditer(r'\\(?:x[0-9a-fA-F]+|u[0-9a-fA-F]{4}|[0-7]{1,3}|.)|.', content):
            variant = character_variant(part.group()) if len(part.group()) == 1 else None
            if variant:
                at = first + part.start()
                yield index, index, token.text[:at] + variant + token.text[at + 1:]


def truths(source):
    for index, token in enumerate(source.tokens):
        if token.text in ('true', 'false'):
            yield index, index, 'false' if token.text == 'true' else 'true'


def span(source, first, last):
    return source.text[source.tokens[first].start:source.tokens[last].end]


def turned_conditions(source):
    for index, token in enumerate(source.tokens):
        if token.text in ('if', 'while') and source.word(index + 1) == '(':
            close = source.tokens[index + 1].mate
            parts = source.end_of(index + 2, ';')
            first = (parts if parts >= 0 else index + 1) + 1
            if '=' not in [source.word(at) for at in range(first, close)]:
                yield first, close - 1, f'!({span(source, first, close - 1)})'
        elif token.text == '?':
            colon = source.end_of(index + 1, ':')
            end = colon
            while 0 <= end < len(source.tokens) - 1 and source.word(end + 1) not in (',', ')', ';', '}', ']'):
                following = source.tokens[end + 1]
                end = following.mate if following.text in '([{' else end + 1
            if colon >= 0 and end > colon:
                yield index + 1, end, f'{span(source, colon + 1, end)} : {span(source, index + 1, colon - 1)}'


def is_expression(source, first):
    """Whether the statement that begins here is a call, an assignment or a jump rather than a declaration."""
    word = source.word(first)
    if word in ('break', 'continue', 'throw', '++', '--', '*', 'delete') or word == 'return' and source.word(first + 1) == ';':
        return True
    if source.tokens[first].kind != 'word' or word in NO_STATEMENTS or word == 'return':
        return False
    while source.word(first + 1) == '::':
        first += 2
    return source.word(first + 1) in ASSIGNMENTS | {'.', '->', '(', '['}


def statements(source):
    for index, token in enumerate(source.tokens):
        before = source.tokens[index - 1] if index else None
        around = token.inside
        if around < 0 or source.tokens[around].brace != 'block' or before.text not in (';', '{', '}', ')', 'else', ':'):
            continue
        if before.text == ')' and source.word(before.mate - 1) not in ('if', 'for', 'while', 'switch', 'constexpr'):
            continue
        end = source.end_of(index, ';')
        if end >= 0 and is_expression(source, index) and span(source, index, end).count('\n') < 6:
            yield index, end, '{}'


def item_class(source, first, last):
    token = source.tokens[last]
    if source.word(first) in ('.', '[', '...'):
        return None
    if source.tokens[first].kind == 'word' and first < last and source.tokens[first + 1].kind == 'word':
        return None  # the parameter of a declaration
    if token.kind != 'word':
        return token.text if token.text in (')', '}') else token.kind
    return 'truth' if token.text in ('true', 'false') else 'address' if source.word(first) == '&' else 'word'


def exchanged_neighbours(source):
    for opening, token in enumerate(source.tokens):
        before = source.tokens[opening - 1] if opening else None
        call = token.text == '(' and (before.kind == 'word' or before.text == '>') and before.text not in NO_CALLS
        if not (call and source.context(opening) in ('block', 'list') or token.brace == 'list'):
            continue
        items = source.items(opening)
        for (a, b), (c, d) in zip(items, items[1:]):
            kind = item_class(source, a, b)
            if kind is None or kind != item_class(source, c, d) or not call and kind == 'address':
                continue
            left, right = span(source, a, b), span(source, c, d)
            if left != right:
                yield a, d, right + source.text[source.tokens[b].end:source.tokens[c].start] + left


KINDS = {'constant': constants, 'comparison': exchanged(COMPARISONS), 'sign': turned_signs,
         'statement left out': statements, 'neighbours exchanged': exchanged_neighbours,
         'condition turned': turned_conditions, 'character': characters, 'truth': truths}


def lines_around(text, start, end):
    return text[text.rfind('\n', 0, start) + 1:(text + '\n').index('\n', end)]


def shortened(block):
    lines = [line.strip() for line in block.split('\n')]
    return lines if len(lines) <= 6 else lines[:3] + ['...'] + lines[-2:]


def faults_of(path, text):
    """All faults of a file in the order of its kinds and places, each once."""
    source, seen, numbers = Source(text), set(), {}
    for kind, find in KINDS.items():
        for first, last, replacement in find(source):
            start, end = source.tokens[first].start, source.tokens[last].end
            if any(token.barred for token in source.tokens[first:last + 1]) or (start, end, replacement) in seen:
                continue
            seen.add((start, end, replacement))
            fault = Fault(path, kind, source.line(start), start, end, replacement)
            before = lines_around(text, start, end)
            after = lines_around(fault.apply(text), start, start + len(replacement))
            what = '\0'.join((path, before, after))
            numbers[what] = numbers.get(what, 0) + 1
            fault.key = hashlib.sha1(f'{what}\0{numbers[what]}'.encode()).hexdigest()[:7]
            fault.before, fault.after = shortened(before), shortened(after)
            yield fault
