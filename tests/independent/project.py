#!/usr/bin/env python3
"""A second reader of project files: what `kestrel import` should make of them.

Usage: project.py KESTREL COUNT imports random project files (seeds 1 to COUNT) with everything that
the reader has a rule for. Exit 1 with the first differences named.

Shares no code with the host; days are looked at one by one.
"""

import datetime
import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import generate_project
from plan import EPOCH, MINUTES_PER_DAY, Calendar, Task, minute_of, shifts_of, text_of

NS = "{urn:kestrel:tests/project}"
COMPARED_DAYS = 1200
ROOM = 20 * 366
STARTED = ["PercentComplete", "ActualStart"]


def word(node, name):
    found = node.find(NS + name)
    return (found.text or "").strip() if found is not None else ""


def number(node, name, default=0.0):
    return float(word(node, name) or default)


def items(node, group, item):
    return node.findall(f"{NS}{group}/{NS}{item}")


def minutes_of(text):
    """Minutes of PT12H30M0S."""
    hours, rest = text[2:].split("H")
    return int(hours) * 60 + int(rest.split("M")[0])


def day_of(text):
    return minute_of(text[:10]) // MINUTES_PER_DAY


def date_of(day):
    return EPOCH + datetime.timedelta(days=day)


def times(node):
    if word(node, "DayWorking") == "0":
        return []
    pairs = [(minute_of("2000-01-01T" + word(t, "FromTime")), minute_of("2000-01-01T" + word(t, "ToTime")))
             for t in items(node, "WorkingTimes", "WorkingTime")]
    return sorted((a % MINUTES_PER_DAY, b % MINUTES_PER_DAY or MINUTES_PER_DAY) for a, b in pairs)


def fits_item(item, date):
    weekend = date.weekday() >= 5
    return item == 0 or (item == 1 and not weekend) or (item == 2 and weekend) or (
        item >= 3 and (date.weekday() + 1) % 7 == item - 3)


def month_days(date):
    first = date.replace(day=1)
    return [d for d in (first + datetime.timedelta(days=n) for n in range(31)) if d.month == date.month]


def falls(node, kind, date):
    """Whether the date is the one that a monthly or yearly rule names in its month."""
    days = month_days(date)
    if kind in (2, 4):
        return date.day == min(int(word(node, "MonthDay")), len(days))
    fitting = [d for d in days if fits_item(int(word(node, "MonthItem")), d)]
    position = int(word(node, "MonthPosition"))
    return date == (fitting[-1] if position == 4 else fitting[position])


def occurrences(node, horizon):
    """The days of an exception up to the horizon."""
    first, last = (day_of(word(node.find(NS + "TimePeriod"), key)) for key in ("FromDate", "ToDate"))
    kind, period = int(word(node, "Type") or 1), int(word(node, "Period") or 1)
    if first == last or kind == 9 or (kind, period) == (1, 1):
        return list(range(first, last + 1))
    limit = int(word(node, "Occurrences")) if word(node, "EnteredByOccurrences") == "1" else None
    found, weekdays, start_month = [], 0, None
    sunday = first - (date_of(first).weekday() + 1) % 7
    for day in range(first, min(last, horizon) + 1):
        date = date_of(day)
        if kind in (1, 7):
            hit = (day - first) % period == 0
        elif kind == 8:
            hit = date.weekday() < 5 and weekdays % period == 0
            weekdays += date.weekday() < 5
        elif kind == 6:
            bit = (date.weekday() + 1) % 7
            hit = int(word(node, "DaysOfWeek")) >> bit & 1 and (day - sunday) // 7 % period == 0
        else:
            hit = falls(node, kind, date)
            if kind in (2, 3):
                hit = hit and date.month == int(word(node, "Month")) + 1
            elif hit:
                month = date.year * 12 + date.month
                start_month = start_month or month
                hit = (month - start_month) % period == 0
        if hit:
            found.append(day)
        if limit and len(found) == limit:
            break
    return found


class FileCalendar(Calendar):
    """A calendar of a project file over its base."""

    def __init__(self, node, base, horizon):
        super().__init__(None)
        self.weeks = dict(base.weeks) if base else {}
        if base:
            self.week, self.exceptions = list(base.week), dict(base.exceptions)
        for day in items(node, "WeekDays", "WeekDay"):
            kind = int(word(day, "DayType"))
            if kind:
                self.week[(kind + 5) % 7] = times(day)
            else:
                self.exceptions.update({d: times(day) for d in occurrences(day, horizon)})
        for week in items(node, "WorkWeeks", "WorkWeek"):
            named = {(int(word(day, "DayType")) + 5) % 7: times(day) for day in items(week, "WeekDays", "WeekDay")}
            self.weeks.update({d: named[date_of(d).weekday()] for d in occurrences(week, horizon)
                               if date_of(d).weekday() in named})
        for exception in items(node, "Exceptions", "Exception"):
            self.exceptions.update({d: times(exception) for d in occurrences(exception, horizon)})

    def shifts(self, day):
        if day in self.exceptions:
            return self.exceptions[day]
        return self.weeks[day] if day in self.weeks else self.week[date_of(day).weekday()]


