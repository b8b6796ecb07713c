"""The places of a source that can be changed, by its syntax tree."""
import dataclasses
import functools
import hashlib
import json
import pathlib
import re
import subprocess
import sys

import breaks

breaks.of_shell('need_packages', 'clang', 'python3-clang-14')
# Where Debian keeps its modules, for a Python that is another one than Debian's.
sys.path.append('/usr/lib/python3/dist-packages')
from clang import cindex

KIND = cindex.CursorKind

OPPOSITES = {'==': '!=', '!=': '==', '<': '<=', '<=': '<', '>': '>=', '>=': '>', '&&': '||', '||': '&&'}
ARITHMETIC = {'+': '-', '-': '+', '*': '/', '/': '*', '%': '*', '<<': '>>', '>>': '<<', '&': '|', '|': '&',
              '+=': '-=', '-=': '+='}
STEPS = {'++': '--', '--': '++'}

# What is no code.
TEXTS = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![\da-fA-F])\'(?:\\.|[^\'\\\n])+\'', re.S)

# What the compiler must know at once, or what is no expression.
CONSTANT = {KIND.ENUM_DECL, KIND.STATIC_ASSERT, KIND.TYPE_ALIAS_DECL, KIND.TYPEDEF_DECL, KIND.TEMPLATE_NON_TYPE_PARAMETER,
            KIND.TEMPLATE_TYPE_PARAMETER, KIND.CXX_UNARY_EXPR, KIND.DECL_REF_EXPR, KIND.TYPE_REF, KIND.TEMPLATE_REF}
DECLARATIONS = {KIND.VAR_DECL, KIND.FIELD_DECL, KIND.PARM_DECL, KIND.FUNCTION_DECL, KIND.CXX_METHOD, KIND.CONSTRUCTOR,
                KIND.FUNCTION_TEMPLATE, KIND.DESTRUCTOR, KIND.CONVERSION_FUNCTION}
BINARY = {KIND.BINARY_OPERATOR, KIND.COMPOUND_ASSIGNMENT_OPERATOR, KIND.CALL_EXPR, KIND.UNEXPOSED_EXPR}
INTEGERS = {cindex.TypeKind.INT, cindex.TypeKind.UINT, cindex.TypeKind.LONG, cindex.TypeKind.ULONG, cindex.TypeKind.LONGLONG,
            cindex.TypeKind.ULONGLONG, cindex.TypeKind.USHORT, cindex.TypeKind.UCHAR}


@dataclasses.dataclass(frozen=True, order=True)
class Change:
    """What takes the place of an expression."""
    start: int
    end: int
    new: str
    is_truth: bool = False      # only its use makes the expression true or false
    is_once: bool = False       # it is worked out once in a program


def without_texts(code):
    """The code with blanks for comments, texts and characters, each place where it was."""
    return TEXTS.sub(lambda found: re.sub(r'[^\n]', ' ', found[0]), code)


