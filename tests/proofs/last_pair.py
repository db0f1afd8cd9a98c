#!/usr/bin/python3
"""Why the innermost loop of first-fit emptying can be solved instead of stepped (LastPair.h), and
what the hops over two units rest on (TwoUnitFit.h). Integers; that the numbers of the code stay
within their 32 or 64 bits is shown beside each."""

from z3 import And, Implies

from claims import Claims, grows, integers, is_quotient

claims = Claims("The innermost loop of first-fit emptying, and two units")

WORD = 2**32

# The last but one unit: its value and count. The last one: its value, and how many it holds; from
# `short_from` left to it on it is short.
value, count, last, held = integers("value count last held")
rest, most, left, needed = integers("rest most left needed")
short_from, past_zero = integers("short_from past_zero")
limit, others, worth, step, fewer = integers("limit others worth step fewer")

# NothingWrapsTwice
claims.prove("where the last unit is short fits into 64 bits, and an item of the other on top",
             (held + 1) * last + value < 2**64,
             [0 <= held, held < WORD, 1 <= last, last < WORD, value < WORD,
              grows(last, held + 1, WORD), grows(WORD, last, WORD - 1)])
fits = [1 <= value, short_from + value <= WORD]
claims.prove("then the sum of all items that is held to 2^31 does not wrap itself",
             2 + limit + past_zero + others < 2**64,
             [*fits, limit < 2**16, others <= 5 * (WORD - 1),
              is_quotient(past_zero, short_from, value), grows(value, WORD, past_zero),
              grows(WORD, 1, value)])
claims.prove("what the last unit is worth fits into 32 bits", worth < WORD,
             [*fits, short_from == worth + last, 1 <= last])

# The loop: what is left to the last unit starts at `left`, and rises by `value` a step.
claims.prove("the last unit is short from its count and one more on, and not before",
             (needed > held) == (left >= last * held + last),
             [1 <= last, is_quotient(needed, left, last), grows(last, needed, held),
              grows(last, held + 1, needed)])
claims.prove("the loop starts with no more left than the rest", And(0 <= left, left <= rest),
             [left == rest - value * most, 1 <= value, 0 <= most, most <= needed,
              is_quotient(needed, rest, value), grows(value, most, needed), grows(value, 0, most)])
claims.prove("from the reach on it starts with the whole unit, and ends at its first step",
             And(needed >= count, rest - value * count >= short_from),
             [rest >= value * count + short_from, 0 <= short_from, 1 <= value,
              is_quotient(needed, rest, value), grows(value, needed + 1, count)])
claims.prove("while the last unit is not short, one step more does not wrap", left + value < WORD,
             [*fits, left < short_from])
claims.refute("without the condition what is left does not wrap before the last unit is short",
              left + value < WORD, [1 <= value, left < short_from, left < WORD])
claims.prove("no more counts than these lie below 0 before the last unit is short",
             most - step >= -past_zero,
             [1 <= value, 0 <= most, 0 <= left, left + value * step < short_from,
              is_quotient(past_zero, short_from, value), grows(value, past_zero + 1, step)])

# FindPoints. With everything divided by the divisor g of both values: value = g given, last =
# g taken, left = g (taken whole - missing), given factor = 1 + taken t.
g, given, taken, factor, t = integers("g given taken factor t")
whole, missing, turns = integers("whole missing turns")
k, quotient = integers("k quotient")
claims.prove_identity(
    "`fewer` steps on the last unit divides what is left: fewer = missing factor - taken turns",
    (taken * whole - missing) + (missing * factor - taken * turns) * given
    - taken * (whole + missing * t - turns * given),
    missing * (factor * given - 1 - taken * t))
claims.prove_identity(
    "and only then: left + k given = taken quotient gives k the residue of missing factor",
    k - missing * factor - taken * (factor * (quotient - whole) - k * t),
    factor * (k * given - missing - taken * (quotient - whole))
    - k * (factor * given - 1 - taken * t))
residue = [1 <= taken, 0 <= fewer, fewer < taken]
claims.prove("of these steps `fewer` is the first", k >= fewer,
             [*residue, k == fewer + taken * turns, 0 <= k, grows(taken, turns, -1)])
claims.prove("the product of a residue and the factor fits into 64 bits", missing * factor < 2**64,
             [0 <= missing, missing < WORD, 0 <= factor, factor < WORD,
              grows(missing, factor, WORD), grows(WORD, missing, WORD)])
claims.prove("and so does what is left `fewer` steps on", left + fewer * value < 2**64,
             [*residue, taken < WORD, value < WORD, left < WORD, grows(fewer, value, WORD - 1),
              grows(WORD - 1, fewer, WORD - 2)])
