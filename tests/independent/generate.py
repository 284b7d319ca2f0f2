#!/usr/bin/env python3
"""Random valid plans for comparing the host with the independent model.

Usage: generate.py SEED writes one plan to standard output; the same seed gives the same plan.
"""

import datetime
import random
import sys
from xml.sax.saxutils import escape, quoteattr

MAX_TASKS = 60
START = datetime.datetime(2026, 1, 1)
DAY_NAMES = ["Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"]
DAY_PATTERNS = [  # odd shifts included: to midnight, from midnight, touching, one minute
    [("08:00", "12:00"), ("13:00", "17:00")], [("06:30", "14:45")], [("00:00", "24:00")],
    [("22:00", "24:00")], [("00:00", "02:15"), ("23:00", "24:00")],
    [("07:00", "09:00"), ("09:00", "11:30")], [("12:00", "12:01")], [],
]


def date(chance, days):
    return START + datetime.timedelta(days=chance.randrange(days))


def shift_lines(shifts):
    return "".join(f'<Shift From="{begin}" To="{end}"/>' for begin, end in shifts)


def calendar(chance):
    if chance.random() < 0.3:
        return []
    lines = ["<Calendar>"]
    works = chance.randrange(7)
    for weekday, name in enumerate(DAY_NAMES):
        # One named day always works, so the plan can end.
        pattern = DAY_PATTERNS[chance.randrange(3)] if weekday == works else chance.choice(DAY_PATTERNS)
        if weekday == works or chance.random() < 0.8:
            lines.append(f'<Day Name="{name}">{shift_lines(pattern)}</Day>')
    special = {date(chance, 200).date() for _ in range(chance.randrange(12))}
    for day in sorted(special):
        if chance.random() < 0.6:
            lines.append(f'<Holiday Date="{day}"/>')
        else:
            pattern = chance.choice(DAY_PATTERNS)
            lines.append(f'<WorkingDay Date="{day}">{shift_lines(pattern)}</WorkingDay>')
    return lines + ["</Calendar>"]


def impact(chance, likely_to_shrink):
    """Three percentages in order, at times all the same or a corner of the triangle."""
    base = chance.choice([40, 80, 95]) if chance.random() < likely_to_shrink else 100
    points = sorted(base + chance.choice([0, 0, 5, 7.5, 12.25, 30, 80]) for _ in range(3))
    return [f"{point:g}" for point in points]


def register(chance, count):
    """The register of `count` factors; some follow others: earlier, later, in chains, themselves."""
    parts = ['<RiskFactors Version="RiskFactors1.00">']
    for number in range(1, count + 1):
        duration, cost = impact(chance, 0.3), impact(chance, 0.3)
        leader = chance.randint(1, count) if chance.random() < 0.4 else 0
        values = {"Name": f"Factor {number} & <co>", "Minimum": duration[0], "MostLikely": duration[1],
                  "Maximum": duration[2], "CostMinimum": cost[0], "CostMostLikely": cost[1],
                  "CostMaximum": cost[2], "Probability": chance.choice([0, 3.5, 20, 50, 50, 72.25, 100]),
                  "DurSens": 100, "CostSens": 100, "CorrelatedTo": leader}
        if chance.random() < 0.1:  # a register from before costs were kept
            for name in ("CostMinimum", "CostMostLikely", "CostMaximum"):
                del values[name]
        parts.append(f'<RiskFactor ID="{number}">')
        parts += [f"<{name}>{escape(str(value))}</{name}>" for name, value in values.items()]
        parts.append("</RiskFactor>")
    return "".join(parts) + "</RiskFactors>"


def id_list(chance, count):
    ids = [str(chance.randint(1, count)) for _ in range(chance.randint(1, 4))]
    separator = chance.choice([",", ",", ", ", " , ", ",,"])
    return separator.join(ids) + chance.choice(["", "", "", ",", " "])


def assignment(chance, count):
    """A task's field in one of its forms: as the dialogs write it, or as hands type it."""
    if count == 0:
        return chance.choice(["()", "(P)", ","])
    series, parallel = id_list(chance, count), id_list(chance, count)
    return chance.choice([
        f"({series})", f"({parallel}(P))", f"({parallel}(P));({series})", series, f"({series}",
        f" ( {series} ) ", f"({parallel}(P)) ; ({series}) ", f"{parallel}(P);{series}",
        f"({parallel}(P));", f"(P);({series})", "()", "(P)", "(P);()", ",",
    ])


