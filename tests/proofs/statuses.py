#!/usr/bin/python3
"""The status that a group of cassettes keeps: a ranking with three exceptions is the whole table,
for all pairs of 16-bit statuses."""

from z3 import And, BitVec, BitVecVal, If, Or, ULT

from claims import Claims

claims = Claims("The status that a group of cassettes keeps")

# Rows: the group's status 0 to 9; columns: the joining status 0 to 9. S: it is taken, K: it is not.
TABLE = ("KKKKKKKKKK", "SKSKKKKKKK", "SKKKKKKKKK", "SSSKKKKKKK", "SSSSKSKKKK", "SSSSKKKKKK",
         "SSSSSSKKKK", "SSSSSSSSSS", "SSSSSSSSSS", "SSSSSSSSSS")
RANK = (0, 2, 1, 3, 5, 4, 6)  # of the statuses 0 to 6, from best to worst
GIVES_WAY = (7, 8, 9)         # to whatever joins

current, joining = BitVec("current", 16), BitVec("joining", 16)


def by_table():
    takes = Or([And(current == row, joining == column)
                for row in range(10) for column in range(10) if TABLE[row][column] == "S"])
    takes_unknown = And(Or([current == row for row in GIVES_WAY]), ULT(9, joining))
    return If(Or(takes, takes_unknown), joining, current)


def rank(status):
    ranked = BitVecVal(0xFF, 8)
    for known, place in enumerate(RANK):
        ranked = If(status == known, BitVecVal(place, 8), ranked)
    return ranked


def by_rank():
    improves = And(ULT(current, len(RANK)), ULT(joining, len(RANK)),
                   ULT(rank(joining), rank(current)))
    return If(Or([current == one for one in GIVES_WAY]), joining, If(improves, joining, current))


claims.prove("the ranking with its exceptions is the table", by_table() == by_rank())
claims.refute("the ranking alone is the table", by_table()
              == If(ULT(rank(joining), rank(current)), joining, current))
claims.finish()
