#!/usr/bin/python3
"""Why LimitBound loses no combination within the dispense limit. Integers; all numbers of the code
fit into 64 bits, because a limit has 16 and a value 32."""

from z3 import And, Implies

from claims import Claims, integers, is_quotient

claims = Claims("The bound by the dispense limit")

notes, coins, taken, after_notes, after_coins = integers("notes coins taken after_notes after_coins")
value, largest, other_largest, rest, paid, shortfall = integers(
    "value largest other_largest rest paid shortfall")
reach, bound = integers("reach bound")

a, b, c, d = integers("a b c d")
va, vb, vc, vd = integers("va vb vc vd")
pairs = [(a, va), (b, vb), (c, vc), (d, vd)]
for size in range(1, 5):
    used = pairs[:size]
    claims.prove(f"{size} units of a kind pay no more than their items of the largest value",
                 sum(n * v for n, v in used) <= sum(n for n, _ in used) * largest,
                 [And(n >= 0, 0 <= v, v <= largest, n * v <= n * largest) for n, v in used])

# This unit is of the kind that the limit leaves `notes` of; what is left of the other kind stays.
within = [notes >= 0, coins >= 0, taken >= 0, taken <= notes, after_notes >= 0, after_coins >= 0,
          taken + after_notes <= notes, after_coins <= coins, largest >= 0, other_largest >= 0,
          value >= 1, paid <= after_notes * largest + after_coins * other_largest,
          after_notes * largest <= (notes - taken) * largest,
          after_coins * other_largest <= coins * other_largest,
          rest == value * taken + paid + shortfall, shortfall >= 0,
          reach == notes * largest + coins * other_largest + shortfall]
claims.prove("what a combination within the limit pays is within reach of its count",
             rest <= reach + taken * (value - largest), within)
gained = [rest <= reach + taken * (value - largest), taken >= 0, value >= 1, largest >= 0]
claims.prove("out of reach, a unit of the largest value or less cannot help",
             Implies(value <= largest, rest <= reach),
             gained)
claims.prove("out of reach, a larger value has to be taken often enough", taken >= bound,
             [*gained, reach < rest, value > largest, bound >= 1,
              (value - largest) * (bound - 1) <= rest - reach - 1])
claims.prove("within reach, a smaller value can be taken only so often", taken <= bound,
             [*gained, reach >= rest, value < largest,
              is_quotient(bound, reach - rest, largest - value)])

limit = 2**16
number = 2**32
claims.prove("the reach fits into 64 bits", reach < 2**64,
             [0 <= notes, notes < limit, 0 <= coins, coins < limit, 0 <= largest,
              largest < number, 0 <= other_largest, other_largest < number,
              0 <= shortfall, shortfall < number,
              notes * largest <= limit * largest, coins * other_largest <= limit * other_largest,
              reach == notes * largest + coins * other_largest + shortfall])
claims.finish()
