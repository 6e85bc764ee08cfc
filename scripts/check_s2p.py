#!/usr/bin/env python3
"""Reads a version 1 two-port file that `kalvex-cli sweep --touchstone2` wrote,
turns each frequency's S parameters into the chain (ABCD) matrix on its own,
and compares it with the chain matrix of the network described on the command
line, worked out here from the parts alone.

    scripts/check_s2p.py OUT.s2p sL=1.2e-6 pC=180e-12

Parts run from the generator (port 1) towards the load (port 2): s or p for
series or shunt, then L, C or R, then the value in henries, farads or ohms,
and for L and C "/Q" when the part has a loss resistance of |X| / Q.
Prints the largest relative difference of A, B, C and D over the file.
"""
import math
import sys


def read_s2p(path):
    reference, points = 50.0, []
    with open(path) as text:
        for line in text:
            line = line.split("!")[0].strip()
            if not line:
                continue
            if line.startswith("#"):
                words = line[1:].split()
                assert [w.lower() for w in words[:3]] == ["hz", "s", "ri"], line
                reference = float(words[words.index("R") + 1])
                continue
            v = [float(w) for w in line.split()]
            s11, s21, s12, s22 = (complex(v[k], v[k + 1]) for k in (1, 3, 5, 7))
            points.append((v[0], s11, s12, s21, s22))
    return reference, points


def abcd_of_s(s11, s12, s21, s22, z0):
    d = 2 * s21
    return ((1 + s11) * (1 - s22) + s12 * s21) / d, z0 * ((1 + s11) * (1 + s22) - s12 * s21) / d, \
        ((1 - s11) * (1 - s22) - s12 * s21) / (d * z0), ((1 - s11) * (1 + s22) + s12 * s21) / d


def product(m, n):
    return (m[0] * n[0] + m[1] * n[2], m[0] * n[1] + m[1] * n[3],
            m[2] * n[0] + m[3] * n[2], m[2] * n[1] + m[3] * n[3])


def part_abcd(part, f):
    kind, value = part.split("=")
    value, _, q = value.partition("/")
    w = 2 * math.pi * f
    z = {"L": 1j * w * float(value), "C": 1 / (1j * w * float(value)), "R": float(value)}[kind[1]]
    if q:
        z += abs(z.imag) / float(q)
    return (1, z, 0, 1) if kind[0] == "s" else (1, 0, 1 / z, 1)


def main():
    reference, points = read_s2p(sys.argv[1])
    worst = 0.0
    for f, s11, s12, s21, s22 in points:
        expected = (1, 0, 0, 1)
        for part in sys.argv[2:]:
            expected = product(expected, part_abcd(part, f))
        got = abcd_of_s(s11, s12, s21, s22, reference)
        scale = max(abs(x) for x in expected)
        worst = max(worst, max(abs(g - e) / scale for g, e in zip(got, expected)))
    print(f"{len(points)} frequencies, largest relative difference of A, B, C, D: {worst:.3g}")
    return 0 if worst < 1e-9 else 1


if __name__ == "__main__":
    sys.exit(main())
