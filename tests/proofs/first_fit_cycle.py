#!/usr/bin/python3
"""Why first-fit emptying with three and more units can be decided from a few lines of its cycle of
2^32 (FirstFitCycle.h). Integers, and reals where an end of a line is no whole number of items."""

from z3 import And, If, Implies, Or

from claims import Claims, grows, integers, is_quotient, reals

claims = Claims("The cycle of first-fit emptying")

WORD = 2**32

# A line: its number, its rest; on the next one the rest is `outer` more, modulo 2^32.
first, number, rest, outer, step = integers("first number rest outer step")
claims.prove_identity("after 2^32 lines rests repeat", first + (number + WORD) * outer,
                      first + number * outer + WORD * outer)
claims.prove("the rest of a line is computed within 64 bits", first + number * outer < 2**64,
             [first < WORD, outer < WORD, 0 <= number, number <= WORD,
              grows(number, outer, WORD - 1), grows(WORD - 1, number, WORD)])

# NothingWrapsTwice: a total of line 0 is `taken`, at most all counts; on each line it is one less.
taken, counts, past_zero, limit, total = integers("taken counts past_zero limit total")
narrow = [0 <= counts, 0 <= past_zero, 0 <= limit, 2 + limit + past_zero + counts < 2**31,
          -past_zero <= taken, taken <= counts]
first_lines, last_lines = counts + 1, limit + past_zero + 1
lines = [*narrow, 0 <= number, number < WORD, total == taken - number]
within = total % WORD <= limit
claims.prove("a line within the limit is one of the first or of the last",
             Implies(within, Or(number < first_lines, number >= WORD - last_lines)), lines)
claims.refute("it is one of the first", Implies(within, number < first_lines), lines)
claims.refute("two lines fewer at the end are enough",
              Implies(within, Or(number < first_lines, number >= WORD - last_lines + 2)), lines)
claims.refute("one line fewer at the start is enough",
              Implies(within, Or(number < first_lines - 1, number >= WORD - last_lines)), lines)
claims.prove("first and last lines do not meet", first_lines < WORD - last_lines, narrow)
claims.prove("on the first lines the total has not wrapped",
             within == And(0 <= total, total <= limit), [*lines, number < first_lines])
claims.prove("on the last lines it has wrapped once",
             within == And(0 <= total + WORD, total + WORD <= limit),
             [*lines, number >= WORD - last_lines])
claims.prove("the total that the outer unit is no part of never wraps twice",
             (taken % WORD <= limit) == And(0 <= taken, taken <= limit), narrow)

# GoOn
run = [1 <= outer, outer < WORD, 0 <= rest, rest < WORD]
to_next, gone, room = integers("to_next gone room")
claims.prove("the step to the next run is the first that takes more than the room for the rest",
             (step * outer > room) == (step >= to_next + 1),
             [1 <= outer, is_quotient(to_next, room, outer), grows(outer, step, to_next),
              grows(outer, to_next + 1, step)])
claims.prove("and so wraps it once",
             And(WORD <= rest + gone + outer, rest + gone + outer < 2 * WORD),
             [outer < WORD, gone <= WORD - 1 - rest, WORD - 1 - rest < gone + outer])
claims.prove("a step that is cut to 2^32 - 1 lines is multiplied within 64 bits",
             rest + step * outer < 2**64,
             [*run, 0 <= step, step < WORD, grows(step, outer, WORD - 1),
              grows(WORD - 1, step, WORD - 1)])
claims.prove("only a run of the whole cycle has so many lines",
             And(outer == 1, rest == 0), [*run, rest + (WORD - 1) * outer < WORD])

# Lines of a run: the outer value is g o, the divisor of the last two g s, a rest g times a number,
# and o f = 1 + s t.
g, o, s, f, t, missing, turns, whole = integers("g o s f t missing turns whole")
k, quotient = integers("k quotient")
claims.prove_identity("LinesToDivisible lines on the divisor divides the rest: missing f - s turns",
                      (s * whole - missing) + (missing * f - s * turns) * o
                      - s * (whole + missing * t - turns * o),
                      missing * (f * o - 1 - s * t))
