// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ScriptedHttpServer.h"

#include "ScriptedListener.h"

#include <QCoreApplication>
#include <QEventLoop>

using namespace Qt::StringLiterals;

QByteArray RecordedRequest::method() const
{
    return head.first(head.indexOf(' '));
}

QByteArray RecordedRequest::target() const
{
    return head.split(' ').value(1);
}

QList<std::pair<QByteArray, QByteArray>> RecordedRequest::headers() const
{
    QList<std::pair<QByteArray, QByteArray>> result;
    const auto lines = head.split('\n').sliced(1);
    for (const auto &line : lines)
        if (const auto colon = line.indexOf(':'); colon > 0)
            result.emplace_back(line.first(colon), line.sliced(colon + 1).trimmed());
    return result;
}

std::optional<QByteArray> RecordedRequest::header(const QByteArray &name) const
{
    const auto all = headers();
    for (const auto &[known, value] : all)
        if (known.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}

ScriptedHttpServer::ScriptedHttpServer(Script script, const std::optional<QSslConfiguration> &tls)
    : m_thread([this, script = std::move(script), tls] { run(script, tls); })
{
    m_isListening.get_future().wait();
}

ScriptedHttpServer::ScriptedHttpServer(const ScriptedAnswer &answer,
                                       const std::optional<QSslConfiguration> &tls)
    : ScriptedHttpServer([answer](const RecordedRequest &) { return answer; }, tls)
{}

ScriptedHttpServer::ScriptedHttpServer(const ScriptedAnswer &answer, int listeningSocket)
    : m_thread([this, answer, listeningSocket] {
        run([answer](const RecordedRequest &) { return answer; }, {}, listeningSocket);
    })
{
    m_isListening.get_future().wait();
}

ScriptedHttpServer::~ScriptedHttpServer()
{
    QCoreApplication::postEvent(m_loop, std::make_unique<QEvent>(QEvent::Quit).release());
    m_thread.join();
}

void ScriptedHttpServer::run(const Script &script,
                             const std::optional<QSslConfiguration> &tls,
                             std::optional<int> listeningSocket)
{
    QEventLoop loop;
    ScriptedListener listener(script, tls);
    const bool isListening = listeningSocket ? listener.setSocketDescriptor(*listeningSocket)
                                             : listener.listen(QHostAddress::LocalHost);
    if (!isListening)
        qFatal("cannot listen");
    m_loop = &loop;
    m_listener = &listener;
    m_isListening.set_value();
    loop.exec();
}

quint16 ScriptedHttpServer::port() const
{
    return m_listener->serverPort();
}

QUrl ScriptedHttpServer::url(const QString &path, const QString &host) const
{
    QUrl url;
    url.setScheme(m_listener->isTls() ? u"https"_s : u"http"_s);
    url.setHost(host.isEmpty() ? u"127.0.0.1"_s : host);
    url.setPort(port());
    url.setPath(path);
    return url;
}

std::vector<RecordedRequest> ScriptedHttpServer::requests() const
{
    return m_listener->requests();
}

int ScriptedHttpServer::connections() const
{
    return m_listener->connections();
}

int ScriptedHttpServer::handshakes() const
{
    return m_listener->handshakes();
}

void ScriptedHttpServer::readSlowly() const
{
    m_listener->readSlowly();
}

void ScriptedHttpServer::vanish() const
{
    m_listener->vanish();
}
