"""The seeded risk analysis of a plan, recomputed from the rules alone.

Floating-point operations stand in the order in which the rules name them, left to right, so the
figures are expected to agree with the host's to the last bit.
"""

import math
import re
import xml.etree.ElementTree as ElementTree

from plan import minute_of, text_of
from stream import Stream


class Factor:
    """One factor of the register with its state in an analysis."""

    def __init__(self, node):
        def number(name, default=None):
            child = node.find(name)
            if child is None and default is not None:
                return default
            return float((child.text or "").replace("%", ""))

        self.name = node.findtext("Name") or ""
        self.duration = [number(key) * 100 for key in ("Minimum", "MostLikely", "Maximum")]
        self.cost = [number(key, 100.0) * 100 for key in ("CostMinimum", "CostMostLikely", "CostMaximum")]
        self.probability = number("Probability")
        self.follows = int(number("CorrelatedTo", 0.0))
        self.carried = False
        self.random = 0.0
        self.applied = False
        self.durations, self.costs = [], []
        self.occurrences = 0

    def visit(self):
        """A task's look at the factor: each adds an entry to the histories."""
        self.applied = self.random * 100 <= self.probability and self.carried
        self.durations.append(self.drawn_duration if self.applied else 1)
        self.costs.append(self.drawn_cost if self.applied else 1)
        return (self.drawn_duration, self.drawn_cost) if self.applied else (1.0, 1.0)


def register_of(text):
    try:
        return [Factor(node) for node in ElementTree.fromstring(text).iter("RiskFactor")] if text else []
    except ElementTree.ParseError:
        return []


def ids_of(group):
    """The IDs of one group in field order, each once."""
    found = []
    for item in group.split(","):
        item = item.strip(" ")
        if item:
            number = re.match(r"[+-]?\d*\.?\d*", item).group()
            value = round(float(number)) if re.search(r"\d", number) else 0
            if value not in found:
                found.append(value)
    return found


def groups_of(text):
    """The series and the parallel IDs of a task's field."""
    bare = str.maketrans("", "", "()")
    if "(P)" not in text:
        return ids_of(text.translate(bare)), []
    parallel, _, series = text.partition(";")
    return ids_of(series.strip(" ").translate(bare)), ids_of(parallel.strip(" ").translate(bare).replace("P", ""))


def draw_occurrences(factors, stream):
    drawn = []
    for factor in factors:
        number = stream.uniform()
        drawn.append(number)
        if factor.follows == 0 and factor.random == 0:
            factor.random = number
        elif factor.follows >= 1 and factor.random == 0:
            leader = factors[factor.follows - 1]
            if leader.random == 0:
                leader.random = number
            factor.random = leader.random
    return drawn


def multipliers(series, parallel):
    """A task's duration and cost multiplier from its two groups of factors."""
    in_series, in_parallel, cost_series, cost_parallel = 1.0, 1.0, 1.0, 1.0
    for factor in series:
        duration, cost = factor.visit()
        in_series *= duration
        cost_series *= cost
    for position, factor in enumerate(parallel):
        duration, cost = factor.visit()
        if position == 0 or duration > in_parallel:
            in_parallel = duration
        cost_parallel *= cost
    if in_parallel > in_series:
        chosen = in_parallel if parallel else in_series
    else:
        chosen = in_series if series or in_parallel == in_series else in_parallel
    return chosen, cost_series * cost_parallel


def mean(values):
    total = 0.0
    for value in values:
        total += value
    return total / len(values)


def deviation(values, about):
    if len(values) < 2:
        return 0.0
    total = 0.0
    for value in values:
        total += (value - about) * (value - about)
    return math.sqrt(total / (len(values) - 1))


def correlation(project, history):
    """Pearson's coefficient over the first entries of the history, one a project value."""
    if not project or not history:
        return 0.0
    count = len(project)
    if count <= 1:
        return 1.0
    history = history[:count]
    mean_x, mean_y = mean(project), mean(history)
    sd_x, sd_y = deviation(project, mean_x), deviation(history, mean_y)
    if sd_x == 0 or sd_y == 0:
        return 0.0
    total = 0.0
    for x, y in zip(project, history):
        total += (y - mean_y) * (x - mean_x)
    return total / (count - 1) / (sd_y * sd_x)


def percentile(ordered, share):
    position = (len(ordered) - 1) * share
    below = math.floor(position)
    above = min(below + 1, len(ordered) - 1)
    return ordered[below] + (ordered[above] - ordered[below]) * (position - below)


def figures(values):
    ordered = sorted(values)
    average = mean(values)
    shares = {"p10": 0.1, "p50": 0.5, "p80": 0.8, "p90": 0.9}
    return {"mean": average, "sd": deviation(values, average)} | {
        key: percentile(ordered, share) for key, share in shares.items()}


