// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QNetworkProxy>

// Linked into a program, this sends its requests to the server of the benchmark that started it.
static void useProxyOfBenchmark()
{
    bool ok = false;
    const int port = qEnvironmentVariableIntValue("BENCH_PROXY_PORT", &ok);
    if (ok) {
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), static_cast<quint16>(port)));
    }
}

Q_COREAPP_STARTUP_FUNCTION(useProxyOfBenchmark)
