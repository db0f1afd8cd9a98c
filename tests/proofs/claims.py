"""Proves claims with z3 and tells what became of each. Every other file here states some."""

import sys

import z3

TIMEOUT_MS = 120_000


class Claims:
    """The claims of one file; `finish` ends the process, with 1 when one of them does not hold."""

    def __init__(self, about):
        self.failed = 0
        print(about)

    def prove(self, sentence, claim, given=()):
        """Whether `claim` follows from `given`: z3 finds nothing that satisfies the opposite."""
        solver = z3.Solver()
        solver.set("timeout", TIMEOUT_MS)
        solver.add(*given)
        solver.add(z3.Not(claim))
        self._tell(sentence, solver)

    def prove_identity(self, sentence, left, right):
        """Whether two polynomials are the same, and so equal in every commutative ring: among
        integers, among reals, and among numbers that wrap."""
        solver = z3.Solver()
        solver.add(z3.simplify(left - right, som=True, mul_to_power=True) != 0)
        self._tell(sentence, solver)

    def refute(self, sentence, claim, given=()):
        """Whether `claim` does not follow: shows that a condition is needed."""
        solver = z3.Solver()
        solver.set("timeout", TIMEOUT_MS)
        solver.add(*given)
        solver.add(z3.Not(claim))
        found = solver.check() == z3.sat
        print(f"  {'refuted' if found else 'NOT REFUTED'}: {sentence}")
        self.failed += not found

    def _tell(self, sentence, solver):
        result = solver.check()
        if result == z3.unsat:
            print(f"  proved: {sentence}")
            return
        self.failed += 1
        print(f"  NOT PROVED ({result}): {sentence}")
        if result == z3.sat:
            print(f"    {solver.model()}")

    def finish(self):
        sys.exit(1 if self.failed else 0)


def integers(names):
    return z3.Ints(names)


def reals(names):
    return z3.Reals(names)


def grows(factor, smaller, larger):
    """Multiplying by a factor of 0 or more keeps the order: what z3 is told where a proof needs it,
    since it looks for such products only by chance. early_end.py proves it."""
    return z3.Implies(z3.And(factor >= 0, smaller <= larger), factor * smaller <= factor * larger)


def is_quotient(quotient, dividend, divisor):
    """quotient = dividend / divisor, rounded down, of integers with divisor > 0."""
    return z3.And(divisor * quotient <= dividend, dividend < divisor * quotient + divisor)
