#!/usr/bin/python3
"""Why the innermost loop may end when the last unit is short, and why a walk over exact
combinations meets every one of them. Integers; each product is shown to stay below 2^32."""

from z3 import And, Implies

from claims import Claims, grows, integers, is_quotient

claims = Claims("The innermost loop, and what an exact walk steps over")

rest, value, count, fewer, held = integers("rest value count fewer held")
last, needed, more, difference = integers("last needed more difference")
sound = [value >= 1, last >= 1, count >= 0, fewer >= 0, rest >= 0, held >= 0]

claims.prove("a product of numbers that are not negative is not negative", value * count >= 0,
             [value >= 0, count >= 0])
claims.prove_identity("so multiplying by such a number keeps the order",
                      value * (count + difference) - value * count, value * difference)
claims.prove("a count that fits into the rest never wraps its product", value * count < 2**32,
             [*sound, rest < 2**32, count <= more, is_quotient(more, rest, value),
              grows(value, count, more)])
claims.prove("a smaller count leaves more to the last unit",
             rest - value * fewer >= rest - value * count,
             [*sound, fewer <= count, grows(value, fewer, count)])
claims.prove("whoever has to pay more needs at least as many items", more >= needed,
             [last >= 1, is_quotient(needed, held, last), is_quotient(more, rest, last),
              rest >= held, grows(last, more + 1, needed)])

# RangeAt: a unit takes at least what the units after it cannot pay.
others, paid_after, low = integers("others paid_after low")
claims.prove("no count below the lowest leaves what the others can pay", count >= low,
             [*sound, value * count + paid_after == rest, 0 <= paid_after, paid_after <= others,
              low >= 1, value * (low - 1) < rest - others, grows(value, count, low - 1)])
claims.prove("no count above the rest's share fits", Implies(value * count <= rest, count <= more),
             [*sound, is_quotient(more, rest, value), grows(value, more + 1, count)])

# The last two units exchange items: of `stride` counts of the one for `given` of the other.
divisor, stride, given, one, other = integers("divisor stride given one other")
claims.prove_identity("an exchange leaves what both pay together",
                      divisor * given * (one + stride) + divisor * stride * (other - given),
                      divisor * given * one + divisor * stride * other)

# WithShortfall: what a combination leaves is paid by a unit worth the divisor of all values.
amount, paid, unpaid, items, left_over = integers("amount paid unpaid items left_over")
rounds, multiple, largest = integers("rounds multiple largest")
claims.prove("what is left is the amount's own rest and whole divisors, as many as fit",
             And(unpaid == left_over + divisor * items, items >= 0, items <= largest),
             [items == rounds - multiple, divisor >= 1, paid == divisor * multiple, amount == divisor * rounds + left_over,
              0 <= left_over, left_over < divisor, unpaid == amount - paid, 0 <= unpaid,
              unpaid < last,
              is_quotient(largest, last - 1 - left_over, divisor),
              grows(divisor, items, -1), grows(divisor, largest + 1, items)])
claims.prove("and each such number of divisors leaves less than an item of the last unit",
             left_over + divisor * items < last,
             [divisor >= 1, items >= 0, items <= largest, left_over >= 0,
              is_quotient(largest, last - 1 - left_over, divisor),
              grows(divisor, items, largest)])

# OverLimitWalk: items of one kind that pay part of a rest are no more than the smallest ones.
first, second, third, smallest = integers("first second third smallest")
a, b, c = integers("a b c")
claims.prove("no kind has more items than the rest holds of its smallest value",
             first + second + third <= more,
             [smallest >= 1, a >= smallest, b >= smallest, c >= smallest, first >= 0, second >= 0,
              third >= 0, a * first + b * second + c * third <= rest,
              grows(first, smallest, a), grows(second, smallest, b), grows(third, smallest, c),
              is_quotient(more, rest, smallest), grows(smallest, more + 1, first + second + third)])
claims.finish()
