"""The mutants that make no difference, each with its reason: tests/breaks/survivors.toml."""
import sys
import tomllib

import breaks

TABLE = breaks.TABLES / 'survivors.toml'
NEEDED = {'file', 'old', 'reason'}
OPTIONAL = {'function', 'new'}


def read():
    """The rows: a file, its line without the change and with it, and why nobody can tell them apart. A row without the
    changed line is of every change in the line. Where the line stands more than once, the function is the line that its
    own begins with."""
    rows = tomllib.loads(TABLE.read_text(encoding='utf-8'))['survivor']
    for row in rows:
        if row.keys() - OPTIONAL != NEEDED or not row['reason'].endswith('.'):
            sys.exit(f'{TABLE.name}: a row has {", ".join(sorted(NEEDED))}, and its reason is a sentence: {row}')
    return {(row['file'], row.get('function'), row['old'], row.get('new')) for row in rows}


def without(mutants):
    """The mutants that can make a difference. A row of their sources that fits none of the mutants is refused."""
    rows = read()
    files = {mutant.file for mutant in mutants}
    known = {key for mutant in mutants for key in keys_of(mutant)}
    for file, _, old, new in rows - known:
        if file in files:
            sys.exit(f'{TABLE.name}: no mutant of {file} is {old}  =>  {new or "another line"}')
    return [mutant for mutant in mutants if not rows & keys_of(mutant)]


def keys_of(mutant):
    return {(mutant.file, function, mutant.old, new) for function in (mutant.function, None) for new in (mutant.new, None)}