claims.prove_identity("and only as many whole strides after, so every stride once",
                      k - missing * f - s * (f * (quotient - whole) - k * t),
                      f * (k * o - missing - s * (quotient - whole)) - k * (f * o - 1 - s * t))
claims.prove_identity("it is never 0 lines: missing f = s turns makes missing a multiple of s",
                      missing - s * (turns * o - missing * t),
                      o * (missing * f - s * turns) - missing * (f * o - 1 - s * t))
claims.prove_identity("no line of a run is divided where g does not divide its rest",
                      rest - g * (quotient * s - k * o),
                      rest + k * (g * o) - quotient * (g * s))
claims.prove("a residue times the factor stays within 64 bits", missing * f < 2**64,
             [0 <= missing, missing < WORD, 0 <= f, f < WORD, grows(missing, f, WORD),
              grows(WORD, missing, WORD)])

# LinesOffLimit. Of the rest the last but one unit pays `paid`, the last one the others; p and q are
# the items of the kind for each currency unit that they pay: 1 / value, or 0 for another kind.
p, q, R, M, N, paid, more = reals("p q R M N paid more")


def most_of_inner(amount):
    return If(amount <= M, p * amount, p * M + q * (amount - M))


def most_of_last(amount):
    return q * N + p * (amount - N)


line = [p >= 0, q >= 0, M >= 0, N >= 0, paid <= R, paid <= M, R - paid <= N]
kind = p * paid + q * (R - paid)
claims.prove("a combination lies between the ends of its line: upwards to the most of the last",
             And(most_of_inner(R) <= kind, kind <= most_of_last(R)), [*line, p <= q])
claims.prove("or downwards",
             And(most_of_last(R) <= kind, kind <= most_of_inner(R)), [*line, p >= q])
slope = If(R <= M, p, q)
claims.prove("a lower end turns upwards: its slope leads below it on all later lines",
             most_of_inner(R + more) >= most_of_inner(R) + more * slope,
             [more >= 0, p >= 0, p <= q])
claims.prove("an upper end turns downwards: its slope leads above it",
             most_of_inner(R + more) <= most_of_inner(R) + more * slope,
             [more >= 0, q >= 0, p >= q])
claims.prove_identity("the other end is straight",
                      most_of_last(R + more), most_of_last(R) + more * p)
D, given, exchanged, I, L = reals("D given exchanged I L")
claims.prove_identity("ChangeOf tells which end is the lower: value = D given, last = D exchanged",
                      D * given * exchanged * (L * q - I * p),
                      L * given * (D * exchanged * q - 1) - I * exchanged * (D * given * p - 1)
                      + L * given - I * exchanged)

# LinesToMake: `change` / `value` items a line; the end is `items` above the limit, or below 0.
end, then, whole_items, value = reals("end then whole_items value")
change, items, hop = reals("change items hop")
falls = [value > 0, change > 0, items == whole_items - limit, whole_items <= end,
         value * then >= value * end - more * change, more >= 0, more <= hop - 1,
         change * (hop - 1) < items * value]
claims.prove("an end above the limit stays there before so many lines",
             value * then > value * limit,
             [*falls, value * whole_items <= value * end, change * more <= change * (hop - 1)])
claims.prove("an end below 0 stays there before so many lines", value * then < 0,
             [value > 0, change > 0, items == -(whole_items + 1), end < whole_items + 1,
              value * then <= value * end + more * change, more >= 0,
              Or(more == 0, more <= hop - 1), items >= 0, change * (hop - 1) < items * value,
              value * end < value * (whole_items + 1), change * more <= change * (hop - 1)])
money, below = integers("money below")
claims.prove("items below 0 are rounded down too", is_quotient(-(below + 1), rest - money, outer),
             [1 <= outer, rest < money, is_quotient(below, money - rest - 1, outer)])
above, worth, rises = integers("above worth rises")
claims.prove("the product and its rounding stay within 64 bits", above * worth + rises - 1 < 2**64,
             [0 <= above, above <= counts + 2 * past_zero + 1, *narrow, 1 <= worth, worth < WORD,
              rises < WORD, grows(above, worth, WORD - 1), grows(WORD - 1, above, WORD - 6)])
claims.finish()
