// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpRequest.h"
#include "HttpResponse.h"

#include <QObject>
#include <QSslConfiguration>

#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>

class HttpTransfer;
class QEventLoop;
class QNetworkAccessManager;
class QNetworkRequest;

// The network thread's side of HttpSession: takes work through a guarded queue with one wake-up
// event, and owns the network access manager and the transfers under way.
class HttpWorker final : public QObject
{
    Q_OBJECT
public:
    using Work = std::function<void()>;

    explicit HttpWorker(std::optional<QSslConfiguration> tls);
    ~HttpWorker() override;

    // Queues work for the network thread; any thread. False, and dropped, once closed.
    [[nodiscard]] bool post(Work work);
    // Refuses all further work and ends run() after what is queued; any thread.
    void stop();

    // Makes the calling thread the network thread until stop(); what is in flight then fails as
    // cancelled. Once only.
    void run();

    // The rest: network thread only.
    void startTransfer(const HttpRequest &request, std::promise<HttpResponse> promise);
    void openAhead(const QUrl &url);

protected:
    bool event(QEvent *event) override;

private:
    [[nodiscard]] bool enqueue(Work work, bool isLast);
    void runOne();
    QNetworkAccessManager &manager();
    [[nodiscard]] QNetworkRequest networkRequest(const QUrl &url) const;

    const std::optional<QSslConfiguration> m_tls;
    QEventLoop *m_loop = nullptr;
    std::unique_ptr<QNetworkAccessManager> m_manager;
    std::deque<std::unique_ptr<HttpTransfer>> m_transfers;

    std::mutex m_mutex;
    std::deque<Work> m_work; // guarded by m_mutex
    bool m_isClosed = false; // guarded by m_mutex
};
