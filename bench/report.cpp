// SPDX-License-Identifier: MIT
#include "report.h"

#include <QByteArray>

#include <algorithm>
#include <cstdio>

namespace {

// Three significant digits at least, and no more decimals than that takes.
QByteArray number(double value)
{
    return QByteArray::number(value, 'f', value < 10 ? 2 : value < 100 ? 1 : 0);
}

QByteArray figure(const Samples &samples, const char *unit)
{
    if (samples.isEmpty())
        return "-";
    const auto [least, greatest] = std::minmax_element(samples.begin(), samples.end());
    return number(median(samples)) + ' ' + unit + " (" + number(*least) + " - " + number(*greatest) + ')';
}

double ratioOf(const Samples &companion, const Samples &bare)
{
    if (companion.size() != bare.size())
        return median(companion) / median(bare);
    Samples ratios;
    std::transform(companion.begin(), companion.end(), bare.begin(), std::back_inserter(ratios), std::divides<>());
    return median(ratios);
}

} // namespace

double median(Samples samples)
{
    if (samples.isEmpty())
        return 0;
    std::sort(samples.begin(), samples.end());
    const int middle = samples.size() / 2;
    return samples.size() % 2 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

void report(const char *measure, const char *unit, const Samples &companion, const Samples &bare, Budget budget)
{
    const double ratio = bare.isEmpty() ? 0 : ratioOf(companion, bare);
    QByteArray limit = "-";
    QByteArray verdict = "-";
    const auto judge = [&](double figure, const QByteArray &text) {
        limit = text;
        verdict = figure <= budget.limit ? "ok" : "over";
    };
    switch (budget.kind) {
    case Budget::Ratio:
        judge(ratio, number(budget.limit) + " x");
        break;
    case Budget::Difference:
        judge(median(companion) - median(bare), '+' + number(budget.limit) + ' ' + unit);
        break;
    case Budget::Absolute:
        judge(median(companion), number(budget.limit) + ' ' + unit);
        break;
    case Budget::None:
        break;
    }
    std::printf("%s\t%s\t%s\t%s\t%s\t%s\t%s\n", measure, qgetenv("QT_QPA_PLATFORM").constData(),
                figure(companion, unit).constData(), figure(bare, unit).constData(),
                bare.isEmpty() ? "-" : number(ratio).constData(), limit.constData(), verdict.constData());
    std::fflush(stdout);
}
