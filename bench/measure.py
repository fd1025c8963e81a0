#!/usr/bin/env python3
"""Measures the print program against its contestants: measure.py --build folder --till program --work folder

The build folder holds the programs, the till's static print program is named by its file; the work folder has the jobs
receipt-<rows>.xml and fitting-<rows>.xml, a script, and the settings of a rehearsal. The contestants of a row run in turn,
round by round and in another order in each, so that whatever else the machine does meets them all alike. Times are wall
times of the whole process. A ratio is the median of the rounds' ratios: a machine that changes its speed between rounds
does not disturb it. The exit status is 1 when a target is missed.
"""

import argparse
import os
import random
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BENCH = Path(__file__).resolve().parent
MEGABYTE = 1_000_000

# Standard output and standard error are nowhere: findings and drawings, and nothing of the others.
SILENT = [(os.POSIX_SPAWN_OPEN, stream, os.devnull, os.O_WRONLY, 0) for stream in (1, 2)]

SMALL, LARGE = 20, 100_000
FEW, MANY = 1_000, 1_000_000
SMALL_ROUNDS, LARGE_ROUNDS, MEMORY_ROUNDS = 400, 31, 3
OWN_ROUNDS = 1200
REHEARSED, REHEARSAL_ROUNDS = 500, 5
KEYS = 20_000


class Contestant:
    def __init__(self, name, *command, status=0):
        self.name = name
        self.status = status
        self.command = [str(argument) for argument in command]
        self.milliseconds = []

    def run(self):
        """The time from the start of the process to its end, in nanoseconds."""
        start = time.perf_counter_ns()
        process = os.posix_spawn(self.command[0], self.command, os.environ, file_actions=SILENT)
        _, status = os.waitpid(process, 0)
        duration = time.perf_counter_ns() - start
        if os.waitstatus_to_exitcode(status) != self.status:
            sys.exit(f"{self.command[0]} failed with exit status {os.waitstatus_to_exitcode(status)}")
        return duration

    @property
    def median(self):
        return statistics.median(self.milliseconds)

    @property
    def noise(self):
        """The interquartile range in percent of the median."""
        lower, _, upper = statistics.quantiles(self.milliseconds, n=4)
        return 100 * (upper - lower) / self.median

    def times(self, other):
        """How many times as long as the other contestant of the same race."""
        return statistics.median(mine / its for mine, its in zip(self.milliseconds, other.milliseconds))

    def above(self, other):
        """How many milliseconds longer than the other contestant of the same race."""
        return statistics.median(mine - its for mine, its in zip(self.milliseconds, other.milliseconds))


def contestants(build, till, job, scripts):
    """The programs that print the job into the folder for scripts, and those that do less than that."""
    return {
        "program": Contestant("zelmora-print", build / "bin/zelmora-print", job, scripts / "program.txt"),
        "earlier": Contestant(
            "zelmora-print of 74d7329", build / "earlier/build/app/zelmora-print", job, scripts / "earlier.txt"
        ),
        "till": Contestant("zelmora-print, static", till, job, scripts / "till.txt"),
        "check": Contestant("zelmora-check", build / "bin/zelmora-check", job),
        # Texts with apostrophes are errors to the register.
        "paper": Contestant("zelmora-paper", build / "bin/zelmora-paper", job.parent / "script.txt", status=1),
        "app": Contestant("empty application", build / "bin/bench-emptyapp"),
        "true": Contestant("true", "/bin/true"),
        "handler": Contestant("reader, empty handler", build / "bin/bench-emptyhandler", job),
        "xsltproc": Contestant(
            "xsltproc", "/usr/bin/xsltproc", "-o", scripts / "xsltproc.txt", BENCH / "receipt.xsl", job
        ),
        "python3": Contestant("python3", sys.executable, BENCH / "receipt.py", job, scripts / "python3.txt"),
    }


def job_file(work, rows):
    return work / f"receipt-{rows}.xml"


