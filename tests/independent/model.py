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
from stream import Stream

SHOWN_DIFFERENCES = 5
REFERENCE_DRAW = 9981545732273789042  # the 10000th output of std::mt19937_64 with seed 5489


def differences(expected, actual, where):
    """Yields "where: expected …, got …" for every leaf that differs."""
    if isinstance(expected, dict) and isinstance(actual, dict):
        for key in sorted(expected.keys() | actual.keys()):
            if key not in expected or key not in actual:
                yield f"{where}.{key}: {'not expected' if key in actual else 'missing'}"
            else:
                yield from differences(expected[key], actual[key], f"{where}.{key}")
    elif isinstance(expected, list) and isinstance(actual, list):
        if len(expected) != len(actual):
            yield f"{where}: expected {len(expected)} entries, got {len(actual)}"
        for index, pair in enumerate(zip(expected, actual)):
            yield from differences(*pair, f"{where}[{index}]")
    elif expected != actual or isinstance(expected, bool) != isinstance(actual, bool):
        yield f"{where}: expected {expected!r}, got {actual!r}"


def analyse(kestrel, path, iterations, seed, folder):
    """What kestrel writes for the plan: its figures and its trace."""
    figures, trace = folder / "figures.json", folder / "trace.jsonl"
    run = subprocess.run([kestrel, "analyse", path, "--iterations", str(iterations), "--seed", str(seed),
                          "--json", figures, "--trace", trace], capture_output=True, text=True, timeout=600)
    if run.returncode != 0:
        raise OSError(f"exit {run.returncode}, {run.stderr.strip()[-300:]}")
    lines = trace.read_text(encoding="utf-8").splitlines()
    return json.loads(figures.read_text(encoding="utf-8")), [json.loads(line) for line in lines]


def compare(kestrel, path, iterations, folder):
    """The differences between kestrel and the model for one plan, the earliest first."""
    plan = Plan(path)
    model = Analysis(plan, iterations, plan.seed)
    try:
        figures, trace = analyse(kestrel, path, iterations, plan.seed, folder)
    except (subprocess.SubprocessError, OSError, ValueError) as failure:
        return [f"kestrel analyse: {failure}"]
    return [*differences(model.trace, trace, "trace"), *differences(model.summary, figures, "figures")]


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
