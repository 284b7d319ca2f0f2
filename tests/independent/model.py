#!/usr/bin/env python3
"""Compares `kestrel analyse` with an independent model of the whole analysis.

Usage: model.py KESTREL PLAN... [--iterations N] [--generated COUNT]
       model.py --print PLAN... [--iterations N]

Every figure must be equal to the last bit. Exit 1 with the first differences named.
"""

import argparse
import json
import pathlib
import subprocess
import sys
import tempfile

import generate
from analysis import Analysis
from plan import Plan, text_of
from priorities import priorities
from stream import Stream

SHOWN_DIFFERENCES = 5
REFERENCE_DRAW = 9981545732273789042  # the 10000th output of std::mt19937_64 with seed 5489


def differences(expected, actual, where):
    """Yields "where: expected …, got …" for every leaf that differs; further keys are free."""
    if isinstance(expected, dict) and isinstance(actual, dict):
        for key in sorted(expected):
            if key not in actual:
                yield f"{where}.{key}: missing"
            else:
                yield from differences(expected[key], actual[key], f"{where}.{key}")
    elif isinstance(expected, list) and isinstance(actual, list):
        if len(expected) != len(actual):
            yield f"{where}: expected {len(expected)} entries, got {len(actual)}"
        for index, pair in enumerate(zip(expected, actual)):
            yield from differences(*pair, f"{where}[{index}]")
    elif expected != actual or isinstance(expected, bool) != isinstance(actual, bool):
        yield f"{where}: expected {expected!r}, got {actual!r}"


def analyse(kestrel, path, iterations, seed, targets, folder):
    """What kestrel writes for the plan: its figures and its trace."""
    figures, trace = folder / "figures.json", folder / "trace.jsonl"
    run = subprocess.run([kestrel, "analyse", path, "--iterations", str(iterations), "--seed", str(seed),
                          "--json", figures, "--trace", trace, "--criticality", *targets],
                         capture_output=True, text=True, timeout=600)
    if run.returncode != 0:
        raise OSError(f"exit {run.returncode}, {run.stderr.strip()[-300:]}")
    lines = trace.read_text(encoding="utf-8").splitlines()
    return json.loads(figures.read_text(encoding="utf-8")), [json.loads(line) for line in lines]


def compare(kestrel, path, iterations, folder):
    """The differences between kestrel and the model for one plan, the earliest first."""
    plan = Plan(path)
    model = Analysis(plan, iterations, plan.seed)
    # Figures of an iteration itself, so that "no later" and "no dearer" are tried at their edges.
    finish = text_of(round(sorted(model.finishes)[iterations // 2] * 1440))
    cost = sorted(model.plan_costs)[iterations // 3] if iterations % 2 == 0 else None
    targets = ["--target-finish", finish] + ([] if cost is None else ["--target-cost", repr(cost)])
    model.summary |= {"tasks": model.criticality(), "target": model.target(finish, cost)}
    try:
        figures, trace = analyse(kestrel, path, iterations, plan.seed, targets, folder)
    except (subprocess.SubprocessError, OSError, ValueError) as failure:
        return [f"kestrel analyse: {failure}"]
    found = [*differences(model.trace, trace, "trace"), *differences(model.summary, figures, "figures")]
    return found or compare_priorities(kestrel, plan, path, min(iterations, 40), folder)


def compare_priorities(kestrel, plan, path, iterations, folder):
    """The differences in what each factor costs; measure, percentile and threads vary by plan."""
    measure = "cost" if plan.seed % 2 else "finish"
    share, threads = [80, 50, 12.5, 100][plan.seed % 4], [1, 2, 7][plan.seed % 3]
    written = folder / "priorities.json"
    words = [kestrel, "prioritise", path, "--iterations", iterations, "--percentile", share, "--threads", threads,
             "--json", written] + (["--cost"] if measure == "cost" else [])
    run = subprocess.run([str(word) for word in words], capture_output=True, text=True, timeout=600)
    if run.returncode != 0:
        return [f"kestrel prioritise: exit {run.returncode}, {run.stderr.strip()[-300:]}"]
    return [*differences(priorities(plan, iterations, measure, share),
                         json.loads(written.read_text(encoding="utf-8")), "priorities")]


def print_figures(path, iterations):
    plan = Plan(path)
    summary = Analysis(plan, iterations or plan.iterations, plan.seed).summary
    planned = summary["deterministic"]
    print(f"{summary['plan']}: planned {planned['finish']}, {planned['cost']:.0f}")
    for key, finish in summary["finish"].items():
        date = f"{finish:.2f} days" if key == "sd" else text_of(round(finish * 1440))
        print(f"  {key:5} {date:20} {summary['cost'][key]:14.0f}")
    for factor in sorted(summary["factors"], key=lambda one: -one["durSens"] ** 2):
        print(f"  {factor['id']:3} {factor['durSens']:7.3f} {factor['costSens']:7.3f}"
              f" {factor['occurrences']:6} {factor['name']}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("files", nargs="+", metavar="KESTREL PLAN")
    parser.add_argument("--iterations", type=int, default=0, help="default: what each plan says")
    parser.add_argument("--generated", type=int, default=0, metavar="COUNT",
                        help="also compare random plans, with the seeds 1 to COUNT")
    parser.add_argument("--print", action="store_true", help="print the model's figures only")
    options = parser.parse_args()

    stream = Stream(5489)
    for _ in range(9999):
        stream.next()
    if stream.next() != REFERENCE_DRAW:
        sys.exit("the model's random stream is not the standard one")
    if options.print:
        for path in options.files:
            print_figures(path, options.iterations)
        return

    kestrel, plans = options.files[0], options.files[1:]
    failed = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for seed in range(1, options.generated + 1):
            plans.append(folder / f"generated-{seed}.kplan")
            plans[-1].write_text(generate.random_plan(seed), encoding="utf-8")
        for path in plans:
            iterations = options.iterations or Plan(path).iterations
            found = compare(kestrel, path, iterations, folder)
            failed += bool(found)
            for line in found[:SHOWN_DIFFERENCES]:
                print(f"{pathlib.Path(path).name}: {line}")
    print(f"{len(plans)} plans, {failed} with differences")
    sys.exit(failed > 0)


if __name__ == "__main__":
    main()
