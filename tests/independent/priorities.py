"""What each factor costs, recomputed from the rules: the analysis again without some factors."""

from analysis import Analysis, percentile


def priorities(plan, iterations, measure, share):
    """The figures that `kestrel prioritise --json` should write; `share` in percent."""
    known = {}

    def at(silent):
        if silent not in known:
            run = Analysis(plan, iterations, plan.seed, sorted(silent))
            known[silent] = percentile(sorted(run.finishes if measure == "finish" else run.plan_costs), share / 100)
        return known[silent]

    base = Analysis(plan, iterations, plan.seed)
    carried = [number for number, factor in enumerate(base.factors, 1) if factor.carried]
    everything = frozenset(range(1, len(base.factors) + 1))
    result = {"plan": plan.name, "iterations": iterations, "seed": plan.seed, "measure": measure,
              "percentile": share, "deterministic": base.planned[1 if measure == "finish" else 2],
              "all": at(frozenset()), "none": at(everything), "factors": [], "sequence": []}
    for number in carried:
        without = at(frozenset([number]))
        result["factors"].append({"id": number, "name": base.factors[number - 1].name, "without": without,
                                  "saved": result["all"] - without})
    silent = frozenset()
    while left := [number for number in carried if number not in silent]:
        best = min(left, key=lambda number: (at(silent | {number}), number))
        after = at(silent | {best})
        if after >= at(silent):
            break
        result["sequence"].append({"id": best, "after": after, "saved": at(silent) - after})
        silent |= {best}
    return result
