#!/usr/bin/env python3
"""Random project files for comparing `kestrel import` with the second reader.

Usage: generate_project.py SEED writes one to standard output; the same seed gives the same file.
"""

import datetime
import random
import sys

from generate import outline

START = datetime.datetime(2026, 3, 2, 8)
PATTERNS = [[("08:00", "12:00"), ("13:00", "17:00")], [("06:30", "14:45")], [("00:00", "00:00")], [("22:00", "00:00")]]


def tag(name, *inside):
    return f"<{name}>{''.join(str(part) for part in inside)}</{name}>"


def moment(chance, low=-10, high=120):
    return START + datetime.timedelta(days=chance.randint(low, high), minutes=chance.choice([0, 0, 240, 540, 615, -300]))


def text(date):
    return date.isoformat()


def working(chance):
    if chance.random() < 0.3:
        return tag("DayWorking", 0)
    pattern = chance.choice(PATTERNS)
    return tag("DayWorking", 1) + tag("WorkingTimes", *(
        tag("WorkingTime", tag("FromTime", a + ":00"), tag("ToTime", b + ":00")) for a, b in pattern))


def period(chance, longest):
    first = moment(chance, -200, 300).date()
    last = first + datetime.timedelta(days=chance.choice([0, 0, 3, longest]))
    return tag("TimePeriod", tag("FromDate", f"{first}T00:00:00"), tag("ToDate", f"{last}T23:59:00"))


def exception(chance):
    kind = chance.randint(1, 9)
    parts = [tag("EnteredByOccurrences", int(chance.random() < 0.2)), period(chance, 30 if kind in (1, 9) else 900),
             tag("Occurrences", chance.randint(1, 9)), tag("Type", kind)]
    if kind != 1 or chance.random() < 0.5:
        parts.append(tag("Period", 1 if kind == 1 else chance.randint(1, 3)))
    parts += [tag("DaysOfWeek", chance.randint(1, 127)), tag("MonthItem", chance.randint(0, 9)),
              tag("MonthPosition", chance.randint(0, 4)), tag("Month", chance.randint(0, 11)),
              tag("MonthDay", chance.choice([1, 15, 29, 30, 31])), working(chance)]
    return tag("Exception", *parts)


def week_days(chance, share):
    days = [tag("WeekDay", tag("DayType", day), working(chance)) for day in range(1, 8) if chance.random() < share]
    return "".join(days)


def calendar(chance, uid, base, is_base, name=""):
    old = "".join(tag("WeekDay", tag("DayType", 0), tag("DayWorking", 0), period(chance, 9)) for _ in range(chance.randint(0, 2)))
    works = tag("WeekDay", tag("DayType", 4), tag("DayWorking", 1), tag("WorkingTimes", tag(
        "WorkingTime", tag("FromTime", "08:00:00"), tag("ToTime", "16:00:00"))))
    weeks = [tag("WorkWeek", period(chance, 60), tag("WeekDays", week_days(chance, 0.4))) for _ in range(chance.randint(0, 2))]
    plain = not is_base and chance.random() < 0.4
    inside = "" if plain else tag("WeekDays", week_days(chance, 0.3) + works + old) + tag("WorkWeeks", *weeks) + tag(
        "Exceptions", *(exception(chance) for _ in range(chance.randint(0, 5))))
    return tag("Calendar", tag("UID", uid), tag("Name", name), tag("IsBaseCalendar", int(is_base)), tag("BaseCalendarUID", base), inside)


def link(chance, uid):
    parts = [tag("PredecessorUID", uid), tag("Type", chance.randint(0, 3))]
    if chance.random() < 0.6:
        form = chance.choice([7, 8, 19])
        parts += [tag("LinkLag", chance.choice([0, 25, 50, 150, -40] if form == 19 else [0, 4800, -960, 28800, 100800])), tag("LagFormat", form)]
    if chance.random() < 0.1:
        parts.append(tag("CrossProject", 1))
    return tag("PredecessorLink", *parts)


