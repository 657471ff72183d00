#!/usr/bin/env python3
"""Breaks the sources on purpose, one place at a time, and says whether the tests notice.

    tools/mutate.py list --seed 15 --count 40 --under src/finders,src/solving > mutations.json
    tools/mutate.py run mutations.json --build build/dev --target core_tests --tests='-Slow.*' --out before.tsv

`list` picks places in functions at random: the same seed and the same sources give the same list. It holds spare
mutations, as not each compiles; `run` stops when enough have. A list stays good as long as the sources stay as they
are: the tests may change, and `run --against before.tsv` says which mutations they no longer notice.

A mutation is red when a test fails, crashes or doesn't end, and alive when all tests pass: either nobody can see the
difference, or a test is missing.
"""
import argparse
import json
import os
import random
import re
import resource
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
COLOURS = ("white", "yellow", "red", "green", "cyan", "magenta", "lightblue", "orange")
NOTCALLED = {"if", "for", "while", "switch", "return", "throw", "sizeof", "static_assert", "catch", "defined"}
OTHER = {
    "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="],
    "+": ["-"], "-": ["+"], "+=": ["-="], "-=": ["+="], "&&": ["||"], "||": ["&&"],
    "return true": ["return false"], "return false": ["return true"],
    "break": ["continue"], "continue": ["break"],
}
MEMORY = 4 << 30  # a mutant that grows for ever is to end before the machine does
OPENING, CLOSING = "([{", ")]}"


# ---- reading C++ ------------------------------------------------------------------------------------------

