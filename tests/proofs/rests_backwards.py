#!/usr/bin/python3
"""Why the nearest line with a rest that the last two units pay is found by Euclid's algorithm
(RestsBackwards.h), and why few series hold all such rests (PairRests.h). Integers."""

from z3 import And, If, Implies, Or

from claims import Claims, grows, integers, is_quotient

claims = Claims("Lines with rests that the last two units pay")

WORD = 2**32

# The inverse of an odd number: odd * inverse = 1 + error, modulo 2^32.
odd, inverse = integers("odd inverse")
claims.prove_identity("each line squares the error, and so doubles the bits that are right",
                      odd * inverse * (2 - odd * inverse) - 1,
                      -(odd * inverse - 1) * (odd * inverse - 1))
claims.prove_identity("at first three are: of the even numbers beside an odd one 4 divides one",
                      odd * odd - 1, (odd - 1) * (odd + 1))

# From line to line backwards the rest falls by `value`; asked for are first + index * distance.
# With everything divided by the power of two in both: value = common v, distance = common s o, o odd
# and s a power of two; o i = 1 + t * (what a word has left).
rest, first, index, lines, v, s, o, i, t, word = integers("rest first index lines v s o i t word")
over, whole = integers("over whole")
claims.prove_identity("a line has the rest of an index where steps - lines * step is s times it",
                      (over - lines * v - index * s * o) * i,
                      (over * i - lines * (v * i) - index * s) - index * s * (o * i - 1))
# Where s > 1 the step is odd: lines = skipped + s turns, skipped * step = steps modulo s.
steps, step, skipped, factor, turns, rounds = integers("steps step skipped factor turns rounds")
claims.prove_identity("the factor is the step's inverse modulo s: skipped leaves a multiple of s",
                      steps - (steps * factor - s * rounds) * step,
                      -steps * (factor * step - 1) + s * rounds * step)
claims.prove_identity("each further s lines are one step more, of numbers divided by s",
                      (steps - (skipped + s * turns) * step - s * index),
                      (steps - skipped * step) - s * (turns * step + index))

# TurnsBelow: from a place x below down + up one goes to x - down, where there is room, else to
# x + up; the turns between lie at or above down + up. At first that is the circle itself.
x, y, down, up, circle, number, before = integers("x y down up circle number before")


def next_place(place, way_down, way_up):
    return If(place >= way_down, place - way_down, place + way_up)


claims.prove("a turn lowers a place by the step, or by the step less the circle",
             next_place(x, step, circle - step) == If(x >= step, x - step, x - step + circle),
             [0 < step, step < circle, 0 <= x, x < circle])
ways = [0 < down, 0 < up, 0 <= x]
claims.prove("within down + up one goes on to what lies below it too",
             And(next_place(x, down, up) >= 0, next_place(x, down, up) < down + up),
             [*ways, x < down + up])
claims.prove("a longer way down becomes shorter by the way up: without room one first goes up",
             Or(And(x < down - up, next_place(x, down, up) == x + up, x + up < down),
                And(x >= down - up, x + up >= down, x + up < down + up,
                    next_place(x + up, down, up) == x - (down - up))),
             [*ways, up <= down, x < down])
claims.prove("a longer way up becomes shorter by the way down: what has gone it goes down then",
             Or(And(x >= down, next_place(x, down, up) == x - down, x - down < up),
                And(x < down, x + up >= up, x + up >= down,
                    next_place(x + up, down, up) == x + (up - down), x + (up - down) < up)),
             [*ways, down < up, x < up])
claims.prove("a place that the shorter stretch leaves out comes into it by one way down",
             And(y - down >= 0, y - down < If(down >= up, down, up)),
             [*ways, If(down >= up, down, up) <= y, y < down + up])
claims.prove("between two such places nothing is below a number that the first is not below",
             Implies(x >= down + up, x >= number), [number <= y, y < down + up])

down_turns, up_turns, count = integers("down_turns up_turns count")
claims.prove_identity("turns stay within the circle: times the other's way they make it, always",
                      (down - count * up) * up_turns + up * (down_turns + count * up_turns),
                      down * up_turns + up * down_turns)

# So many ways up make the way down short enough for a place below it.
claims.prove("`before` ways up are the fewest that give the place room",
             (down - index * up <= y) == (index >= before + 1),
             [0 < up, y < down, is_quotient(before, down - y - 1, up), grows(up, index, before),
              grows(up, before + 1, index)])
claims.prove("what then goes down comes below the way up",
             And(0 <= y - (down - before * up), y - (down - before * up) < up),
             [0 < up, y < down, down - before * up <= y, down - (before - 1) * up > y])
gone, end = integers("gone end")
claims.prove("so many ways down are the first that come below the end, and there is room for all",
             And(y - gone * down < end, y - (gone - 1) * down >= end, y - gone * down >= 0),
             [0 < down, end <= y, down <= end, is_quotient(gone - 1, y - end, down)])

# PairRests: with the last two values divisor * b and divisor * c, a count of the last unit that is
# b higher pays the same rests, with c items less of the other.
b, c, divisor, inner, last, held = integers("b c divisor inner last held")
claims.prove_identity("counts of the last unit b apart pay the same series",
                      inner * (divisor * b) + last * (divisor * c),
                      (inner - c) * (divisor * b) + (last + b) * (divisor * c))
residues, inner_counts, most_inner, past_zero = integers("residues inner_counts most_inner past_zero")
claims.prove("there are fewer than 2^17 series the one way or the other",
             Or(residues < 2**17, inner_counts < 2**17),
             [1 <= b, residues <= b, inner_counts == most_inner + past_zero + 1,
              most_inner * b < WORD, past_zero * b < WORD, 0 <= most_inner, 0 <= past_zero,
              Implies(b >= 2**17, And(grows(most_inner, 2**17, b), grows(past_zero, 2**17, b)))])
owed, fewest = integers("owed fewest")
claims.prove("so many items of the last unit are the fewest that pay what the other owes",
             (last * c >= owed) == (last >= fewest + 1),
             [1 <= c, 1 <= owed, is_quotient(fewest, owed - 1, c), grows(c, last, fewest),
              grows(c, fewest + 1, last)])
claims.prove("all that the last unit holds pays what the lowest count of the other owes",
             owed <= held, [owed == past_zero * b, is_quotient(past_zero, held, b)])
claims.finish()
