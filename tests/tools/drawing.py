"""Draws the demand of a simulation a second time, from what the manual says about it."""


class Twister:
    """The 64-bit Mersenne Twister, as its authors describe it."""

    def __init__(self, seed):
        self.state = [seed]
        for index in range(1, 312):
            last = self.state[-1]
            self.state.append((6364136223846793005 * (last ^ last >> 62) + index) % 2**64)
        self.index = 312

    def next(self):
        if self.index == 312:
            for at in range(312):
                mixed = (self.state[at] & ~0x7FFFFFFF) | (self.state[(at + 1) % 312] & 0x7FFFFFFF)
                self.state[at] = (self.state[(at + 156) % 312] ^ mixed >> 1 ^
                                  (0xB5026F5AA96619E9 if mixed & 1 else 0))
            self.index = 0
        drawn = self.state[self.index]
        self.index += 1
        drawn ^= drawn >> 29 & 0x5555555555555555
        drawn ^= drawn << 17 & 0x71D67FFFEDA60000
        drawn ^= drawn << 37 & 0xFFF7EEE000000000
        return drawn ^ drawn >> 43

    def below(self, number):
        while True:
            drawn = self.next()
            if drawn < 2**64 - 2**64 % number:
                return drawn % number

    def pick(self, weights):
        left = self.below(sum(weights))
        for place, weight in enumerate(weights):
            if left < weight:
                return place
            left -= weight


def draw(pattern, seed):
    twister = Twister(seed)
    times, amounts = [], []
    for day in range(pattern["days"]):
        today = []
        for _ in range(pattern["perDay"]):
            hour = twister.pick(pattern["hours"])
            second = twister.below(3600)
            amount = pattern["amounts"][twister.pick([a["weight"] for a in pattern["amounts"]])]
            today.append((day * 86400 + hour * 3600 + second, amount["amount"]))
        today.sort(key=lambda withdrawal: withdrawal[0])
        times += [when for when, _ in today]
        amounts += [amount for _, amount in today]
    return times, amounts


def resample(record, days, seed):
    """Draws days of a record: [(days since a Monday, second of that day, amount)] in order of time."""
    twister = Twister(seed)
    times, amounts = [], []
    for day in range(days):
        known = [other for other in range(record[0][0], record[-1][0] + 1) if other % 7 == day % 7]
        chosen = known[twister.below(len(known))]
        today = [(day * 86400 + second, amount) for other, second, amount in record if other == chosen]
        times += [when for when, _ in today]
        amounts += [amount for _, amount in today]
    return times, amounts