class Row:
    def __init__(self, node):
        self.node = node
        self.uid, self.id = word(node, "UID"), word(node, "ID")
        level = word(node, "OutlineLevel")
        self.level = int(level) if level else len(word(node, "OutlineNumber").split("."))
        self.external = word(node, "ExternalTask") == "1"
        self.start = minute_of(word(node, "Start")) if word(node, "Start") else None
        self.finish = minute_of(word(node, "Finish")) if word(node, "Finish") else None
        self.summary, self.parent, self.links, self.used = False, None, [], set()


class Project:
    """The plan that a project file stands for."""

    def __init__(self, text):
        self.root = ElementTree.fromstring(text)
        self._outline()
        starts = [row.start for row in self.rows if row.start is not None]
        stated = minute_of(word(self.root, "StartDate"))
        self.start = min(starts + [stated])
        self.stated = stated
        ends = [at for row in self.rows for at in (row.start, row.finish) if at is not None]
        horizon = max(ends + [stated]) // MINUTES_PER_DAY + ROOM
        self.days = range(self.start // MINUTES_PER_DAY, horizon + 1)
        self._calendars(horizon)
        self._assignments()
        for row in self.rows:
            row.duration = 0 if row.summary or row.external else self._duration(row)
        for row in self.rows:
            self._links(row)
        for row in self.rows:
            row.floor = self._floor(row)

    def _outline(self):
        self.rows, enclosing, inactive = [], [], None
        for node in items(self.root, "Tasks", "Task"):
            if word(node, "IsNull") == "1" or word(node, "UID") == "0":
                continue
            row = Row(node)
            if inactive is not None and row.level > inactive:
                continue
            inactive = row.level if word(node, "Active") == "0" else None
            if inactive is not None:
                continue
            while enclosing and enclosing[-1].level >= row.level:
                enclosing.pop()
            if enclosing:
                row.parent = enclosing[-1]
                row.parent.summary = True
            enclosing.append(row)
            self.rows.append(row)
        self.by_uid = {row.uid: row for row in self.rows}

    def _calendars(self, horizon):
        nodes = {word(node, "UID"): node for node in items(self.root, "Calendars", "Calendar")}
        self.calendars = {}
        for uid, node in nodes.items():
            base = self.calendars.get(word(node, "BaseCalendarUID"))  # a base stands before it
            self.calendars[uid] = FileCalendar(node, base, horizon)
        bases = [uid for uid, node in nodes.items() if word(node, "IsBaseCalendar") != "0"]
        standard = [uid for uid in bases if word(nodes[uid], "Name") == "Standard"]
        chosen = word(self.root, "CalendarUID")
        if chosen not in nodes:
            chosen = (bases if len(bases) == 1 else standard)[0]
        self.chosen, self.calendar = chosen, self.calendars[chosen]

    def _differs(self, uid):
        if uid in ("", "-1", self.chosen):
            return False
        return any(self.calendars[uid].shifts(day) != self.calendar.shifts(day) for day in self.days)

    def _between(self, start, end):
        return self.calendar.between(max(start, self.start), max(end, self.start))

    def _assignments(self):
        resources = {word(node, "UID"): node for node in items(self.root, "Resources", "Resource")}
        for row in self.rows:
            row.costs, row.own_calendar, row.split = [], False, False
        votes = {100: 0, 1: 0}
        for node in items(self.root, "Assignments", "Assignment"):
            resource, row = resources[word(node, "ResourceUID")], self.by_uid.get(word(node, "TaskUID"))
            worth = number(resource, "StandardRate") * minutes_of(word(node, "Work")) / 60
            for factor in votes:
                votes[factor] += worth > 0 and abs(number(node, "Cost") - worth * factor) < worth * factor / 200
            if row is None:
                continue
            if number(node, "Cost"):
                row.costs.append((word(resource, "Name"), number(node, "Cost")))
            row.own_calendar |= self._differs(word(resource, "CalendarUID"))
            parts = sorted((minute_of(word(part, "Start")), minute_of(word(part, "Finish")))
                           for part in node.findall(NS + "TimephasedData") if word(part, "Value") != "PT0H0M0S")
            for (_, before), (after, _) in zip(parts, parts[1:]):
                row.split |= self._between(before, after) > 0
        self.unit = 1 if votes[1] > votes[100] else 100

    def _duration(self, row):
        stated = word(row.node, "Duration")
        elapsed = word(row.node, "DurationFormat") in ("4", "6", "8", "10", "12", "40")
        peculiar = not stated or elapsed or row.split or row.own_calendar or self._differs(word(row.node, "CalendarUID"))
        if peculiar and row.start is not None and row.finish is not None:
            return self._between(row.start, row.finish)
        return self._share(minutes_of(stated)) if stated and elapsed else minutes_of(stated) if stated else 0

    def _share(self, minutes):
        weekly = sum(end - begin for day in self.calendar.week for begin, end in day)
        return round(minutes * (weekly / (7 * MINUTES_PER_DAY)))

    def _links(self, row):
        for node in row.node.findall(NS + "PredecessorLink"):
            source = self.by_uid.get(word(node, "PredecessorUID"))
            if source is None or row.external or (word(node, "CrossProject") == "1" and not source.external):
                continue
            kind = ["FF", "FS", "SF", "SS"][int(word(node, "Type") or 1)]
            source.used.add(kind[0])
            lag, form = number(node, "LinkLag"), word(node, "LagFormat")
            if form == "19":
                whole = source.duration
                if source.summary and source.start is not None and source.finish is not None:
                    whole = self._between(source.start, source.finish)
                elif source.summary or source.external:
                    stated = word(source.node, "Duration")
                    whole = minutes_of(stated) if stated else 0
                minutes = round(whole * lag / 100)
            elif form == "8" and lag:
                minutes = round(lag / 10)
                at = source.finish if kind[0] == "F" else source.start
                if at is None:
                    minutes = self._share(minutes)
                elif minutes > 0:
                    minutes = self._between(at, at + minutes)
                else:
                    minutes = -self._between(at + minutes, at)
            else:
                minutes = round(lag / 10)
            row.links.append((source.id, kind, minutes))

    def _floor(self, row):
        constraint = word(row.node, "ConstraintType") or "0"
        stated = word(row.node, "ConstraintDate")
        date = minute_of(stated) if stated else None
        if row.summary:
            return date if constraint == "4" else None
        if row.external:
            return row.start if row.used == {"S"} or row.finish is None else row.finish
        held = constraint not in ("0", "4") or word(row.node, "Manual") == "1" or any(
            word(row.node, key) not in ("", "0") for key in STARTED)
        if held and row.start is not None:
            return row.start
        if constraint in ("2", "4") and date is not None:
            return date
        if self.start < self.stated:
            return min(self.stated, row.start if row.start is not None else self.stated)
        return None

    def costs_of(self, row):
        fixed = number(row.node, "FixedCost")
        found = ([("Fixed cost", fixed)] if fixed else []) + row.costs
        total = sum(cost for _, cost in found)
        own = number(row.node, "Cost", total)
        if not row.summary and abs(own - total) / self.unit >= 0.005:
            found.append(("Other cost", own - total))
        return [(name, round(cost / self.unit, 6)) for name, cost in found]

    def texts_of(self, row):
        lists = {word(value, "ValueID"): word(value, "Value")
                 for code in items(self.root, "OutlineCodes", "OutlineCode") for value in items(code, "Values", "Value")}
        return [("Berth", word(node, "Value") or lists[word(node, "ValueID")])
                for node in row.node.findall(NS + "ExtendedAttribute")]


def task_lines(root):
    """What stands in a plan file, a tuple a task."""
    def walk(node, parent):
        for child in node.findall("Task"):
            task = Task(child, None)
            floor = minute_of(task.floor) if task.floor else None
            yield (task.id, child.get("UID"), task.summary, parent, task.duration, floor, task.links,
                   [(item.get("Name"), round(float(item.get("Cost")), 6)) for item in child.findall("CostItem")],
                   [(value.get("Name"), value.text) for value in child.findall("UserValue")])
            yield from walk(child, task.id)
    return list(walk(root.find("Tasks"), None))


def differences(text, root):
    project = Project(text)
    if text_of(project.start) != root.get("Start"):
        yield f"start: expected {text_of(project.start)}, got {root.get('Start')}"
    expected = [(row.id, row.uid, row.summary, row.parent and row.parent.id, row.duration, row.floor, row.links,
                 project.costs_of(row), project.texts_of(row)) for row in project.rows]
    for row, got in zip(expected, task_lines(root)):
        if row != got:
            yield f"task {row[0]}: expected {row}, got {got}"
    if len(expected) != len(task_lines(root)):
        yield f"{len(expected)} tasks expected, got {len(task_lines(root))}"
    calendar = Calendar(root.find("Calendar"))
    first = project.start // MINUTES_PER_DAY
    for day in range(first, first + COMPARED_DAYS):
        if calendar.shifts(day) != project.calendar.shifts(day):
            yield f"{date_of(day).date()}: expected {project.calendar.shifts(day)}, got {calendar.shifts(day)}"


def main():
    kestrel, failed = sys.argv[1], 0
    with tempfile.TemporaryDirectory() as name:
        source, target = pathlib.Path(name) / "project.xml", pathlib.Path(name) / "plan.kplan"
        for seed in range(1, int(sys.argv[2]) + 1):
            text = generate_project.random_project(seed)
            source.write_text(text, encoding="utf-8")
            run = subprocess.run([kestrel, "import", source, "-o", target], capture_output=True, text=True, timeout=60)
            found = [run.stderr] if run.returncode else list(differences(text, ElementTree.parse(target).getroot()))
            failed += bool(found)
            for line in found[:3]:
                print(f"seed {seed}: {line}")
    print(f"{sys.argv[2]} project files, {failed} with differences")
    sys.exit(failed > 0)


if __name__ == "__main__":
    main()
