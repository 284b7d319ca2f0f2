"""The analysis's stream of random numbers and its draw from three points."""

import math

MASK = (1 << 64) - 1


class Stream:
    """The 64-bit Mersenne Twister of Nishimura and Matsumoto; uniform numbers of 53 bits."""

    SIZE, MIDDLE = 312, 156

    def __init__(self, seed):
        state = [seed & MASK]
        for i in range(1, self.SIZE):
            state.append((6364136223846793005 * (state[-1] ^ (state[-1] >> 62)) + i) & MASK)
        self.state = state
        self.ready = []

    def _refill(self):
        state = self.state
        for i in range(self.SIZE):
            x = (state[i] & 0xFFFFFFFF80000000) | (state[(i + 1) % self.SIZE] & 0x7FFFFFFF)
            twist = 0xB5026F5AA96619E9 if x & 1 else 0
            state[i] = state[(i + self.MIDDLE) % self.SIZE] ^ (x >> 1) ^ twist
        self.ready = state[::-1]

    def next(self):
        if not self.ready:
            self._refill()
        x = self.ready.pop()
        x ^= (x >> 29) & 0x5555555555555555
        x ^= (x << 17) & 0x71D67FFFEDA60000
        x ^= (x << 37) & 0xFFF7EEE000000000
        return x ^ (x >> 43)

    def uniform(self):
        return (self.next() >> 11) * 2.0 ** -53

    def triangular(self, low, likely, high):
        u = self.uniform()
        if high <= low:
            return low
        if u < (likely - low) / (high - low):
            return low + math.sqrt(u * (high - low) * (likely - low))
        return high - math.sqrt((1 - u) * (high - low) * (high - likely))