def fitting_job_file(work, rows):
    """Of which the check has nothing to say row by row: its findings would be what grows."""
    return work / f"fitting-{rows}.xml"


def progress(text):
    print(text, file=sys.stderr, flush=True)


def race(participants, rounds):
    order = list(participants)
    shuffled = random.Random(rounds)
    for contestant in order:
        contestant.run()  # the first run fills the machine's caches and is not counted
    for _ in range(rounds):
        shuffled.shuffle(order)
        for contestant in order:
            contestant.milliseconds.append(contestant.run() / 1e6)


def folder_for_scripts(work):
    """In memory: what a disk takes to empty the file of the round before is more than what a receipt takes to print."""
    memory = "/dev/shm"
    return tempfile.TemporaryDirectory(dir=memory if os.access(memory, os.W_OK) else work)


def measure_own(build, till, work):
    """What is our own of a receipt's time, above the empty application: now and earlier, in milliseconds. These are
    small differences of large times, so that it takes many rounds, and as few contestants in each as there can be."""
    progress(f"Measuring what is our own of a receipt, {OWN_ROUNDS:,} rounds ...")
    with folder_for_scripts(work) as scripts:
        small = contestants(build, till, job_file(work, SMALL), Path(scripts))
        program, earlier, app = (small[name] for name in ("program", "earlier", "app"))
        race((program, earlier, app), OWN_ROUNDS)
    return program.above(app), earlier.above(app)


def measure_times(build, till, work):
    """The races of the small and of the large job."""
    with folder_for_scripts(work) as scripts:
        progress(f"Measuring one receipt of {SMALL} rows, {SMALL_ROUNDS} rounds ...")
        small = contestants(build, till, job_file(work, SMALL), Path(scripts))
        names = ("program", "till", "check", "paper", "app", "true", "xsltproc", "python3")
        small = {name: small[name] for name in names}
        race(small.values(), SMALL_ROUNDS)

        progress(f"Measuring a job of {LARGE:,} rows, {LARGE_ROUNDS} rounds ...")
        large = contestants(build, till, job_file(work, LARGE), Path(scripts))
        large = {name: large[name] for name in ("program", "till", "check", "handler", "xsltproc")}
        race(large.values(), LARGE_ROUNDS)
    return small, large


def measure_rehearsal(build, work):
    """Jobs a second: each is printed twice, with settings that change its paper, and both papers are compared."""
    progress(f"Rehearsing {REHEARSED} jobs, {REHEARSAL_ROUNDS} rounds ...")
    jobs = [job_file(work, SMALL)] * REHEARSED
    paper = build / "bin/zelmora-paper"
    rehearsal = Contestant(
        "rehearsal", "/usr/bin/taskset", "-c", "0,1", paper, "--rehearse", work / "other.conf", *jobs, status=1
    )
    race([rehearsal], REHEARSAL_ROUNDS)
    return 1000 * REHEARSED / rehearsal.median


def milliseconds(*command):
    """What a program of bench/ says that it has measured in a window that no screen shows."""
    with tempfile.TemporaryDirectory() as runtime:
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": runtime}
        answer = subprocess.run(command, check=True, env=environment, stdout=subprocess.PIPE).stdout
    return [float(word) for word in answer.split()]


def measure_windows(build, work):
    """Until the picture of a receipt's paper follows a change, in its pane and in the whole window; until a file of
    many keys can be used, something is found in it, and a key has changed a setting of it."""
    progress("Changing settings beside their paper ...")
    examples = BENCH.parent / "examples/home/.zelmora/conf/zelmora.conf"
    window = build / "bin/bench-settingswindow"
    return (
        *milliseconds(build / "bin/bench-paperpane", examples, "receiptdoc"),
        *milliseconds(window, "picture", examples),
        *milliseconds(window, "many", work / f"settings-{KEYS}.conf"),
    )