def task(chance, position, number, sources, calendars):
    parts = [tag("UID", position + 10), tag("ID", position), tag("Name", f"Task {position}")]
    parts.append(number)
    parts += [tag(name, 1) for name, share in (("ExternalTask", 0.06), ("Manual", 0.08)) if chance.random() < share]
    parts += [tag("Active", 0)] if chance.random() < 0.03 else []
    if chance.random() < 0.9:
        parts += [tag("Duration", f"PT{chance.choice([0, 8, 20, 160])}H{chance.choice([0, 30])}M0S"), tag("DurationFormat", chance.choice([7, 7, 7, 8, 40]))]
    if chance.random() < 0.8:
        start = moment(chance, chance.choice([-10, 0, 0, 0]))
        parts += [tag("Start", text(start)), tag("Finish", text(start + datetime.timedelta(hours=chance.choice([0, 9, 33, 200]))))]
    if chance.random() < 0.4:
        parts += [tag("ConstraintType", chance.choice([0, 1, 2, 3, 4, 4, 5, 6, 7])), tag("ConstraintDate", text(moment(chance)))]
    if chance.random() < 0.1:
        parts.append(tag("PercentComplete", chance.choice([0, 40, 100])))
    if chance.random() < 0.3:
        parts.append(tag("CalendarUID", chance.choice(["-1"] + calendars)))
    if chance.random() < 0.5:
        parts.append(tag("FixedCost", chance.choice([0, 120000, 2550])))
    if chance.random() < 0.3:
        parts.append(tag("Cost", chance.choice([0, 120000, 777777])))
    if chance.random() < 0.3:
        parts.append(tag("ExtendedAttribute", tag("FieldID", 188743734), chance.choice([tag("Value", "(1,2)"), tag("ValueID", 7)])))
    parts += [link(chance, other + 10) for other in chance.sample(sources, min(len(sources), chance.choice([0, 0, 1, 2])))]
    return tag("Task", *parts)


def assignment(chance, count, factor):
    hours = chance.choice([8, 24, 40])
    parts = [tag("TaskUID", chance.randint(1, count) + 10), tag("ResourceUID", chance.randint(1, 3)), tag("Work", f"PT{hours}H0M0S"),
             tag("Cost", chance.choice([0, hours * 50 * factor, hours * 50 * factor]))]
    at = moment(chance, 0)
    for _ in range(chance.choice([0, 0, 0, 3])):
        end = at + datetime.timedelta(hours=chance.choice([9, 24]))
        parts.append(tag("TimephasedData", tag("Type", 1), tag("Start", text(at)), tag("Finish", text(end)), tag("Value", chance.choice(["PT8H0M0S", "PT0H0M0S"]))))
        at = end
    return tag("Assignment", *parts)


def outline_tags(chance, levels):
    """Levels or numbers, or both; all of them from 0 where the file has level-0 rows."""
    base, counters, tags = chance.choice([0, 1, 1]), [], []
    for level in levels:
        counters = counters[:level + 1] + [0] * (level + 1 - len(counters))
        counters[level] += 1
        number = tag("OutlineNumber", ".".join(str(max(c, 1)) for c in counters))
        tags.append(chance.choice([tag("OutlineLevel", level + 1), number]) if base else tag("OutlineLevel", level))
    return tags


def sources(levels, position):
    """The rows before one but those around it, of which links would be a loop."""
    found, depth = [], levels[position - 1]
    for other in range(position - 1, 0, -1):
        if levels[other - 1] < depth:
            depth = levels[other - 1]
        else:
            found.append(other)
    return found


def random_project(seed):
    chance = random.Random(seed)
    count = chance.randint(3, 40)
    levels = outline(chance, count)
    numbers = outline_tags(chance, levels)
    calendars = [calendar(chance, 1, -1, True, "Standard"), calendar(chance, 2, 1, False), calendar(chance, 3, 1, False)]
    tasks = [tag("Task", tag("UID", 0), tag("ID", 0), tag("OutlineLevel", 0))]
    tasks += [task(chance, n, numbers[n - 1], sources(levels, n), ["1", "2", "3"]) for n in range(1, count + 1)]
    tasks.insert(chance.randint(1, count), tag("Task", tag("UID", 900), tag("IsNull", 1)))
    resources = [tag("Resource", tag("UID", n), tag("Name", f"Crew {n}"), tag("Type", 1), tag("StandardRate", 50), tag("CalendarUID", n))
                 for n in (1, 2, 3)]
    factor = chance.choice([1, 100, 100])
    return ('<Project xmlns="urn:kestrel:tests/project">' + tag("Name", f"Generated {seed}") + tag("StartDate", text(START)) +
            tag("CalendarUID", chance.choice([1, 1, 1, 2, -1])) +
            tag("OutlineCodes", tag("OutlineCode", tag("FieldID", 188743734), tag("Values", tag("Value", tag("ValueID", 7), tag("Value", "North"))))) +
            tag("ExtendedAttributes", tag("ExtendedAttribute", tag("FieldID", 188743734), tag("Alias", "Berth"))) +
            tag("Calendars", *calendars) + tag("Tasks", *tasks) + tag("Resources", *resources) +
            tag("Assignments", *(assignment(chance, count, factor) for _ in range(chance.randint(0, count)))) + "</Project>")


if __name__ == "__main__":
    print(random_project(int(sys.argv[1])))