def outline(chance, count):
    """The tasks' levels in plan order; a task followed by a deeper one is a summary."""
    levels = [0]
    while len(levels) < count:
        levels.append(chance.choice([levels[-1] + 1, levels[-1], levels[-1], chance.randint(0, levels[-1])]))
    return levels


def links(chance, sources, ids):
    """Up to three links from the tasks at these positions."""
    lines = []
    for other in chance.sample(sources, min(len(sources), chance.choice([0, 0, 1, 1, 2, 3]))):
        lag = chance.choice([0, 0, 0, chance.randint(-900, 900)])
        lines.append(f'<Link From="{ids[other]}" Type="{chance.choice(["FS", "SS", "FF", "SF"])}" Lag="{lag}"/>')
    return lines


def details(chance, summary, factors):
    """The elements of a task that stand before its links, and those after."""
    lines = []
    if not summary and chance.random() < 0.5:
        points = sorted(chance.choice([0, 1, 60, 480, chance.randint(0, 3000)]) for _ in range(3))
        lines.append('<Distribution Shape="0" Minimum="{}" MostLikely="{}" Maximum="{}"/>'.format(*points))
    after = []
    for _ in range(chance.choice([0, 1, 1, 2, 3])):
        cost = chance.choice([0, 0.1, 12000.5, round(chance.uniform(1, 9e6), 3)])
        after.append(f'<CostItem Name="Cost" Cost="{cost}"/>')
    if chance.random() < 0.5:
        after.append(f'<UserValue Name="RiskFactors">{assignment(chance, factors)}</UserValue>')
    return lines, after


def task_lines(chance, count, factors):
    levels = outline(chance, count)
    ids = [str(number * 10) for number in chance.sample(range(1, 1000), count)]
    upwards = chance.random() < 0.3  # links run from later tasks to earlier ones
    floors = chance.random() < 0.4
    lines, ancestors = [], []
    for position, level in enumerate(levels):
        while ancestors and levels[ancestors[-1]] >= level:
            ancestors.pop()
            lines.append("</Task>")
        summary = position + 1 < count and levels[position + 1] > level
        head = f'<Task ID="{ids[position]}" Name={quoteattr(f"Task {position} <&>")} Type="{int(summary)}"'
        if not summary:
            head += f' Duration="{chance.choice([0, 1, 480, chance.randint(0, 4000)])}"'
            if floors and chance.random() < 0.2:
                floor = date(chance, 75) + datetime.timedelta(minutes=chance.randrange(1440))
                head += f' NoEarlierThan="{floor.isoformat()}"'
        # All links of a plan run one way, and none joins a task to its own summaries: no loops.
        below = next((p for p in range(position + 1, count) if levels[p] <= level), count)
        earlier = [other for other in range(position) if other not in ancestors]
        sources = list(range(below, count)) if upwards else earlier
        before, after = details(chance, summary, factors)
        lines += [head + ">", *before, *links(chance, sources, ids), *after]
        if summary:
            ancestors.append(position)
        else:
            lines.append("</Task>")
    return lines + ["</Task>"] * len(ancestors)


def random_plan(seed):
    chance = random.Random(seed)
    count = chance.randint(1, MAX_TASKS)
    factors = chance.choice([-1, 0, 1, 2, 3, 4, 5, 6, 7, 8])  # -1: the plan has no register
    start = date(chance, 60) + datetime.timedelta(minutes=chance.choice([0, 480, 725, 1439]))
    lines = ['<?xml version="1.0" encoding="UTF-8"?>',
             f'<Plan Version="1" Name="Generated {seed}" Start="{start.isoformat()}">', *calendar(chance)]
    if factors >= 0:
        lines.append(f'<Texts><Text Name="RiskFactors">{escape(register(chance, factors))}</Text></Texts>')
    lines.append(f'<Analysis Iterations="100" Seed="{chance.randrange(1 << 32)}"'
                 f' RecalculateAll="{chance.choice(["true", "false"])}"/>')
    lines += ["<Tasks>", *task_lines(chance, count, abs(factors)), "</Tasks>", "</Plan>"]
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    sys.stdout.write(random_plan(int(sys.argv[1])))