def peak_memory(contestant, work):
    """The greatest peak of resident memory of a few runs, in bytes.

    A new process starts with the peak of the process that started it, until it has needed more itself. So it
    is not started from here but by time(1), which is smaller than any program measured.
    """
    report = work / "peak-memory.txt"
    peaks = []
    for _ in range(MEMORY_ROUNDS):
        command = ["/usr/bin/time", "-f", "%M", "-o", report, *contestant.command]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        peaks.append(1024 * int(report.read_text()))
    return max(peaks)


class Memory:
    """The peaks of a program with few and with many rows, and of an empty application."""

    def __init__(self, name, programs, work, job):
        def peak(contestant, rows):
            return peak_memory(contestants(*programs, job(work, rows), work)[contestant], work)

        self.few, self.many = peak(name, FEW), peak(name, MANY)
        self.idle = peak("app", FEW)
        if self.few < self.idle:
            sys.exit(f"{name} shows less memory than an empty program: this figure cannot be its own.")

    @property
    def growth(self):
        return self.many - self.few

    def __str__(self):
        return f"{megabytes(self.many)}, {megabytes(self.growth)} more"


def measure_memory(programs, work):
    progress(f"Measuring the peak memory for {FEW:,} and {MANY:,} rows ...")
    return Memory("program", programs, work, job_file), Memory("check", programs, work, fitting_job_file)


class Targets:
    """The rows of the table, in the words of its readers."""

    def __init__(self):
        self.rows = []
        self.all_reached = True

    def add(self, what, target, against, measured, reached):
        self.rows.append((what, target, against, measured, "yes" if reached else "**no**"))
        self.all_reached = self.all_reached and reached

    def at_most(self, limit, what, against, ratio):
        self.add(what, f"at most {limit} times", against, f"{ratio:.3f} times", ratio <= limit)

    def shown(self, what, against, ratio):
        """A row without a target."""
        self.rows.append((what, "", against, f"{ratio:.3f} times", ""))

    def faster(self, limit, what, against, ratio):
        target = f"at least {limit} times faster than"
        self.add(what, target, against, f"{ratio:.3f} times faster", ratio >= limit)


def compare_till(targets, small, large, size):
    """The print program in one piece against the same and less."""
    till = small["till"]
    targets.at_most(
        0.6,
        f"one receipt of {SMALL} rows by a till's static program, whole process",
        "the empty application",
        till.times(small["app"]),
    )
    targets.at_most(0.6, "the same", "`xsltproc` with the same stylesheet", till.times(small["xsltproc"]))
    targets.at_most(3, "the same", "`/bin/true`", till.times(small["true"]))
    targets.at_most(
        0.9, f"a job of {LARGE:,} rows by it", "`zelmora-print` on the same job", large["till"].times(large["program"])
    )
    targets.add("its file", "at most 6 MB", "", megabytes(size), size <= 6 * MEGABYTE)


