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
class QNetworkAccessManager;
class QNetworkRequest;

// The network thread's side of HttpSession: takes work through a guarded queue with one wake-up
// event, and owns the network access manager and the transfers under way.
class HttpWorker final : public QObject
{
    Q_OBJECT
public:
    using Work = std::function<void()>;

    explicit HttpWorker(const std::optional<QSslConfiguration> &tls);
    ~HttpWorker() override;

    // Queues work for the network thread; any thread. False, and dropped, once closed.
    [[nodiscard]] bool post(Work work);
    // Queues the last work and refuses all that follows. False when that has happened before.
    [[nodiscard]] bool postLast(Work work);

    // The rest: network thread only.
    void startTransfer(const HttpRequest &request, std::promise<HttpResponse> promise);
    void openAhead(const QUrl &url);
    // Fails what is in flight as cancelled and destroys everything that lives on this thread.
    void shutDown();

protected:
    bool event(QEvent *event) override;

private:
    void runOne();
    QNetworkAccessManager &manager();
    [[nodiscard]] QNetworkRequest networkRequest(const QUrl &url) const;

    const std::optional<QSslConfiguration> m_tls;
    std::unique_ptr<QNetworkAccessManager> m_manager;
    std::deque<std::unique_ptr<HttpTransfer>> m_transfers;

    std::mutex m_mutex;
    std::deque<Work> m_work; // guarded by m_mutex
    bool m_isClosed = false; // guarded by m_mutex
};
