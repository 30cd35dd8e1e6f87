#pragma once

#include <cstdio>

/// Prints one figure of a run for benchmarks/table.py: row, column, value and unit, separated by
/// tabs. The columns are "now", "CPU" (the part of it that the thread worked), "plain" (the same by
/// the obvious means of Qt), and "floor" (what reading the bytes once takes).
inline void reportFigure(const char *row, const char *column, double value, const char *unit)
{
    std::printf("%s\t%s\t%.1f\t%s\n", row, column, value, unit);
    std::fflush(stdout);
}
