#!/usr/bin/python3
"""Why a walk may step over counts by a stride: only counts of one residue leave a rest that the
values after divide. `g` divides everything: value = g v, divisor of the values after = g d."""

from z3 import And, If, Implies, Or

from claims import Claims, grows, integers

claims = Claims("Residue and stride of the walk, and the factor that tells the residue")

g, v, d, f, t = integers("g v d f t")
rest, count, turns, quotient = integers("rest count turns quotient")
# v f = 1 modulo d, because f is the inverse of v: v f = 1 + d t.
claims.prove_identity(
    "a count of the residue leaves a rest that is divided: rest = g r, n = r f + d s",
    g * rest - g * v * (rest * f + d * turns),
    g * d * (-(rest * t + v * turns)) - g * rest * (v * f - 1 - d * t))
claims.prove_identity(
    "a count that leaves a rest that is divided has the residue: g r - g v n = g d q",
    count - rest * f,
    d * -(f * quotient + t * count) - f * (rest - v * count - d * quotient)
    - count * (v * f - 1 - d * t))
claims.prove("nothing continues where the rest is not divided by g", Implies(
    g * rest - g * v * count == g * d * quotient, rest == v * count + d * quotient), [g >= 1])

# KeepDivisible: the next count from low on that has the residue, and the last one.
low, high, stride, residue, low_residue, step, k, other = integers(
    "low high stride residue low_residue step k other")
sound = [stride >= 1, low >= 0, 0 <= residue, residue < stride, 0 <= low_residue,
         low_residue < stride, low == stride * k + low_residue,
         step == If(residue >= low_residue, residue - low_residue,
                    stride - (low_residue - residue))]
claims.prove("the step leads to a count of the residue",
             Or(low + step == stride * k + residue, low + step == stride * (k + 1) + residue),
             sound)
claims.prove("and to the first one from low on", And(0 <= step, step < stride), sound)

# LastUnitFits: the others' divisor g m divides their values, so it is no more than any of them.
m, held, before, k = integers("m held before k")
claims.prove("a unit that holds (held + 1) g, no less than a value before it, has every residue",
             residue <= held,
             [g >= 1, m >= 1, k >= 1, before == g * m * k, (held + 1) * g >= before, residue < m,
              grows(g * m, 1, k), Implies(held + 1 < m, g * (held + 1) < g * m)])

# CommonDivisorOf: Euclid's algorithm with the factor of the first number.
value, modulus, a, b, p, q, m, n = integers("value modulus a b p q m n")
claims.prove_identity("a remainder stays the value times its factor, modulo the other number",
                      (value * p + modulus * m) - q * (value * b + modulus * n),
                      value * (p - q * b) + modulus * (m - q * n))
r, next_r, size, next_size = integers("r next_r size next_size")
claims.prove_identity("remainders and sizes of factors keep making up the other number",
                      next_r * (size + q * next_size) + (r - q * next_r) * next_size,
                      r * next_size + next_r * size)
# At the end next_r = 0, r is the divisor; the step before had a quotient of at least 2.
claims.prove("the size of the last factor is within half of other / divisor",
             2 * r * size <= modulus,
             [r >= 1, size >= 0, q >= 2, m >= 0, next_size == m + q * size,
              r * next_size == modulus, r * m >= 0, r * size * (q - 2) >= 0])
claims.prove("so it fits a signed number of 32 bits", size < 2**31,
             [r >= 1, size >= 0, 2 * r * size <= modulus, modulus < 2**32, size <= r * size])
claims.finish()
