// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpError.h"
#include "HttpRequest.h"
#include "HttpResponse.h"

#include <QNetworkReply>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <exception>
#include <future>
#include <memory>

class QNetworkAccessManager;
class QNetworkRequest;

// One request on its way: owns its body and its reply, watches for inactivity and fulfils its
// promise exactly once. Lives on the network thread.
class HttpTransfer final : public QObject
{
    Q_OBJECT
public:
    HttpTransfer(std::unique_ptr<HttpBody> body,
                 std::chrono::milliseconds inactivityLimit,
                 std::promise<HttpResponse> promise);
    ~HttpTransfer() override;

    void start(QNetworkAccessManager &manager, const QNetworkRequest &request);
    // Ends the transfer with this error, unless it has ended.
    void fail(const std::exception_ptr &error);
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }

signals:
    // The promise is fulfilled; the transfer may be deleted, though not from a slot.
    void ended();

private:
    using Clock = std::chrono::steady_clock;

    void noteProgress() { m_lastProgress = Clock::now(); }
    void takeReceived();
    void checkInactivity();
    void finish();

    std::unique_ptr<HttpBody> m_body;
    std::unique_ptr<QNetworkReply> m_reply;
    const std::chrono::milliseconds m_inactivityLimit;
    std::promise<HttpResponse> m_promise;
    QTimer m_inactivityTimer;
    Clock::time_point m_lastProgress = Clock::now();
    QByteArray m_received;
    bool m_hasEnded = false;
};
