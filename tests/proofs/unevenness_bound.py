#!/usr/bin/python3
"""Why UnevennessBound never skips a combination that could win.

Chosen counts c: their number, `items` their sum, `squared` the sum of their squares. Free counts n,
of units with values v: f units, s the sum of v, q that of v v; they take T items and pay P. The
score is k F with F = k (squared + sum of n n) - (items + T)^2 and k = chosen + f."""

from z3 import Real

from claims import Claims, reals

claims = Claims("The least score that first counts allow")

for f in range(1, 5):
    v = reals(" ".join(f"v{i}" for i in range(f)))
    n = reals(" ".join(f"n{i}" for i in range(f)))
    s, q, total, paid = sum(v), sum(x * x for x in v), sum(n), sum(x * y for x, y in zip(v, n))
    squares = sum(x * x for x in n)
    minors = 0
    for i in range(f):
        for j in range(i + 1, f):
            for h in range(j + 1, f):
                minor = (n[i] * (v[j] - v[h]) - n[j] * (v[i] - v[h]) + n[h] * (v[i] - v[j]))
                minors = minors + minor * minor
    claims.prove_identity(
        f"{f} free: squares times variance are the least possible and squares on top",
        squares * (f * q - s * s),
        total * total * q - 2 * total * paid * s + paid * paid * f + minors)
    pairs = sum((v[i] - v[j]) * (v[i] - v[j]) for i in range(f) for j in range(i + 1, f))
    claims.prove_identity(f"{f} free: the variance is a sum of squares, 0 for equal values",
                          f * q - s * s, pairs + 0 * s)

k, chosen, f, s, q, T, P, items, squared = reals("k chosen f s q T P items squared")
left, most, variance = reals("left most variance")
units = chosen + f
D = f * q - s * s


def scaled_least(t, p):
    """F times the variance when t free items pay p most evenly."""
    return (units * squared * D + units * (t * t * q - 2 * t * p * s + p * p * f)
            - D * (items + t) * (items + t))


excess = f * P - T * s
claims.prove_identity("all items of the limit: what the code compares with",
                      units * (squared * f * D + T * T * D + excess * excess)
                      - (items + T) * (items + T) * f * D,
                      f * scaled_least(T, P))
divisor = chosen * q + s * s
least = (chosen * squared - items * items) * q + squared * s * s - 2 * items * P * s \
    + chosen * P * P
claims.prove_identity("any number of items: the rest is a square",
                      divisor * scaled_least(T, P) - units * D * least,
                      (divisor * T - units * P * s - D * items)
                      * (divisor * T - units * P * s - D * items))
more = Real("more")
claims.prove_identity("fewer items than the limit: how the least score changes",
                      scaled_least(T - more, P) - scaled_least(T, P),
                      more * more * (units * q - D)
                      - 2 * more * (units * (T * q - P * s) - D * (items + T)))
claims.prove("so where it falls towards the limit, fewer items score no less",
             more * more * (units * q - D)
             - 2 * more * (units * (T * q - P * s) - D * (items + T)) >= 0,
             [more >= 0, Real("slope") == units * (T * q - P * s) - D * (items + T),
              Real("slope") < 0, more * Real("slope") <= 0,
              units * q - D == chosen * q + s * s, more * more * (chosen * q + s * s) >= 0])

# One free unit, or free units of equal values v: T items pay P = T v.
v, squares = reals("v squares")
claims.prove_identity("equal values: the least score of evenly spread free items",
                      (chosen * squared - items * items) * (f * v * v)
                      + squared * (f * v) * (f * v) - 2 * items * (T * v) * (f * v)
                      + chosen * (T * v) * (T * v),
                      v * v * (f * (units * squared - (items + T) * (items + T)) + units * T * T))

# What may stay unpaid: F is convex in items and payment, so beyond its lowest point it only rises.
t, p = reals("t p")
claims.prove_identity("F is convex: along every direction it bends upwards",
                      (chosen * q + s * s) * (scaled_least(T + t, P + p) - 2 * scaled_least(T, P)
                                              + scaled_least(T - t, P - p)),
                      2 * ((chosen * q + s * s) * t - units * s * p)
                      * ((chosen * q + s * s) * t - units * s * p)
                      + 2 * units * chosen * D * p * p)
u = Real("u")
claims.prove_identity("at the even payment, T = f u and P = s u, all free counts are u",
                      scaled_least(f * u, s * u),
                      D * (units * squared + units * f * u * u
                           - (items + f * u) * (items + f * u)))
claims.prove_identity("whose score is lowest where u is the average of the chosen counts",
                      chosen * (units * squared + units * f * u * u
                                - (items + f * u) * (items + f * u)),
                      f * (chosen * u - items) * (chosen * u - items)
                      + units * (chosen * squared - items * items))

# The comparison: a real bound of F against the score aimed at, in whole numbers.
F, aim, whole, score = reals("F aim whole score")
claims.prove("F at floor(aim / k) + 1 or more scores above the aim", units * F > aim,
             [units >= 1, F >= whole + 1, units * (whole + 1) > aim,
              units * F >= units * (whole + 1)])

# 64 bits. Everything is in units of m = values' sum times limit, below 2^26: L items are at most
# 2 m, what is left is at most 3 m by the limit's bound, and k is at most 5.
m, rest, scale = reals("m rest scale")
claims.prove("no number of the bound reaches 2^63",
             5 * (4 * 16 + 4 * 4) * m * m + 5 * (4 * 3 * m + 2 * m) * (4 * 3 * m + 2 * m) < 2**63,
             [0 <= m, m <= 2**26, m * m <= 2**52])
claims.finish()