def compare(own, small, large, printing, checking, rehearsed, windows):
    own_now, own_earlier = own
    pane, window, opening, finding, changing = windows
    targets = Targets()
    targets.at_most(
        1.35,
        f"one receipt of {SMALL} rows, whole process, full settings and headers",
        "an empty `QCoreApplication` program that links the same libraries",
        small["program"].times(small["app"]),
    )
    targets.add(
        "what of this is our own, above that empty program",
        "at most 0.75 times",
        "the same of the program of commit 74d7329",
        f"{own_now:.2f} ms, {own_now / own_earlier:.3f} times",
        own_now <= 0.75 * own_earlier,
    )
    targets.shown(
        f"one receipt of {SMALL} rows, whole process",
        "`xsltproc` with a stylesheet that writes the same script",
        small["program"].times(small["xsltproc"]),
    )
    targets.faster(
        3,
        "the same",
        "a python3 script on expat that writes the same script",
        small["python3"].times(small["program"]),
    )
    targets.at_most(
        1.4,
        f"a job of {LARGE:,} rows",
        "the toolkit's reader on the same file with an empty handler",
        large["program"].times(large["handler"]),
    )
    targets.faster(2, "the same", "the same stylesheet", large["xsltproc"].times(large["program"]))
    targets.add(
        f"peak memory, job of {MANY:,} rows",
        f"at most 16 MB, and at most 1 MB more than for {FEW:,} rows",
        "",
        str(printing),
        printing.many <= 16 * MEGABYTE and printing.growth <= MEGABYTE,
    )
    targets.at_most(
        1.5,
        f"the check of the receipt of {SMALL} rows, whole process",
        "`zelmora-print` on the same job",
        small["check"].times(small["program"]),
    )
    targets.at_most(
        2, f"the check of the job of {LARGE:,} rows", "the same", large["check"].times(large["program"])
    )
    targets.add(
        f"peak memory of the check, job of {MANY:,} rows without findings in them",
        f"at most 1 MB more than for {FEW:,} rows",
        "",
        str(checking),
        checking.growth <= MEGABYTE,
    )
    targets.at_most(
        2.5,
        f"the script of the receipt of {SMALL} rows drawn as text, whole process",
        "`zelmora-print` on its job",
        small["paper"].times(small["program"]),
    )
    targets.add(
        f"jobs of {SMALL} rows rehearsed with settings that change each, on two cores",
        "at least 100 a second",
        "",
        f"{rehearsed:.0f} a second",
        rehearsed >= 100,
    )
    targets.add(
        "from a changed setting to the picture of the paper beside it, median of 50",
        "at most 100 ms",
        "",
        f"{pane:.1f} ms",
        pane <= 100,
    )
    targets.add(
        "the same by a key in the window of the settings editor",
        "at most 100 ms",
        "",
        f"{window:.1f} ms",
        window <= 100,
    )
    targets.add(
        f"a settings file of {KEYS:,} keys opened in that window, with its findings",
        "at most 500 ms",
        "",
        f"{opening:.1f} ms",
        opening <= 500,
    )
    targets.add(
        "something found in it, the slowest of five letters", "at most 50 ms", "", f"{finding:.1f} ms", finding <= 50
    )
    targets.add(
        "a setting of it changed by a key, the slowest of five",
        "at most 500 ms",
        "",
        f"{changing:.1f} ms",
        changing <= 500,
    )
    return targets


def megabytes(size):
    return f"{size / MEGABYTE:.2f} MB"


def print_table(titles, rows):
    for row in (titles, ["---"] * len(titles), *rows):
        print("|", " | ".join(row), "|")
    print()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--till", type=Path, required=True)
    parser.add_argument("--work", type=Path, required=True)
    arguments = parser.parse_args()
    build, till, work = arguments.build.resolve(), arguments.till.resolve(), arguments.work.resolve()

    own = measure_own(build, till, work)
    small, large = measure_times(build, till, work)
    rehearsed = measure_rehearsal(build, work)
    windows = measure_windows(build, work)
    printing, checking = measure_memory((build, till), work)

    targets = compare(own, small, large, printing, checking, rehearsed, windows)
    compare_till(targets, small, large, till.stat().st_size)
    print_table(("what", "must reach", "against", "measured", "reached"), targets.rows)
    print(
        f"Medians of {SMALL_ROUNDS} rounds for the receipt, of {OWN_ROUNDS:,} for what of it is our own, and of"
        f" {LARGE_ROUNDS} for the large job; of the memory the greatest of {MEMORY_ROUNDS} runs (an empty application:"
        f" {megabytes(printing.idle)}; 1 MB is a million bytes). The machine's noise is the interquartile range in percent of"
        " the median:\n"
    )
    print_table(
        ("job", "contestant", "median", "noise"),
        [
            (f"{rows:,} rows", one.name, f"{one.median:.2f} ms", f"{one.noise:.1f} %")
            for rows, race_of_job in ((SMALL, small), (LARGE, large))
            for one in race_of_job.values()
        ],
    )
    return 0 if targets.all_reached else 1


if __name__ == "__main__":
    sys.exit(main())
