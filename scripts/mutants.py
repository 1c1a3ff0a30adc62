#!/usr/bin/env python3
"""Puts small faults into the logic's sources, one at a time, and tells which of them no test notices."""

import argparse
import os
import random
import sys
import threading
import time
from datetime import date
from pathlib import Path

sys.dont_write_bytecode = True

from mutation.faults import KINDS, faults_of  # noqa: E402
from mutation.workshop import Broken, Workshop  # noqa: E402

PROJECT = Path(__file__).resolve().parent.parent
PLACE = PROJECT / 'build/mutants'
# A key and the reason why no test can or should notice that fault, one a line.
EXPLAINED = PROJECT / 'scripts/mutants-explained.txt'
# Every other folder with a CMakeLists.txt is logic.
NOT_LOGIC = {'adapters', 'apps', 'bench', 'build', 'fuzz', 'headless', 'simulator', 'tests'}


def logic_sources():
    for top in sorted(path.parent for path in PROJECT.glob('*/CMakeLists.txt')):
        for path in sorted(top.rglob('*')):
            relative = path.relative_to(PROJECT)
            if path.suffix in ('.cpp', '.h') and not NOT_LOGIC & set(relative.parts):
                yield relative.as_posix()


def all_faults():
    return [fault for path in logic_sources()
            for fault in faults_of(path, (PROJECT / path).read_text(encoding='utf-8'))]


def drawn(faults, seed):
    """All faults in a random order in which every line comes once before any comes again, and in which the kinds
    that a line offers have the same chance."""
    dice = random.Random(seed)
    lines = {}
    for fault in faults:
        lines.setdefault((fault.path, fault.line), {}).setdefault(fault.kind, []).append(fault)
    order = list(lines.values())
    dice.shuffle(order)
    while order:
        for kinds in order:
            kind = dice.choice([kind for kind in KINDS if kind in kinds])
            yield kinds[kind].pop(dice.randrange(len(kinds[kind])))
            if not kinds[kind]:
                del kinds[kind]
        order = [kinds for kinds in order if kinds]


