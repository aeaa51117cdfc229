// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpAnswerReader.h"

#include "HttpError.h"

#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace http = boost::beast::http;
using namespace Qt::StringLiterals;

struct HttpAnswerReader::Parser : http::response_parser<http::string_body>
{};

namespace {

QByteArray bytes(boost::beast::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

HttpError unreadable(const boost::system::error_code &error)
{
    return {HttpError::Kind::Network,
            u"The answer cannot be read: %1."_s.arg(QString::fromStdString(error.message()))};
}

} // namespace

HttpAnswerReader::HttpAnswerReader(Extent extent)
    : m_extent(extent)
{
    startAgain();
}

HttpAnswerReader::~HttpAnswerReader() = default;

void HttpAnswerReader::startAgain()
{
    m_parser = std::make_unique<Parser>();
    m_parser->eager(true);
    m_parser->header_limit(64 * 1024);
    m_parser->body_limit(64 * 1024 * 1024);
    m_parser->skip(m_extent == Extent::HeadersOnly);
}

void HttpAnswerReader::take(std::string_view received)
{
    m_unparsed.append(received);
    parse();
    constexpr int switchingProtocols = 101;
    while (m_parser->is_done() && status() < 200 && status() != switchingProtocols) {
        startAgain();
        parse();
    }
}

// The parser wants what it could not use again, together with what follows.
void HttpAnswerReader::parse()
{
    while (!m_unparsed.empty() && !m_parser->is_done()) {
        boost::system::error_code error;
        const auto used = m_parser->put(boost::asio::buffer(m_unparsed), error);
        m_unparsed.erase(0, used);
        if (error == http::error::need_more)
            return;
        if (error)
            throw unreadable(error);
    }
}

void HttpAnswerReader::takeEnd()
{
    boost::system::error_code isIncomplete;
    if (m_parser->is_header_done() && !m_parser->is_done())
        m_parser->put_eof(isIncomplete);
}

bool HttpAnswerReader::isComplete() const
{
    return m_parser->is_done();
}

bool HttpAnswerReader::canFollow() const
{
    return isComplete() && m_parser->keep_alive() && m_unparsed.empty();
}

int HttpAnswerReader::status() const
{
    return m_parser->is_header_done() ? static_cast<int>(m_parser->get().result_int()) : 0;
}

QList<std::pair<QByteArray, QByteArray>> HttpAnswerReader::headers() const
{
    QList<std::pair<QByteArray, QByteArray>> result;
    for (const auto &field : m_parser->get())
        result.emplace_back(bytes(field.name_string()), bytes(field.value()));
    return result;
}

QByteArray HttpAnswerReader::body() const
{
    return QByteArray::fromStdString(m_parser->get().body());
}
