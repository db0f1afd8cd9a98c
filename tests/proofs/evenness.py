#!/usr/bin/python3
"""What equal notes rest on: how the score is added up, and the band."""

from z3 import And, Int

from claims import Claims, grows, integers, reals

claims = Claims("Evenness: scores and band")

# Polynomials that are the same are equal among wrapping numbers too.
for k in range(2, 6):
    counts = reals(" ".join(f"n{i}" for i in range(k)))
    items = sum(counts)
    claims.prove_identity(f"the score of {k} units needs no sum of squared differences",
                          sum((k * n - items) * (k * n - items) for n in counts),
                          k * (k * sum(n * n for n in counts) - items * items))
    claims.prove_identity(f"and is that of all pairs of {k} units",
                          k * (k * sum(n * n for n in counts) - items * items),
                          k * sum((counts[i] - counts[j]) * (counts[i] - counts[j])
                                  for i in range(k) for j in range(i + 1, k)))
x, y = reals("x y")
claims.prove("two terms cost at least half the square of their difference",
             2 * (x * x + y * y) >= (x - y) * (x - y))
k, n, m, width = reals("k n m width")
claims.prove_identity("and with x = k n - S, y = k m - S that difference is k (n - m)",
                      (k * n - x) - (k * m - x), k * (n - m))

# Scores of combinations within the limit: below k k S S, so true while that is below 2^32.
for k in range(2, 6):
    counts = integers(" ".join(f"n{i}" for i in range(k)))
    items = sum(counts)
    claims.prove(f"no score of {k} units is above k k S S",
                 k * (k * sum(n * n for n in counts) - items * items) <= k * k * items * items,
                 [And(n >= 0, n * n <= n * items) for n in counts] + [items >= 0])

# The band: counts differ by at most `width`, and what is left is paid up to `unpaid`.
rest, count, other, unpaid, width, value = integers("rest count other unpaid width value")
claims.prove("a unit of the band pays what `count` items of it would pay, up to `width` items",
             And(value * other <= value * count + value * width,
                 value * other >= value * count - value * width),
             [grows(value, other, count + width), grows(value, count - width, other), value >= 0,
              other <= count + width, other >= count - width])
for size in range(1, 5):
    # By unit after this one: what it pays, what `count` items and what `width` items would pay.
    paid = integers(" ".join(f"paid{i}" for i in range(size)))
    alike = integers(" ".join(f"alike{i}" for i in range(size)))
    slack = integers(" ".join(f"slack{i}" for i in range(size)))
    own = Int("own")
    pays = [rest == own + sum(paid) + unpaid]
    pays += [And(one <= same + most, one >= same - most)
             for one, same, most in zip(paid, alike, slack)]
    claims.prove(f"a unit before {size} others keeps to what the band allows",
                 And(own + sum(alike) <= rest - unpaid + sum(slack),
                     own + sum(alike) >= rest - unpaid - sum(slack)), pays)

# Band: sum of all values times the limit is below 2^26, and a width is below four times the limit.
limit, total, slack, shortfall = integers("limit total slack shortfall")
claims.prove("no sum of the band wraps", And(rest + slack < 2**32, slack + shortfall < 2**32),
             [limit >= 1, total >= 1, total * limit < 2**26, 0 <= width, width < 4 * limit,
              grows(total, width, 4 * limit), slack <= total * width, slack >= 0,
              0 <= shortfall, shortfall < total, total <= total * limit, 0 <= rest, rest < 2**31])
claims.finish()