class Hunt:
    """Workers that take the faults of a list until enough of them have compiled."""

    def __init__(self, faults, count):
        self.faults, self.count = iter(faults), count
        self.open, self.results, self.error = 0, [], None
        self.changed = threading.Condition()

    def run(self, workers):
        threads = [threading.Thread(target=self._work, args=(Workshop(PROJECT, PLACE / str(n + 1)),), daemon=True)
                   for n in range(workers)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if self.error:
            raise self.error

    def _work(self, workshop):
        try:
            workshop.prepare()
            while True:
                fault = self._next()
                if fault is None:
                    return
                self._done(fault, workshop.judge(fault))
        except BaseException as error:  # a thread's error is the run's
            with self.changed:
                self.error = self.error or error
                self.changed.notify_all()

    def _next(self):
        with self.changed:
            # The fault that replaces one that does not compile comes only when that is known, so that the list
            # depends on nothing but the seed.
            self.changed.wait_for(lambda: self.error or self._compiled() >= self.count or
                                  self._compiled() + self.open < self.count)
            if self.error or self._compiled() >= self.count:
                return None
            fault = next(self.faults, None)
            self.open += fault is not None
            return fault

    def _done(self, fault, verdict):
        with self.changed:
            self.open -= 1
            self.results.append((fault, verdict))
            number = f'[{self._compiled():3}/{self.count}]' if verdict.outcome != 'not compiling' else ' ' * 9
            print(f'{number} {verdict.seconds:5.1f} s  {fault.title()}: {verdict.outcome} {verdict.by}', flush=True)
            self.changed.notify_all()

    def _compiled(self):
        return sum(verdict.outcome != 'not compiling' for _, verdict in self.results)


def explanations():
    lines = EXPLAINED.read_text(encoding='utf-8').splitlines() if EXPLAINED.exists() else []
    return dict(line.split(None, 1) for line in lines if line.strip() and not line.startswith('#'))


def report(results, minutes, seed):
    def by_outcome(outcome):
        return sorted((fault for fault, verdict in results if verdict.outcome == outcome),
                      key=lambda fault: (fault.path, fault.line, fault.key))

    unnoticed, reasons = by_outcome('unnoticed'), explanations()
    made = len(unnoticed) + len(by_outcome('noticed'))
    suites = {}
    for _, verdict in results:
        if verdict.outcome == 'noticed':
            suite = verdict.by.split(':')[0]
            suites[suite] = suites.get(suite, 0) + 1
    lines = ['Unnoticed:']
    for fault in unnoticed:
        lines += ['', fault.title(), *fault.diff()]
        if fault.key in reasons:
            lines.append(f'  explained: {reasons[fault.key]}')
    explained = sum(fault.key in reasons for fault in unnoticed)
    lines += ['', f'{"chosen" if seed is None else f"seed {seed}"}: {made} faults in {minutes:.1f} minutes '
                  f'({len(by_outcome("not compiling"))} more did not compile)',
              f'noticed   {made - len(unnoticed):4}  '
              + ', '.join(f'{name} {count}' for name, count in sorted(suites.items(), key=lambda item: -item[1])),
              f'unnoticed {len(unnoticed):4}  {100 * len(unnoticed) / max(made, 1):.0f} %, {explained} of them explained']
    return '\n'.join(lines) + '\n'


def hunt(faults, count, workers, seed=None):
    """Tries the faults and prints what became of them; keeps the list of a drawing, which has a seed."""
    began = time.monotonic()
    work = Hunt(faults, count)
    try:
        work.run(workers)
    except Broken as error:
        sys.exit(f'!! {error}')
    text = report(work.results, (time.monotonic() - began) / 60, seed)
    print(f'\n{text}')
    if seed is None:
        return
    (PLACE / 'unnoticed.txt').write_text(text, encoding='utf-8')
    print(f'The list is also in {(PLACE / "unnoticed.txt").relative_to(PROJECT)}; '
          'look at a fault with "./test mutants --show KEY", or put it in with --apply.')


def chosen(faults, keys):
    by_key = {fault.key: fault for fault in faults}
    missing = [key for key in keys if key not in by_key]
    if missing:
        sys.exit(f'!! the sources have no such fault (any more): {" ".join(missing)}')
    return [by_key[key] for key in keys]


def main():
    parser = argparse.ArgumentParser(prog='./test mutants', description=__doc__)
    parser.add_argument('count', nargs='?', type=int, default=50, metavar='COUNT')
    parser.add_argument('seed', nargs='?', type=int, default=int(date.today().strftime('%Y%m%d')), metavar='SEED',
                        help='without one, the date')
    parser.add_argument('--in', nargs='+', dest='folders', metavar='FOLDER', help='draw from these alone')
    parser.add_argument('--list', action='store_true', help='only name the first COUNT faults, compiling or not')
    parser.add_argument('--show', nargs='+', metavar='KEY', help='show these faults')
    parser.add_argument('--apply', metavar='KEY', help='put this fault into the working tree (git checkout takes it out)')
    parser.add_argument('--run', nargs='+', metavar='KEY', help='try these faults again')
    parser.add_argument('--workers', type=int, default=os.cpu_count() or 1, metavar='N')
    options = parser.parse_args()

    faults = all_faults()
    if options.folders:
        folders = tuple(folder.rstrip('/') + '/' for folder in options.folders)
        faults = [fault for fault in faults if fault.path.startswith(folders)]
    if options.apply:
        fault = chosen(faults, [options.apply])[0]
        path = PROJECT / fault.path
        path.write_text(fault.apply(path.read_text(encoding='utf-8')), encoding='utf-8')
    if options.show or options.apply or options.list:
        listed = chosen(faults, options.show or [options.apply]) if not options.list else \
            [fault for fault, _ in zip(drawn(faults, options.seed), range(options.count))]
        for fault in listed:
            print('\n'.join([fault.title(), *fault.diff()]))
    elif options.run:
        hunt(chosen(faults, options.run), len(options.run), min(options.workers, len(options.run)))
    else:
        print(f'== {options.count} of {len(faults)} faults, seed {options.seed}', flush=True)
        hunt(drawn(faults, options.seed), options.count, options.workers, options.seed)


if __name__ == '__main__':
    main()
