// SPDX-License-Identifier: MIT
#include "pageserver.h"

#include <QTcpSocket>
#include <QUrl>

PageServer::PageServer(const QByteArray &html)
{
    setPage(html);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("No free port: %s", qPrintable(m_server.errorString()));
}

void PageServer::setPage(const QByteArray &html)
{
    m_answer = "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nConnection: close\r\nContent-Length: "
        + QByteArray::number(html.size()) + "\r\n\r\n" + html;
}

void PageServer::serve(QTcpSocket *socket)
{
    const QByteArray request = socket->peek(65536);
    if (!request.contains("\r\n\r\n"))
        return;
    socket->readAll();
    const QByteArray target = request.split(' ').value(1);
    emit requested(QUrl::fromEncoded(target).path());
    socket->write(m_answer);
    socket->disconnectFromHost();
}