taken_last, further, turn = integers("taken_last further turn")
claims.prove_identity("from one combination to the next the last unit takes `given` items more",
                      g * taken * taken_last + taken * (g * given),
                      g * taken * (taken_last + given))
claims.prove("`further` of them follow before the last unit has no more",
             And(0 <= further,
                 Implies(turn >= 0, (taken_last + given * turn <= held) == (turn <= further))),
             [1 <= given, 0 <= taken_last, taken_last <= held,
              is_quotient(further, held - taken_last, given), grows(given, turn, further),
              grows(given, further + 1, turn), grows(given, further, -1)])
claims.prove("a rest from the reach on has none", left + fewer * value > last * held,
             [1 <= value, 1 <= last, left >= last * held + last, 0 <= fewer,
              grows(value, 0, fewer)])

# A total of items, before it wraps. `items` is what NothingWrapsTwice holds to 2^31.
total, items, rise = integers("total items rise")
claims.prove("a total that lies less than 2^31 from 0 is within the limit as it reads",
             (total % WORD <= limit) == And(0 <= total, total <= limit),
             [0 <= limit, limit < 2**16, -2**31 < total, total < 2**31])
# KeepWithinLimit
claims.prove("seen from the limit, what falls rises",
             And(0 <= total, total <= limit) == And(0 <= limit - total, limit - total <= limit))
first, end = integers("first end")
kept = [0 <= limit, 1 <= rise, 0 <= turn]
claims.prove("turns that come to 0 or more begin at `first`",
             (total + rise * turn >= 0) == (turn >= first + 1),
             [*kept, total < 0, is_quotient(first, -total - 1, rise), grows(rise, turn, first),
              grows(rise, first + 1, turn)])
claims.prove("turns that come to the limit at most end at `end`",
             (total + rise * turn <= limit) == (turn <= end),
             [*kept, total <= limit, is_quotient(end, limit - total, rise),
              grows(rise, turn, end), grows(rise, end + 1, turn)])
sum_of_counts = items - 2 - limit - past_zero
claims.prove("what these divide fits into 32 bits, for a total and for one seen from the limit",
             And(-total < WORD, limit - total < WORD, total - limit < WORD, total < WORD),
             [items < 2**31, 0 <= limit, 0 <= past_zero, sum_of_counts >= 0,
              -sum_of_counts - past_zero <= total,
              total <= sum_of_counts + limit + past_zero + 1])

# TwoUnitFit: the count of the first unit falls by one a step, the last takes what fits.
steady = [1 <= value, 1 <= last, is_quotient(needed, left, last),
          is_quotient(quotient, left + value, last), grows(last, needed + 1, quotient),
          grows(last, quotient + 1, needed), grows(last, quotient + 1, needed + 1),
          grows(last, needed + 2, quotient)]
claims.prove("a step gives the last unit one item more or none, if its value is the larger",
             And(needed <= quotient, quotient <= needed + 1), [*steady, value < last])
claims.prove("and one at least, if it is not", quotient >= needed + 1, [*steady, value >= last])
claims.prove("the total of both falls from one combination to the next where it falls by steps",
             (given - taken < 0) == (value < last),
             [1 <= g, value == g * given, last == g * taken, grows(g, given, taken),
              grows(g, taken, given), grows(g, given + 1, taken)])
claims.prove("what falls by one a step at most is not within the limit before the hop's end",
             total - step > limit, [0 <= step, step < total - limit])

# The hop: total - limit steps on, where it can lie beyond the step at which the last unit is short.
amount, hopped = integers("amount hopped")
claims.prove_identity("where both count, a hop leaves amount + value extra: extra = needed - limit",
                      (amount - value * most) + value * (most + needed - limit),
                      amount + value * (needed - limit))
claims.prove("where the first unit counts alone, a hop leaves no more than the amount",
             value * (most - (most - limit)) >= 0, [1 <= value, 0 <= limit, grows(value, 0, limit)])
extra, grown = integers("extra grown")
beyond = [amount < WORD, hopped == amount + grown, WORD <= hopped]
claims.prove("what a hop leaves wraps once at most: value extra < last needed <= left",
             hopped - WORD < WORD, [*beyond, grown < worth, worth <= left, left < WORD])
claims.prove("and then leaves less than value extra", hopped - WORD < grown, beyond)
claims.prove("with which the total is below 0: the search ends there too", k - extra < 0,
             [left < grown, grown <= last * extra, is_quotient(k, left, last), 1 <= last,
              grows(last, extra, k)])
claims.refute("a hop never wraps", hopped < WORD, [*beyond[:-1], grown < worth, worth < WORD])
claims.finish()
