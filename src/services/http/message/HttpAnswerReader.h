// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <memory>
#include <string_view>
#include <utility>

// Reads one HTTP/1 answer from the bytes of a connection, as they come. Preliminary answers (1xx)
// are passed over.
class HttpAnswerReader final
{
public:
    // How much of the answer is read: to a CONNECT no body belongs.
    enum class Extent { Whole, HeadersOnly };

    explicit HttpAnswerReader(Extent extent = Extent::Whole);
    ~HttpAnswerReader();
    HttpAnswerReader(const HttpAnswerReader &) = delete;
    HttpAnswerReader &operator=(const HttpAnswerReader &) = delete;

    // Takes what was received. Throws HttpError when it is no HTTP answer or too large: 64 KB of
    // headers, 64 MB of body.
    void take(std::string_view received);
    // The peer has closed the connection; some answers end so.
    void takeEnd();

    [[nodiscard]] bool isComplete() const;
    // Whether another answer can follow this one on the same connection.
    [[nodiscard]] bool canFollow() const;
    // 0 until the headers are complete.
    [[nodiscard]] int status() const;
    // In the order of the wire.
    [[nodiscard]] QList<std::pair<QByteArray, QByteArray>> headers() const;
    // What came of it until now.
    [[nodiscard]] QByteArray body() const;

private:
    struct Parser;

    void parse();
    void startAgain();

    const Extent m_extent;
    std::unique_ptr<Parser> m_parser;
    std::string m_unparsed;
};
