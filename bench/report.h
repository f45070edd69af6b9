// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

using Samples = QVector<double>;

/// At most so many times the bare web view's figure, at most so much in the measure's own unit, or no limit: a figure
/// that explains another.
struct Budget {
    enum Kind { Ratio, Absolute, None };
    Kind kind = None;
    double limit = 0;
};

double median(Samples samples);

/// Prints one row of the table, tab-separated: measure, platform, companion, bare web view, ratio, budget, and "ok" or
/// "over" (of a measure without budget "-"). Figures are medians, with the least and the greatest sample in brackets.
/// Of samples that were taken in pairs the ratio is the median of the pairs' ratios, so that it holds while the
/// machine's speed drifts.
/// @p bare may be empty; then there is no ratio.
void report(const char *measure, const char *unit, const Samples &companion, const Samples &bare, Budget budget);
