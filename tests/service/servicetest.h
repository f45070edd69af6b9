// SPDX-License-Identifier: MIT
#pragma once

#include "runningservice.h"
#include "visitor.h"

#include <memory>
#include <QtTest>

using L1 = QLatin1String;

/// What the tests of the service share: each test function has a service of its own, its rows share it, and emma is
/// signed in anew for each of them. The service complains of nothing.
class ServiceTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        if (m_function != QTest::currentTestFunction()) {
            m_function = QTest::currentTestFunction();
            m_service = std::make_unique<RunningService>();
        }
        m_emma = std::make_unique<Visitor>(m_service->root());
        QVERIFY(m_emma->start(L1("EN"), L1("emma"), L1("emma123")));
    }
    void cleanup() { QCOMPARE(m_service->errors(), QString()); }

protected:
    std::unique_ptr<RunningService> m_service;
    std::unique_ptr<Visitor> m_emma;

private:
    QByteArray m_function;
};
