"""A plan file, its calendar and its network, for the independent model.

Written from the description of the plan file and of the scheduling rules alone and shares no
code with the host, so that a fault in one of the two shows as a difference. Instants are whole
minutes since 1899-12-30 00:00; durations and lags are working minutes.
"""

import datetime
import xml.etree.ElementTree as ElementTree

EPOCH = datetime.datetime(1899, 12, 30)
MINUTES_PER_DAY = 1440
DAY_NAMES = ["Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"]
EPOCH_WEEKDAY = EPOCH.weekday()


def minute_of(text):
    """Minutes since the epoch of "2026-01-05T08:00:00" or "2026-01-05"."""
    passed = datetime.datetime.fromisoformat(text) - EPOCH
    return passed.days * MINUTES_PER_DAY + passed.seconds // 60


def text_of(minute):
    return (EPOCH + datetime.timedelta(minutes=minute)).isoformat()


def clock(text):
    hours, minutes = text.split(":")[:2]
    return int(hours) * 60 + int(minutes)


def shifts_of(node):
    return sorted((clock(shift.get("From")), clock(shift.get("To"))) for shift in node.iter("Shift"))


class Calendar:
    """The working time between dates, and the dates of working time."""

    def __init__(self, node):
        standard = [(480, 720), (780, 1020)]
        self.week = [standard] * 5 + [[], []]
        self.exceptions = {}
        if node is not None:
            named = {day.get("Name"): shifts_of(day) for day in node.findall("Day")}
            self.week = [named.get(name, []) for name in DAY_NAMES]
            for day in node.findall("Holiday"):
                self.exceptions[minute_of(day.get("Date")) // MINUTES_PER_DAY] = []
            for day in node.findall("WorkingDay"):
                self.exceptions[minute_of(day.get("Date")) // MINUTES_PER_DAY] = shifts_of(day)

    def shifts(self, day):
        if day in self.exceptions:
            return self.exceptions[day]
        return self.week[(day + EPOCH_WEEKDAY) % 7]

    def between(self, start, end):
        """Working minutes from start up to end; 0 when end is not after start."""
        total = 0
        for day in range(start // MINUTES_PER_DAY, end // MINUTES_PER_DAY + 1):
            midnight = day * MINUTES_PER_DAY
            for begin, finish in self.shifts(day):
                total += max(0, min(end, midnight + finish) - max(start, midnight + begin))
        return total

    def first_working(self, start):
        day = start // MINUTES_PER_DAY
        while True:
            for begin, finish in self.shifts(day):
                if start < day * MINUTES_PER_DAY + finish:
                    return max(start, day * MINUTES_PER_DAY + begin)
            day += 1

    def after(self, start, minutes):
        """The earliest instant by which `minutes` of work have passed since `start`."""
        instant = self.first_working(start)
        day = instant // MINUTES_PER_DAY
        while minutes > 0:
            for begin, finish in self.shifts(day):
                begin = max(instant, day * MINUTES_PER_DAY + begin)
                room = max(0, day * MINUTES_PER_DAY + finish - begin)
                if 0 < minutes <= room:
                    instant = begin + minutes
                minutes -= min(minutes, room)
            day += 1
        return instant


class Task:
    """One task as the file holds it; `leaves` are the ordinary tasks at and below it."""

    def __init__(self, node, parent):
        self.id = node.get("ID")
        self.parent = parent
        self.summary = node.get("Type") == "1"
        self.duration = int(node.get("Duration") or 0)
        self.floor = node.get("NoEarlierThan")
        shape = node.find("Distribution")
        self.points = None
        if shape is not None:
            self.points = tuple(float(shape.get(key)) for key in ("Minimum", "MostLikely", "Maximum"))
        self.links = [(link.get("From"), link.get("Type"), int(link.get("Lag") or 0))
                      for link in node.findall("Link")]
        self.costs = [float(item.get("Cost")) for item in node.findall("CostItem")]
        self.assigned = ""
        for value in node.findall("UserValue"):
            if value.get("Name") == "RiskFactors":
                self.assigned = value.text or ""
        self.children = []
        self.leaves = []


class Plan:
    """All tasks in plan order, and the forward pass over the ordinary ones."""

    def __init__(self, path):
        root = ElementTree.parse(path).getroot()
        self.name = root.get("Name")
        self.start = minute_of(root.get("Start"))
        self.calendar = Calendar(root.find("Calendar"))
        analysis = root.find("Analysis")
        self.iterations = int(analysis.get("Iterations")) if analysis is not None else 1000
        self.seed = int(analysis.get("Seed")) if analysis is not None else 1
        self.register = ""
        for text in root.iterfind("Texts/Text"):
            if text.get("Name") == "RiskFactors":
                self.register = text.text or ""
        self.tasks = []
        self._gather(root.find("Tasks"), None)
        self._prepare_network()

    def _gather(self, node, parent):
        for child in node.findall("Task"):
            task = Task(child, parent)
            self.tasks.append(task)
            if parent is not None:
                parent.children.append(task)
            self._gather(child, task)
            for owner in self._upwards(task):
                if not task.summary:
                    owner.leaves.append(task)

    @staticmethod
    def _upwards(task):
        while task is not None:
            yield task
            task = task.parent

    def _prepare_network(self):
        by_id = {task.id: task for task in self.tasks}
        bounds = {}
        for task in self.tasks:
            if not task.summary:
                held = [link for owner in self._upwards(task) for link in owner.links]
                floor = self.calendar.between(self.start, minute_of(task.floor)) if task.floor else 0
                bounds[task] = (floor, [(by_id[source].leaves, kind, lag) for source, kind, lag in held])
        self.order = []  # (task, floor, links) with every predecessor before its successors
        visited = set()
        for task in bounds:
            self._visit(task, bounds, visited)

    def _visit(self, first, bounds, visited):
        stack = [(first, False)]
        while stack:
            task, ready = stack.pop()
            if ready:
                self.order.append((task,) + bounds[task])
            elif task not in visited:
                visited.add(task)
                stack.append((task, True))
                stack.extend((leaf, False) for leaves, _, _ in bounds[task][1] for leaf in leaves)

    def finish(self, durations):
        """The plan's finish in working minutes, for the durations by task."""
        starts, finishes = {}, {}
        latest = 0
        for task, floor, links in self.order:
            duration = durations[task]
            start = floor
            for leaves, kind, lag in links:
                if kind[0] == "F":
                    bound = max(finishes[leaf] for leaf in leaves) + lag
                else:
                    bound = min(starts[leaf] for leaf in leaves) + lag
                if kind[1] == "F":
                    bound -= duration
                start = max(start, bound)
            starts[task] = start
            finishes[task] = start + duration
            latest = max(latest, start + duration)
        self.starts, self.finishes = starts, finishes
        return latest

    def critical(self):
        """The tasks whose start binds the finish of the last pass, walking back over what binds."""
        latest = max(self.finishes.values(), default=0)
        marked = set()
        waiting = [(task, "F") for task, finish in self.finishes.items() if finish == latest]
        bounds = {task: (floor, links) for task, floor, links in self.order}
        while waiting:
            task, end = waiting.pop()
            if (task, end) in marked:
                continue
            marked.add((task, end))
            if end == "F":
                waiting.append((task, "S"))
                continue
            for leaves, kind, lag in bounds[task][1]:
                if not leaves:  # of a summary without ordinary tasks: nothing stands behind it
                    continue
                times = self.finishes if kind[0] == "F" else self.starts
                made = (max if kind[0] == "F" else min)(times[leaf] for leaf in leaves)
                bound = made + lag
                if kind[1] == "F":
                    bound -= self.finishes[task] - self.starts[task]
                if bound == self.starts[task]:
                    waiting += [(leaf, kind[0]) for leaf in leaves if times[leaf] == made]
        return {task for task, end in marked if end == "S"}

    def finish_minute(self, working_minutes):
        return self.calendar.after(self.start, working_minutes)
