// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

using Samples = QVector<double>;

/// At most so many times the bare view's figure, at most so much more than it or at most so much, in the measure's own
/// unit, or no limit: a figure that explains another.
struct Budget {
    enum Kind { Ratio, Difference, Absolute, None };
    Kind kind = None;
    double limit = 0;
};

/// What the companion may cost beside a bare view of the same engine.
namespace Budgets {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
inline constexpr Budget firstRequest = {Budget::Ratio, 1.06};
inline constexpr Budget loaded = {Budget::Ratio, 1.04};
inline constexpr Budget memory = {Budget::Ratio, 1.06};
inline constexpr Budget dragStep = {Budget::Ratio, 1.3};
inline constexpr Budget loadEnd = {Budget::Absolute, 2};
#else
inline constexpr Budget firstRequest = {Budget::Ratio, 1.12};
inline constexpr Budget loaded = {Budget::Ratio, 1.12};
inline constexpr Budget memory = {Budget::Ratio, 1.05};
inline constexpr Budget dragStep = {Budget::Difference, 16};
inline constexpr Budget loadEnd = {}; // The scripts run in another process.
#endif
inline constexpr Budget painting = {Budget::Absolute, 50};
} // namespace Budgets

double median(Samples samples);

/// Prints one row of the table, tab-separated: measure, platform, companion, bare view, ratio, budget, and "ok" or
/// "over" (of a measure without budget "-"). Figures are medians, with the least and the greatest sample in brackets.
/// Of samples that were taken in pairs the ratio is the median of the pairs' ratios, so that it holds while the
/// machine's speed drifts.
/// @p bare may be empty; then there is no ratio.
void report(const char *measure, const char *unit, const Samples &companion, const Samples &bare, Budget budget);