NOCODE = re.compile(
    r"""//[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:[^\n]|\\\n)* | R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"
        | "(?:[^"\\\n]|\\.)*" | (?<!\w)'(?:[^'\\\n]|\\.)*'""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)


def masked(text):
    """The code alone, each character where it was: no comments, texts and directives."""
    return NOCODE.sub(lambda found: re.sub(r"[^\n]", "_" if found[0][0] in "\"'R" else " ", found[0]), text)


def closing(code, start):
    """Where the bracket at `start` is closed."""
    depth = 0
    for i in range(start, len(code)):
        if code[i] in OPENING:
            depth += 1
        elif code[i] in CLOSING:
            depth -= 1
            if depth == 0:
                return i
    raise ValueError("a bracket is never closed")


def outermost(code):
    """The code with everything in brackets blanked, each character where it was."""
    depth, kept = 0, []
    for char in code:
        depth -= char in CLOSING
        kept.append(" " if depth else char)
        depth += char in OPENING
    return "".join(kept)


def opens(head):
    """What a brace after `head` begins: a scope, a function, or something without statements."""
    head = re.sub(r"\b(public|private|protected)\s*:", "", head).strip()
    if re.match(r"(template\s*<.*?>\s*)?(inline\s+)?(namespace|class|struct|union)\b", head, re.DOTALL):
        return "scope"
    bare = re.sub(r"operator\s*[^\s\w(]+", "operator", outermost(head))
    if "=" in re.sub(r"template\s*<.*?>", "", bare) or "(" not in bare or head.startswith("enum"):
        return "data"
    after = r"([)}]|\b(const|noexcept|override|final)|->\s*[\w:&*<>, ]+)\s*$"
    return "function" if re.search(after, bare) else "data"


def functions(code):
    """(start, end) of each function's body."""
    i, head = 0, 0
    while i < len(code):
        if code[i] == "(":
            i = closing(code, i)
        elif code[i] in ";}":
            head = i + 1
        elif code[i] == "{":
            kind = opens(code[head:i])
            if kind == "scope":
                head = i + 1
            else:
                end = closing(code, i)
                if kind == "function":
                    yield i + 1, end
                    head = end + 1
                i = end
        i += 1


# ---- places to break: (kind, start, end, what may stand there instead, @ for what stands there) -------------


def operators(code):
    for kind, signs in (("comparison", "<=|>=|==|!=|<|>"), ("sign", r"\+=|-=|\+|-"), ("junction", r"&&|\|\|")):
        for found in re.finditer(rf"(?<=\s)({signs})(?=\s)", code):
            yield kind, *found.span(), OTHER[found[0]]
    for kind, words in (("answer", "return true|return false"), ("jump", "break|continue")):
        for found in re.finditer(rf"\b({words})(?=;)", code):
            yield kind, *found.span(), OTHER[found[0]]


def constants(code):
    for found in re.finditer(r"(?<![\w.'])\d+(?=[uUlL]*(?![\w.']))", code):
        before, after = code[: found.start()], code[found.end() :]
        size = re.search(r"\b(int|bool|char|unsigned|auto|\w+>)\s+\w+\[$", before)
        if not size and after[:1] != ">" and before[-1:] != "<":
            number = int(found[0])
            yield "constant", *found.span(), [str(near) for near in (number - 1, number + 1) if near >= 0]


def colours(code):
    for found in re.finditer(rf"\b({'|'.join(COLOURS)})\b", code):
        yield "colour", *found.span(), [colour for colour in COLOURS if colour != found[0]]


def conditions(code):
    for found in re.finditer(r"\b(?:if|while)\s*(?:constexpr\s*)?\(", code):
        end = closing(code, found.end() - 1)
        bare = outermost(code[found.end() : end])
        start = found.end() + bare.rfind(";") + 1
        start += len(code[start:end]) - len(code[start:end].lstrip())
        if not re.search(r"[^=!<>]=[^=]", bare[start - found.end() :]):  # no declaration
            yield "condition", start, end, ["!(@)"]


def begins_statement(code, start):
    before = code[:start].rstrip()
    if before[-1:] in ("", "{", "}", ";") or re.search(r"\belse$", before):
        return True
    if not before.endswith(")"):
        return False
    depth = 0
    for i in range(len(before) - 1, -1, -1):
        depth += (before[i] in CLOSING) - (before[i] in OPENING)
        if depth == 0:
            return re.search(r"\b(if|for|while)\s*(constexpr\s*)?$", before[:i]) is not None
    return False


def calls(code):
    for found in re.finditer(r"(?<![\w.:>])\w+(?:(?:::|\.|->)\w+)*(?:<[^<>;]*>)?\(", code):
        if re.match(r"\w+", found[0])[0] in NOTCALLED or not begins_statement(code, found.start()):
            continue
        bare = outermost(code[found.start() :])
        length = bare.find(";") + 1
        statement = bare[:length]
        if re.search(r"\)\s*;$", statement) and "=" not in statement and "?" not in statement:
            yield "call", found.start(), found.start() + length, ["{}"]


def places(text):
    code = masked(text)
    for start, end in functions(code):
        body = code[start:end]
        for found in re.finditer(r"\bstatic_assert\s*\(", body):
            stop = closing(body, found.end() - 1)
            body = body[: found.start()] + re.sub(r"[^\n]", " ", body[found.start() : stop]) + body[stop:]
        for find in (operators, constants, colours, conditions, calls):
            for kind, first, last, instead in find(body):
                first, last = start + first, start + last
                yield kind, first, last, [way.replace("@", text[first:last]) for way in instead]


# ---- list -------------------------------------------------------------------------------------------------


def mutation(file, text, place, chance):
    kind, start, end, instead = place
    after = chance.choice(instead)
    first = text.rfind("\n", 0, start) + 1
    last = text.find("\n", end)
    return {
        "file": file,
        "line": text.count("\n", 0, first) + 1,
        "kind": kind,
        "before": text[first:last],
        "after": text[first:start] + after + text[end:last],
    }


def pick(folders, wanted, chance):
    """Each kind as often as any other, as long as it lasts, and no line twice."""
    texts, kinds = {}, {}
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                file = path.relative_to(ROOT).as_posix()
                texts[file] = path.read_bytes().decode()
                for place in places(texts[file]):
                    kinds.setdefault(place[0], []).append((file, place))
    picked, seen = [], set()
    while kinds and len(picked) < wanted:
        kind = chance.choice(sorted(kinds))
        file, place = kinds[kind].pop(chance.randrange(len(kinds[kind])))
        if not kinds[kind]:
            del kinds[kind]
        made = mutation(file, texts[file], place, chance)
        if (file, made["line"]) not in seen:
            seen.add((file, made["line"]))
            picked.append({"number": len(picked) + 1, **made})
    return picked


def list_mutations(args):
    picked = pick(args.under.split(","), args.count + args.spare, random.Random(args.seed))
    if len(picked) < args.count:
        sys.exit(f"mutate: only {len(picked)} places in {args.under}")
    rows = ",\n".join(json.dumps(row, ensure_ascii=False) for row in picked)
    print(f'{{"seed": {args.seed}, "count": {args.count}, "mutations": [\n{rows}\n]}}')


# ---- a broken source, and the sound one again -----------------------------------------------------------------


class Broken:
    """The source stays broken inside of `with`. The journal mends it after a run that could do nothing more."""

    def __init__(self, mutation, journal):
        self.path = ROOT / mutation["file"]
        self.sound = self.path.read_bytes()
        self.broken = mutate(self.sound.decode(), mutation).encode()
        self.journal = journal

    def __enter__(self):
        journaled = {"path": str(self.path), "sound": self.sound.decode(), "broken": self.broken.decode()}
        self.journal.write_text(json.dumps(journaled), encoding="utf-8")
        self.path.write_bytes(self.broken)

    def __exit__(self, *_):
        self.path.write_bytes(self.sound)
        self.journal.unlink()


def mend(journal):
    if not journal.exists():
        return
    left = json.loads(journal.read_text(encoding="utf-8"))
    path = Path(left["path"])
    if path.read_bytes() == left["broken"].encode():
        path.write_bytes(left["sound"].encode())
        print(f"mutate: mended {path}, which an earlier run left broken", file=sys.stderr)
    journal.unlink()


def mutate(text, mutation):
    lines = text.split("\n")
    before = mutation["before"].split("\n")
    first = mutation["line"] - 1
    if lines[first : first + len(before)] != before:
        sys.exit(f"mutate: {mutation['file']}:{mutation['line']} is not the source that the list was made of")
    lines[first : first + len(before)] = mutation["after"].split("\n")
    return "\n".join(lines)


# ---- run --------------------------------------------------------------------------------------------------


class Tests:
    def __init__(self, args):
        self.build = (ROOT / args.build).resolve()
        self.targets = args.target.split(",")
        self.tests = args.tests
        self.ctest = args.ctest
        self.seconds = None  # of processor time; a machine may be busy with other things

    def compile(self):
        """What is wrong: nothing, "no build", or that the tests no longer start, for which they are counted."""
        made = subprocess.run(
            ["cmake", "--build", self.build, "-j1", "--target", *self.targets],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
        )
        if made.returncode == 0:
            return ""
        self.said = made.stdout
        return "no build" if "error:" in made.stdout else "no start"

    def commands(self):
        if self.ctest:
            return [["ctest", "--test-dir", self.build, "-R", self.tests or "."]]
        binaries = [found for name in self.targets for found in sorted(self.build.rglob(name)) if is_program(found)]
        if len(binaries) < len(self.targets):
            sys.exit(f"mutate: no program {self.targets} in {self.build}")
        return [[binary, "--gtest_color=no", f"--gtest_filter={self.tests or '*'}"] for binary in binaries]

    def run(self):
        """The tests that are red."""
        return [name for command in self.commands() for name in self.run_one(command)]

    def run_one(self, command):
        with tempfile.TemporaryDirectory(prefix="mutate-") as home:
            env = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
            env.update(HOME=home, TMPDIR=home)
            env.setdefault("RC_PARAMS", "seed=1")  # the same random boards for each mutation
            said = Path(home, "said")
            with said.open("w") as out:
                process = subprocess.Popen(
                    command, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                    cwd=self.build, env=env, start_new_session=True, preexec_fn=self.limit,
                )
                try:
                    code = process.wait(10 * self.seconds if self.seconds else None)
                except subprocess.TimeoutExpired:
                    code = -signal.SIGXCPU
                finally:
                    kill(process)
            return red(said.read_text(errors="replace"), code)

    def limit(self):
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        if self.seconds:
            resource.setrlimit(resource.RLIMIT_CPU, (self.seconds, self.seconds + 1))


def is_program(path):
    return path.is_file() and os.access(path, os.X_OK)


def kill(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def red(said, code):
    """The red tests, of what gtest or ctest said, and how the program ended."""
    failed = re.findall(r"^\[  FAILED  \] ([^\s,]*[^\s\d,][^\s,]*)(?:,| \(|$)", said, re.MULTILINE)
    failed += re.findall(r"^\t *\d+ - (.+?) \([^()]+\)$", said, re.MULTILINE)
    failed = list(dict.fromkeys(failed))
    if code and not ("FAILED TEST" in said or "tests failed out of" in said):
        begun = re.findall(r"^\[ RUN      \] (\S+)", said, re.MULTILINE)
        how = "endless" if code in (-signal.SIGXCPU, -signal.SIGKILL) else "crash"
        failed.append(f"{begun[-1] if begun else 'start'} ({how})")
    return failed


def row(mutation, verdict, failed):
    where = f"{mutation['file']}:{mutation['line']}"
    before, after = (" ".join(mutation[which].split()) for which in ("before", "after"))
    some = " ".join(failed[:5]) + (" ..." if len(failed) > 5 else "")
    columns = (mutation["number"], verdict, len(failed), where, mutation["kind"], before, after, some)
    return "\t".join(map(str, columns))


def judge(mutation, tests, journal):
    with Broken(mutation, journal):
        wrong = tests.compile()
        if wrong == "no build":
            return wrong, []
        failed = ["start (crash)"] if wrong else tests.run()
    return ("red" if failed else "alive"), failed


def baseline(tests):
    if tests.compile():
        sys.exit(tests.said + "mutate: the sound sources don't build")
    used = -resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    failed = tests.run()
    if failed:
        sys.exit(f"mutate: red before anything was broken: {' '.join(failed)}")
    used += resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    tests.seconds = int(2 * used) + 5


def read_verdicts(path):
    rows = (line.split("\t") for line in Path(path).read_text(encoding="utf-8").splitlines() if line[:1].isdigit())
    return {int(columns[0]): columns[1] for columns in rows}


def run_mutations(args):
    listed = json.loads(Path(args.list).read_text(encoding="utf-8"))
    mutations = listed["mutations"]
    wanted = listed["count"]
    if args.only:
        only = {int(number) for number in args.only.split(",")}
        mutations = [mutation for mutation in mutations if mutation["number"] in only]
    tests = Tests(args)
    journal = tests.build / "mutated.json"
    mend(journal)
    for mutation in mutations:
        mutate((ROOT / mutation["file"]).read_bytes().decode(), mutation)
    earlier = read_verdicts(args.against) if args.against else {}
    out = open(args.out, "w", encoding="utf-8") if args.out else None

    def tell(line):
        for to in filter(None, (sys.stdout, out)):
            print(line, file=to, flush=True)

    verdicts = {}
    started = time.monotonic()
    baseline(tests)
    try:
        for mutation in mutations:
            verdict, failed = judge(mutation, tests, journal)
            verdicts[mutation["number"]] = verdict
            tell(row(mutation, verdict, failed))
            if sum(verdict != "no build" for verdict in verdicts.values()) == wanted:
                break
    finally:
        tests.compile()  # the build is that of the sound sources again
    count = list(verdicts.values()).count
    tell(f"# {count('red')} red, {count('alive')} alive, {count('no build')} didn't compile; "
         f"{time.monotonic() - started:.0f} s")
    lost = [number for number, verdict in verdicts.items() if verdict == "alive" and earlier.get(number) == "red"]
    if args.against:
        tell(f"# red in {args.against} and alive now: {' '.join(map(str, lost)) or 'none'}")
    return 1 if lost else 0


# ---- command line -----------------------------------------------------------------------------------------


def parse():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(required=True, metavar="list | run")

    lister = commands.add_parser("list", help="pick mutations; the list goes to standard output")
    lister.add_argument("--seed", type=int, default=1)
    lister.add_argument("--count", type=int, default=40, help="how many that compile are wanted")
    lister.add_argument("--spare", type=int, help="how many more are listed (default: as many as wanted)")
    lister.add_argument("--under", default="src/finders,src/solving,src/generation", help="folders, with commas")
    lister.set_defaults(act=list_mutations)

    runner = commands.add_parser("run", help="break, build and test, for each mutation of a list")
    runner.add_argument("list")
    runner.add_argument("--build", default="build/dev", help="a configured build folder")
    runner.add_argument("--target", default="core_tests", help="the test programs to build, with commas")
    runner.add_argument("--tests", help="which tests: a filter of gtest; with --ctest a regular expression of ctest")
    runner.add_argument("--ctest", action="store_true", help="run the tests by ctest, not the programs themselves")
    runner.add_argument("--only", metavar="NUMBERS", help="these mutations alone, with commas")
    runner.add_argument("--out", metavar="FILE", help="write the rows there, too")
    runner.add_argument("--against", metavar="FILE", help="fail when a mutation is alive that was red there")
    runner.set_defaults(act=run_mutations)
    args = parser.parse_args()
    if getattr(args, "spare", 0) is None:
        args.spare = args.count
    return args


def main():
    args = parse()
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda number, _: sys.exit(128 + number))
    try:
        sys.exit(args.act(args))
    except KeyboardInterrupt:
        sys.exit(130)


main()
