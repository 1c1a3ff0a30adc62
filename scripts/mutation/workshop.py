"""A copy of the tree with a build of its own, in which faults are put in one at a time and the tests run."""

import filecmp
import json
import os
import re
import shutil
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

NOT_COPIED = {'build', 'out', '.git'}
# Warnings that would throw away what a person might well have written meaning it.
FLAGS = '-O1 -Wno-parentheses -Wno-unused -Wno-implicit-fallthrough'
SLOW_TEST = 0.3            # seconds; such tests run behind all others
MEMORY = 2 << 30           # bytes a test program may take
OUTPUT = 20 << 20          # bytes it may write
BUILD_LIMIT = 300          # seconds
LEAST_LIMIT = 5            # seconds of processor time


class Broken(Exception):
    """The tree without a fault does not build or does not pass."""


@dataclass
class Suite:
    """A test program."""
    name: str
    folder: str
    program: Path
    others: list    # programs that it starts


@dataclass
class Run:
    """Some tests of a suite, as one process."""
    suite: Suite
    tests: str      # a filter
    seconds: float  # that it takes without a fault


@dataclass
class Verdict:
    outcome: str    # noticed, unnoticed or not compiling
    by: str = ''
    seconds: float = 0.0


def files_below(root):
    for folder, folders, names in os.walk(root):
        if Path(folder) == root:
            folders[:] = [name for name in folders if name not in NOT_COPIED]
        for name in names:
            path = Path(folder, name)
            if not path.is_symlink():
                yield path.relative_to(root)


def mirror(source, target):
    """Makes target's files those of source; only what differs is written, and so gets a new time."""
    wanted = set(files_below(source))
    for path in set(files_below(target)) - wanted if target.exists() else ():
        (target / path).unlink()
    for path in wanted:
        to = target / path
        if not to.exists() or not filecmp.cmp(source / path, to, shallow=False):
            to.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source / path, to)
            shutil.copymode(source / path, to)


def stamps(root):
    """Time and size of each file below a folder."""
    result = {}
    for folder, _, names in os.walk(root):
        for name in names:
            state = os.lstat(os.path.join(folder, name))
            result[os.path.relpath(os.path.join(folder, name), root)] = (state.st_mtime_ns, state.st_size)
    return result


def common_depth(a, b):
    return len(os.path.commonprefix([a.split('/'), b.split('/')]))


