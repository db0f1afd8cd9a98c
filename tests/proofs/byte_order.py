#!/usr/bin/python3
"""Numbers of a record go to bytes and back unchanged, whatever the bytes are."""

from z3 import BitVec, Concat, Extract, SignExt, ZeroExt

from claims import Claims

claims = Claims("Byte order of records")

for size in (2, 4):
    bits = 8 * size
    number = BitVec(f"number{bits}", bits)
    stored = [BitVec(f"byte{bits}_{place}", 8) for place in range(size)]

    def read(octets):
        """What the bytes of a record mean: each widened, shifted to its place, and combined."""
        wide = [ZeroExt(32 - 8, octet) << (8 * place) for place, octet in enumerate(octets)]
        result = wide[0]
        for part in wide[1:]:
            result = result | part
        return Extract(bits - 1, 0, result)

    def write(value):
        return [Extract(8 * place + 7, 8 * place, value) for place in range(size)]

    def swapped(value):
        return Concat(write(value))  # the lowest byte first, as a processor of the other order has it

    claims.prove(f"{bits} bits: swapping twice changes nothing", swapped(swapped(number)) == number)
    highest_first = list(reversed(write(swapped(number))))
    for place in range(size):
        claims.prove(f"{bits} bits: byte {place} is the same, swapped on a processor of the other order",
                     highest_first[place] == write(number)[place])
    claims.prove(f"{bits} bits: what is written is read", read(write(number)) == number)
    for place in range(size):
        claims.prove(f"{bits} bits: byte {place} that is read is written",
                     write(read(stored))[place] == stored[place])

wide = BitVec("wide", 32)
low = BitVec("low", 16)
claims.prove("a signed 16-bit field keeps its value in 32 bits",
             Extract(15, 0, SignExt(16, low)) == low)
claims.finish()
