# SPDX-License-Identifier: MIT
"""Fits trend lines with numpy, as a witness for TrendFitTest.

Reads lines "kind period value value ..." and writes for each "a b" and the line's values at 1, 2, ..., "nan" where it has
none. Goes another way than the control: an orthogonal decomposition instead of sums about the means.
"""
import sys

import numpy


def fit(x, y):
    """Intercept and slope; y is scaled, so that huge values do not overflow inside of lstsq."""
    scale = numpy.max(numpy.abs(y)) or 1.0
    matrix = numpy.column_stack([numpy.ones_like(x), x])
    (intercept, slope), *_ = numpy.linalg.lstsq(matrix, y / scale, rcond=None)
    return intercept * scale, slope * scale


def trend(kind, period, y):
    x = numpy.arange(1, len(y) + 1, dtype=float)
    if kind == "Moving average":
        means = numpy.convolve(y / period, numpy.ones(period), "valid")
        return 0, 0, numpy.concatenate([numpy.full(period - 1, numpy.nan), means])
    place = numpy.log(x) if kind in ("Logarithmic", "Power") else x
    if kind in ("Linear", "Logarithmic"):
        a, b = fit(place, y)
        return a, b, a + b * place
    a, b = fit(place, numpy.log(y))
    return numpy.exp(a), b, numpy.exp(a + b * place)


for line in sys.stdin:
    name, period, *values = line.rstrip("\n").split("\t")
    a, b, at = trend(name, int(period), numpy.array([float(value) for value in values]))
    print(*(repr(float(number)) for number in (a, b, *at)))