class Source:
    """A source of one byte per character, so that the places of the tree are places of the text."""

    def __init__(self, path, arguments):
        self.path = str(path)
        self.text = path.read_text(encoding='latin-1')
        self.code = without_texts(self.text)
        self.arguments = arguments

    def changes(self):
        """All changes, each once, in the order of their places."""
        unit = cindex.Index.create().parse(self.path, args=self.arguments)
        faults = [fault.spelling for fault in unit.diagnostics if fault.severity >= cindex.Diagnostic.Error]
        if faults:
            raise ValueError(f'{self.path}: {faults[0]}')
        own = (cursor for cursor in unit.cursor.get_children() if self.is_own(cursor))
        found = {change for cursor in own for change in self.below(cursor, is_once=False)}
        # To negate an equality is to turn it round.
        turned = {(change.start, change.end) for change in found if re.search(r'(?<= )[=!]=(?= )', change.new)}
        return sorted(change for change in found if not (change.is_truth and (change.start, change.end) in turned))

    def is_own(self, cursor):
        return cursor.location.file is not None and cursor.location.file.name == self.path

    def below(self, cursor, is_once):
        is_once = is_once or (cursor.kind == KIND.VAR_DECL and cursor.storage_class == cindex.StorageClass.STATIC)
        for change in self.at(cursor):
            # One line, so that what the compiler says of a line holds for the source.
            if '//' not in change.new:
                yield dataclasses.replace(change, new=' '.join(change.new.split('\n')), is_once=is_once)
        for child in self.children(cursor):
            yield from self.below(child, is_once)

    def children(self, cursor):
        """The children that are worked out at run time."""
        if cursor.kind in CONSTANT or self.is_constant(cursor):
            return
        name_at = cursor.location.offset
        for place, child in enumerate(cursor.get_children()):
            if cursor.kind in DECLARATIONS and child.extent.start.offset < name_at:
                continue
            if cursor.kind == KIND.MEMBER_REF_EXPR and child.extent.start.offset > name_at:
                continue
            if cursor.kind == KIND.CASE_STMT and place == 0:
                continue
            if cursor.kind in (KIND.VAR_DECL, KIND.FIELD_DECL) and self.is_bound(cursor, child):
                continue
            yield child

    def is_constant(self, cursor):
        """Whether the declaration or the condition is one of the compiler's."""
        if cursor.kind in DECLARATIONS:
            return re.search(r'\bconst(expr|eval|init)\b', self.code[cursor.extent.start.offset:cursor.location.offset])
        return cursor.kind == KIND.IF_STMT and self.code.startswith('if constexpr', cursor.extent.start.offset)

    @staticmethod
    def is_bound(cursor, child):
        """Whether a literal behind the name of a declaration is a count of elements or bits."""
        counted = cursor.type.kind == cindex.TypeKind.CONSTANTARRAY or cursor.is_bitfield()
        return counted and child.kind == KIND.INTEGER_LITERAL

    def at(self, cursor):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        found = self.of_expression(cursor, start, end)
        if cursor.kind in BINARY:
            found = self.of_operation(cursor, start, end)
        elif cursor.kind in (KIND.IF_STMT, KIND.WHILE_STMT, KIND.FOR_STMT, KIND.CONDITIONAL_OPERATOR):
            found = self.of_condition(cursor, start)
        elif cursor.kind == KIND.DECL_REF_EXPR:
            found = self.of_name(cursor, start, end)
        return found

    def of_expression(self, cursor, start, end):
        text = self.text[start:end]
        if cursor.kind == KIND.INTEGER_LITERAL:
            found = re.fullmatch(r"(0x[\da-fA-F']+|\d[\d']*)([uUlLzZ]*)", text)
            if found:
                yield Change(start, end, str(int(found[1].replace("'", ''), 0) + 1) + found[2])
        elif cursor.kind == KIND.CHARACTER_LITERAL and text.endswith("'"):
            yield Change(start, end, text[:text.index("'")] + r"'\x7f'")
        elif cursor.kind == KIND.CXX_BOOL_LITERAL_EXPR and text in ('true', 'false'):
            yield Change(start, end, 'false' if text == 'true' else 'true')
        elif cursor.kind == KIND.UNARY_OPERATOR:
            yield from self.of_step(start, end)
            if text.startswith('!'):
                yield Change(start, end, f'!({text})', is_truth=True)

    def of_step(self, start, end):
        text = self.text[start:end]
        if text[:2] in STEPS:
            yield Change(start, end, STEPS[text[:2]] + text[2:])
        elif text[-2:] in STEPS:
            yield Change(start, end, text[:-2] + STEPS[text[-2:]])

    def of_operation(self, cursor, start, end):
        """An operation is found by what stands between its first and its last operand."""
        operands = sorted((child.extent.start.offset, child.extent.end.offset) for child in cursor.get_children())
        if len(operands) < 2:
            return
        left, right = operands[0][1], operands[-1][0]
        sign = self.code[left:right].strip()
        is_built_in = cursor.kind in (KIND.BINARY_OPERATOR, KIND.COMPOUND_ASSIGNMENT_OPERATOR)
        other = OPPOSITES.get(sign) or (is_built_in and ARITHMETIC.get(sign))
        if other and operands[0][0] == start and operands[-1][1] == end:
            yield Change(start, end, f'{together(self.text[start:left])} {other} {together(self.text[right:end])}')
        elif cursor.kind == KIND.CALL_EXPR and sign == '':
            yield from self.of_step(start, end)

    def of_condition(self, cursor, start):
        place = self.condition_place(cursor, start)
        if place is None:
            return
        text = self.text[slice(*place)]
        children = list(cursor.get_children())
        if any(child.kind in (KIND.VAR_DECL, KIND.DECL_STMT) for child in children[:1]) and cursor.kind != KIND.FOR_STMT:
            return
        if text and ';' not in self.code[slice(*place)]:
            yield Change(*place, f'!({text})', is_truth=True)

    def condition_place(self, cursor, start):
        """Where the condition of a statement or of a choice stands, without its parentheses."""
        if cursor.kind == KIND.CONDITIONAL_OPERATOR:
            condition = next(cursor.get_children())
            return condition.extent.start.offset, condition.extent.end.offset
        opening = self.code.find('(', start)
        if not re.fullmatch(r'(if|while|for)\s*', self.code[start:opening]):
            return None
        first, last = opening + 1, end_of_parenthesis(self.code, opening)
        if cursor.kind == KIND.FOR_STMT:
            parts = self.code[first:last].split(';')
            if len(parts) != 3:
                return None
            first, last = first + len(parts[0]) + 1, last - len(parts[2]) - 1
        part = self.text[first:last]
        return first + len(part) - len(part.lstrip()), last - len(part) + len(part.rstrip())

    def of_name(self, cursor, start, end):
        """A number that the source gives a name, where it is used."""
        named = cursor.referenced
        if named is None or named.kind != KIND.VAR_DECL or not self.is_own(named) or not self.is_constant(named):
            return
        if named.type.get_canonical().kind in INTEGERS and self.text[start:end].endswith(cursor.spelling):
            yield Change(start, end, f'({self.text[start:end]} + 1)')


def together(operand):
    """The operand in parentheses where another operator could take it apart."""
    return operand if re.fullmatch(r'[^\s(]*(\([^\s()]*\))?', operand) else f'({operand})'


def end_of_parenthesis(code, start):
    depth = 0
    for place in range(start, len(code)):
        depth += {'(': 1, ')': -1}.get(code[place], 0)
        if depth == 0:
            return place
    raise ValueError('a parenthesis is not closed')


@functools.cache
def own_headers():
    """Where the parser finds the headers that belong to itself."""
    return subprocess.run(['clang', '-print-resource-dir'], check=True, capture_output=True, text=True).stdout.strip()


def changes_of(path, arguments):
    """The changes of a source. To read it with its headers takes seconds, so what was read once is kept."""
    digest = hashlib.sha256(b'\0'.join([path.read_bytes(), repr(arguments).encode(), pathlib.Path(__file__).read_bytes()]))
    kept = breaks.COPIES / 'changes' / digest.hexdigest()
    if not kept.is_file():
        changes = Source(path, [*arguments, '-resource-dir', own_headers()]).changes()
        kept.parent.mkdir(parents=True, exist_ok=True)
        kept.write_text(json.dumps([dataclasses.astuple(change) for change in changes]))
    return [Change(*fields) for fields in json.loads(kept.read_text())]
