#!/usr/bin/python3
"""What equal emptying rests on: the cycle of shares, when a sum that wraps still tells, and what a
line of combinations that exchange items of two units may step over. What wraps is proved for 32
bits."""

from z3 import And, BitVecs, If, Implies, Int, ULE, ULT, ZeroExt

from claims import Claims, grows, integers, is_quotient, reals

claims = Claims("Shares: cycle, bound and line")
word = 2**32

# Shares are true numbers below 2^31 where bounds are used.
a, b, c, d, e = BitVecs("a b c d e", 32)


def magnitude(difference):
    """A difference read as a signed number, without its sign."""
    return If(difference < 0, -difference, difference)


def true_distance(one, other):
    return If(ULT(one, other), ZeroExt(32, other) - ZeroExt(32, one),
              ZeroExt(32, one) - ZeroExt(32, other))


claims.prove("up to 2^31 a magnitude is the distance", ZeroExt(32, magnitude(a - b))
             == true_distance(a, b), [ULE(a, 2**31), ULE(b, 2**31)])
claims.refute("the magnitude of any two numbers is their distance",
              ZeroExt(32, magnitude(a - b)) == true_distance(a, b))
claims.prove("around a cycle of five the signed differences add up to 0, wrapped or not",
             (a - b) + (b - c) + (c - d) + (d - e) + (e - a) == 0)
p, q, r, s, t = integers("p q r s t")


def distance(one, other):
    return If(one < other, other - one, one - other)


claims.prove("the way over one more unit is no shorter than the way past it",
             distance(p, q) + distance(q, r) >= distance(p, r))
claims.prove("nor the way over two or three",
             And(distance(p, q) + distance(q, r) + distance(r, s) >= distance(p, s),
                 distance(p, q) + distance(q, r) + distance(r, s) + distance(s, t)
                 >= distance(p, t)))
claims.prove("two shares differ by the larger one at most", distance(p, q) <= If(p < q, q, p),
             [p >= 0, q >= 0])
claims.prove("and by no more than the larger of what they are at most",
             distance(p, q) <= If(s < t, t, s), [0 <= p, p <= s, 0 <= q, q <= t])
whole = Int("whole")
shares = [p, q, r, s, t]
within = [And(0 <= share, share <= whole) for share in shares]


def around(cycle):
    return sum(distance(one, other) for one, other in zip(cycle, cycle[1:] + cycle[:1]))


for size, most in ((3, 2), (4, 4), (5, 4)):
    claims.prove(f"around a cycle of {size} the differences add up to {most} whole units at most",
                 around(shares[:size]) <= most * whole, within)
claims.prove("so that of three units none comes to 2^32, nor of more below 2^30",
             And(2 * whole < word, Implies(whole < 2**30, 4 * whole < word)),
             [0 <= whole, whole < 2**31])
below = [And(0 <= share, share < 2**31) for share in shares]
claims.prove("where no share comes to 2^31, no sum comes to 2^33, and none of three to 2^32",
             And(around(shares) < 2 * word, around(shares[:4]) < 2 * word,
                 around(shares[:3]) < word), below)

# IsAbove: with three chosen shares at most, of which the sum is `least`.
least, best, total, score, multiple = integers("least best total score multiple")
above = [0 <= best, best < least, least <= total, 0 <= score, score < word,
         total == word * multiple + score]
claims.prove("a sum that does not come to 2^32 scores above the best", score > best,
             [*above, total < word])
claims.refute("every sum above the best scores above the best", score > best, above)

# ShareFor: items that an amount pays, value * count <= amount, by a rate of weight * 2^32 / value.
amount, value, weight, rate, count, quotient, held = integers(
    "amount value weight rate count quotient held")
rated = [0 <= amount, amount < word, value >= 1, weight >= 0, count >= 0, held >= 0,
         is_quotient(rate, weight * word, value), is_quotient(quotient, amount * rate, word)]
claims.prove("a count gives the share for what it pays, or 1 more", count * weight <= quotient + 1,
             [*rated, value * count <= amount, rate >= 0,
              grows(count, weight * word, rate * value + value),
              grows(rate + 1, value * count, amount)])
claims.prove("real numbers of items give less than 2 more", amount * weight < value * (quotient + 2),
             [*rated, grows(amount, weight * word, rate * value + value),
              grows(value, amount * rate + amount, (quotient + 2) * word - 2)])
claims.prove("and no less", value * quotient <= amount * weight,
             [*rated, grows(value, quotient * word, amount * rate),
              grows(amount, rate * value, weight * word)])
claims.prove("below what the unit holds it is less than the share of that",
             quotient < weight * held,
             [*rated, value * quotient <= amount * weight, amount <= value * held - 1, weight >= 1,
              grows(weight, amount, value * held - 1),
              Implies(quotient >= weight * held,
                      grows(value, weight * held, quotient))])
claims.prove("and 64 bits suffice", amount * rate < word * word,
             [*rated, amount <= value * held, rate >= 0, weight * held < word,
              grows(rate, amount, value * held), grows(held, rate * value, weight * word)])

# LargestOfTwo: a line between the places where the one and the other of two units pays most.
x, y, part, one, other, growth, steps = reals("x y part one other growth steps")


def size(number):
    return If(number < 0, -number, number)


claims.prove("a magnitude is convex along a line",
             size(x + part * (y - x)) <= size(x) + part * (size(y) - size(x)),
             [0 <= part, part <= 1])
claims.prove("so a sum of some is largest at an end", one + part * (other - one)
             <= If(one < other, other, one), [0 <= part, part <= 1])
claims.prove("two shares that are off by less than 2 change three differences by less than 8",
             size(x - p) + size(y - x) + size(q - y)
             < size(one - p) + size(other - one) + size(q - other) + 8,
             [size(x - one) < 2, size(y - other) < 2])
claims.prove("and the larger of two that are off by 1 is off by 1 at most",
             If(r < s, s, r) <= If(p < q, q, p) + 1, [r <= p + 1, s <= q + 1])

# Descend: on a line of five and more combinations, whose shares are below 2^31.
share, last_share, fall, rise, last = integers("share last_share fall rise last")
claims.prove("a step changes the sum by less than 2^31", 2 * (fall + rise) < 2**31,
             [last >= 4, fall >= 0, rise >= 0, share < 2**31, share - last * fall >= 0,
              last_share >= 0, last_share + last * rise < 2**31,
              grows(fall, 4, last), grows(rise, 4, last)])
claims.refute("so it does on shorter ones", 2 * (fall + rise) < 2**31,
              [fall >= 0, rise >= 0, share < 2**31, share - 3 * fall >= 0,
               last_share >= 0, last_share + 3 * rise < 2**31])
claims.prove("ahead of a place a magnitude is no less than its growth there tells",
             size(x + steps * growth) >= size(x) + If(x < 0, -steps * growth, steps * growth),
             [steps >= 0])
floor, excess, turns, fall = integers("floor excess turns fall")
claims.prove("whatever is stepped over is above the best", total - turns * fall > floor + best,
             [fall >= 1, turns >= 0, excess <= total - floor - best - 1, excess >= 0,
              is_quotient(quotient, excess, fall), turns <= quotient,
              grows(fall, turns, quotient)])
claims.finish()