class Analysis:
    """Runs the analysis of a plan; `trace` and `summary` are what the host should report."""

    def __init__(self, plan, iterations, seed, never=()):
        """`never`: the numbers of factors that never occur, while they draw and share as ever."""
        self.plan = plan
        self.stream = Stream(seed)
        self.factors = register_of(plan.register)
        for number in never:
            self.factors[number - 1].probability = -1.0
        self.durations = {task: task.duration for task in plan.tasks}
        self.costs = {task: task.costs for task in plan.tasks}
        deterministic = self._outcome()
        self._prepare()
        self.finishes, self.plan_costs, self.trace = [], [], []
        self.planned, self.critical = deterministic, {}
        for iteration in range(1, iterations + 1):
            self._iterate(iteration)
        self.summary = {
            "plan": plan.name, "iterations": iterations, "seed": seed,
            "deterministic": {"finish": deterministic[0], "finishSerial": deterministic[1],
                              "cost": deterministic[2]},
            "finish": figures(self.finishes), "cost": figures(self.plan_costs),
            "factors": [self._ranked(n, factor) for n, factor in enumerate(self.factors, 1)]}

    def _prepare(self):
        """Gathers the tasks that carry factors, and the base costs of every task with a text."""
        self.carriers, self.base = [], []
        if not self.factors:
            return
        for task in self.plan.tasks:
            if task.assigned:
                self.base += task.costs
                groups = [[self.factors[n - 1] for n in ids] for ids in groups_of(task.assigned)]
                for factor in groups[0] + groups[1]:
                    factor.carried = True
                if groups[0] or groups[1]:
                    self.carriers.append((task, *groups))

    def _outcome(self):
        """The plan's finish as text and as a number, and its cost."""
        minute = self.plan.finish_minute(self.plan.finish(self.durations))
        cost = 0.0
        for task in self.plan.tasks:
            for item in self.costs[task]:
                cost += item
        return text_of(minute), minute / 1440, cost

    def _iterate(self, iteration):
        for task in self.plan.tasks:
            drawn = not task.summary and task.points
            self.durations[task] = round(self.stream.triangular(*task.points)) if drawn else task.duration
        for factor in self.factors:
            factor.drawn_duration = self.stream.triangular(*factor.duration) / 10000
        for factor in self.factors:
            factor.drawn_cost = self.stream.triangular(*factor.cost) / 10000
            factor.random, factor.applied = 0.0, False
        randoms = draw_occurrences(self.factors, self.stream)
        tasks = self._apply()
        _, finish, cost = self._outcome()
        for task in self.plan.critical():
            self.critical[task] = self.critical.get(task, 0) + 1
        self.finishes.append(finish)
        self.plan_costs.append(cost)
        for factor in self.factors:
            factor.occurrences += factor.applied
        self.trace.append({
            "iteration": iteration, "random": randoms,
            "occurred": [factor.applied for factor in self.factors],
            "duration": [factor.drawn_duration for factor in self.factors],
            "cost": [factor.drawn_cost for factor in self.factors],
            "tasks": tasks, "finish": finish, "planCost": cost})

    def _apply(self):
        """Stretches the carriers' durations and costs; tells the ordinary ones."""
        told, position = [], 0
        for task, series, parallel in self.carriers:
            duration, cost = multipliers(series, parallel)
            if task.summary:
                cost = 1.0
            else:
                sampled = self.durations[task]
                self.durations[task] = round(sampled * duration)
                told.append({"id": task.id, "sampled": sampled, "applied": self.durations[task]})
            count = len(task.costs)
            self.costs[task] = [base * cost for base in self.base[position:position + count]]
            position += count
        return told

    def _ranked(self, number, factor):
        def stored(value):
            return float("%.15g" % value)
        return {"id": number, "name": factor.name,
                "durSens": stored(correlation(self.finishes, factor.durations)),
                "costSens": stored(correlation(self.plan_costs, factor.costs)),
                "occurrences": factor.occurrences}

    def criticality(self):
        """The ordinary tasks in plan order with their share of critical iterations."""
        return [{"id": task.id, "criticality": self.critical.get(task, 0) / len(self.finishes)}
                for task in self.plan.tasks if not task.summary]

    def target(self, finish, cost):
        """The chances of a finish (text) and a cost; what is not given is the plan's own."""
        finish = finish or self.planned[0]
        cost = self.planned[2] if cost is None else cost
        serial = minute_of(finish) / 1440
        within = [(f <= serial, c <= cost) for f, c in zip(self.finishes, self.plan_costs)]
        share = lambda hits: sum(hits) / len(within)
        return {"finish": finish, "cost": cost, "chanceFinish": share([f for f, _ in within]),
                "chanceCost": share([c for _, c in within]), "chanceBoth": share([f and c for f, c in within])}