class Workshop:
    def __init__(self, project, root):
        self.project, self.root = project, root
        self.tree, self.build_folder, self.pristine = root / 'tree', root / 'build', root / 'pristine'
        self.scratch = root / 'scratch'
        self.suites, self.runs, self.clean = [], [], {}

    def prepare(self):
        """Builds everything without a fault and measures the tests. Raises Broken."""
        mirror(self.project, self.tree)
        query = self.build_folder / '.cmake/api/v1/query/codemodel-v2'
        query.parent.mkdir(parents=True, exist_ok=True)
        query.touch()
        # The tests are found when they run: a fault that ends a program at its start is the tests' affair.
        self._do('configuring', ['cmake', '-S', self.tree, '-B', self.build_folder, '-G', 'Ninja',
                                 '-DCMAKE_BUILD_TYPE=', f'-DCMAKE_CXX_FLAGS={FLAGS}', '-DKAVR6_BENCH=OFF',
                                 '-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST'])
        self.suites = self._logic_suites()
        self._do('building', self._build_command(*[suite.name for suite in self.suites]))
        self.runs = [run for suite in self.suites for run in self._measured(suite)]
        if not self.runs:
            raise Broken('there are no tests')
        shutil.rmtree(self.pristine, ignore_errors=True)
        shutil.copytree(self.build_folder, self.pristine, symlinks=True)
        self.clean = stamps(self.build_folder)

    def judge(self, fault):
        """Puts the fault in, runs the tests that it can reach, takes it out again."""
        began = time.monotonic()
        path = self.tree / fault.path
        state, text = path.stat(), path.read_text(encoding='utf-8')
        path.write_text(fault.apply(text), encoding='utf-8')
        try:
            verdict = self._judge(fault)
        finally:
            path.write_text(text, encoding='utf-8')
            os.utime(path, ns=(state.st_atime_ns, state.st_mtime_ns))
            self._restore_build()
        verdict.seconds = time.monotonic() - began
        return verdict

    def _judge(self, fault):
        # The tests of the same folder first, slow tests last; what is not needed is not even built.
        def order(run):
            depth = common_depth(run.suite.folder.split('/', 1)[-1], fault.path)
            return run.seconds > 2 * SLOW_TEST and run.tests != '*', -depth, run.seconds
        built = set()
        for run in sorted(self.runs, key=order):
            if run.suite.name not in built:
                if self._call(self._build_command(run.suite.name), BUILD_LIMIT) != 0:
                    return Verdict('not compiling')
                built.add(run.suite.name)
            if all(self._untouched(program) for program in [run.suite.program, *run.suite.others]):
                continue
            how = self._how_it_failed(run)
            if how:
                return Verdict('noticed', f'{run.suite.name}: {how}')
        return Verdict('unnoticed')

    def _how_it_failed(self, run):
        limit = LEAST_LIMIT + 5 * run.seconds
        code = self._call([*self._limits(limit), run.suite.program, '--gtest_fail_fast', '--gtest_brief=1',
                           f'--gtest_filter={run.tests}'], 4 * limit)
        if code == 0:
            return ''
        output = (self.root / 'output').read_text(encoding='utf-8', errors='replace')
        failed = re.search(r'^\[  FAILED  \] ([\w./]+)', output, re.MULTILINE)
        return failed.group(1) if failed else 'endless' if code in (None, -9, -24) else 'crashed'

    def _measured(self, suite):
        report = self.root / 'times.json'
        report.unlink(missing_ok=True)
        began = time.monotonic()
        self._do(f'running {suite.name}', [suite.program, f'--gtest_output=json:{report}'])
        tests = {f'{group["name"]}.{test["name"]}': float(test.get('time', '0s')[:-1])
                 for group in json.loads(report.read_text())['testsuites'] for test in group['testsuite']}
        slow = {name: seconds for name, seconds in tests.items() if seconds > SLOW_TEST}
        if len(tests) > len(slow):
            rest = time.monotonic() - began - sum(slow.values())
            yield Run(suite, '*' if not slow else '-' + ':'.join(slow), rest)
        for name, seconds in slow.items():
            yield Run(suite, name, seconds)

    def _logic_suites(self):
        """The programs *_tests of CMake's own list that do without the adapters."""
        reply = self.build_folder / '.cmake/api/v1/reply'
        index = json.loads(sorted(reply.glob('index-*.json'))[-1].read_text())
        model = json.loads((reply / index['reply']['codemodel-v2']['jsonFile']).read_text())
        targets = {}
        for entry in model['configurations'][0]['targets']:
            target = json.loads((reply / entry['jsonFile']).read_text())
            targets[target['id']] = target

        def adapters(target):
            folders = {targets[used['id']]['paths']['source'].split('/')[0] for used in target.get('dependencies', ())
                       if used['id'] in targets}
            return 'adapters' in folders or target['paths']['source'].startswith('tests/adapters')

        def program(target):
            return self.build_folder / target['artifacts'][0]['path']

        def started(target):
            used = [targets[entry['id']] for entry in target.get('dependencies', ()) if entry['id'] in targets]
            return [program(other) for other in used if other['type'] == 'EXECUTABLE']

        return [Suite(target['name'], target['paths']['source'], program(target), started(target))
                for target in targets.values()
                if target['type'] == 'EXECUTABLE' and target['name'].endswith('_tests') and not adapters(target)]

    def _untouched(self, program):
        return self.clean.get(os.path.relpath(program, self.build_folder)) == \
            (program.stat().st_mtime_ns, program.stat().st_size)

    def _restore_build(self):
        now = stamps(self.build_folder)
        for path in now.keys() - self.clean.keys():
            (self.build_folder / path).unlink()
        for path, stamp in self.clean.items():
            if now.get(path) != stamp:
                shutil.copy2(self.pristine / path, self.build_folder / path, follow_symlinks=False)

    def _build_command(self, *targets):
        return ['cmake', '--build', self.build_folder, '-j1', '--target', *targets]

    @staticmethod
    def _limits(seconds):
        return ['prlimit', f'--cpu={int(seconds) + 1}', f'--as={MEMORY}', f'--fsize={OUTPUT}', '--core=0']

    def _do(self, what, command):
        if self._call(command, 3600) != 0:
            tail = (self.root / 'output').read_text(encoding='utf-8', errors='replace').splitlines()[-30:]
            raise Broken('\n'.join([*tail, f'{what} failed without any fault']))

    def _call(self, command, limit):
        """Runs a program to its end; its exit code, or None when it was ended because it took too long."""
        self.scratch.mkdir(parents=True, exist_ok=True)
        with open(self.root / 'output', 'wb') as output, \
                subprocess.Popen([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=output,
                                 stderr=subprocess.STDOUT, cwd=self.scratch, start_new_session=True) as process:
            try:
                return process.wait(limit)
            except BaseException as error:
                os.killpg(process.pid, 9)
                if isinstance(error, subprocess.TimeoutExpired):
                    return None
                raise
