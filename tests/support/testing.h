// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <csignal>

/// A text, written in UTF-8: "text"_s.
inline QString operator""_s(const char *text, std::size_t length)
{
    return QString::fromUtf8(text, static_cast<int>(length));
}

/// The rows of a table test, by the names and types of their columns:
///     const Table<QString, int> row("text", "number");
///     row("empty", {}, 0);
template <typename... Values> class Table {
public:
    template <typename... Names> explicit Table(const Names... names) { (QTest::addColumn<Values>(names), ...); }

    void operator()(const char *name, const Values &...values) const { (QTest::newRow(name) << ... << values); }
};

/// The signals that ask a program to end.
inline constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};
