// SPDX-License-Identifier: MIT
#include "testservice.h"

#include "globaldefine.h"

#include <QMutexLocker>
#include <QNetworkProxy>

#include <algorithm>
#include <chrono>
#include <httplib.h>
#include <iterator>

namespace {

QByteArray bytes(const std::string &text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

} // namespace

TestService::TestService()
    : server(std::make_unique<httplib::Server>())
{
    const auto handle = [this](const httplib::Request &request, httplib::Response &response) {
        const QString method = QString::fromStdString(request.method);
        const QString url = QString::fromStdString(request.target);
        Answer answer;
        {
            const QMutexLocker lock(&mutex);
            seen.append({method, url, bytes(request.get_header_value("Content-Type")),
                         bytes(request.get_header_value("Cookie")), bytes(request.get_header_value("Referer")),
                         bytes(request.body)});
            answer = answers.value(url, answers.value(url.section(QLatin1Char('?'), 0, 0), {"not found", 404}));
        }
        if (isSilent) {
            // A promise of content that is never kept: the client sees the connection break.
            response.set_content_provider(1000, "text/html", [](size_t, size_t, httplib::DataSink &) { return false; });
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(answer.delay));
        response.status = answer.status;
        if (!answer.location.isEmpty())
            response.set_header("Location", answer.location.constData());
        response.set_content(answer.html.constData(), answer.html.size(), answer.type.constData());
    };
    server->set_keep_alive_max_count(1);
    server->Get(".*", handle);
    server->Post(".*", handle);
    const int port = server->bind_to_any_port("127.0.0.1");
    thread = std::thread([this] { server->listen_after_bind(); });
    while (!server->is_running())
        std::this_thread::yield();
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), static_cast<quint16>(port)));
}

TestService::~TestService()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    server->stop();
    thread.join();
}

void TestService::answer(const QString &address, const Answer &answer)
{
    const QMutexLocker lock(&mutex);
    answers.insert(address.startsWith(QLatin1Char('/')) ? QLatin1String(K_SERVICE_ROOT) + address : address, answer);
}

QList<TestService::Request> TestService::requests(const QString &method) const
{
    const QMutexLocker lock(&mutex);
    QList<Request> result;
    std::copy_if(seen.begin(), seen.end(), std::back_inserter(result),
                 [&](const Request &request) { return method.isEmpty() || request.method == method; });
    return result;
}

QStringList TestService::urls() const
{
    QStringList result;
    for (const Request &request : requests(QStringLiteral("GET")))
        result << request.url;
    return result;
}

void TestService::forget()
{
    const QMutexLocker lock(&mutex);
    seen.clear();
}

QByteArray TestService::page(const QString &variables, const QString &body)
{
    const QString html
        = QStringLiteral("<!DOCTYPE html><meta charset='utf-8'><title>page title</title><script>%1</script><body>%2");
    return html.arg(variables.isEmpty() ? QString() : QStringLiteral("var ") + variables, body).toUtf8();
}
