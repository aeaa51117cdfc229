// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpAnswerReader.h"
#include "HttpError.h"

#include <gtest/gtest.h>

namespace {

// "status header-value body", with a "+" when another answer may follow; "..." while it is
// incomplete, "unreadable" when it cannot be read.
std::string read(const std::string &answer, size_t step, bool isEnd)
{
    HttpAnswerReader reader;
    try {
        for (size_t at = 0; at < answer.size(); at += step)
            reader.take(std::string_view(answer).substr(at, step));
        if (isEnd)
            reader.takeEnd();
    } catch (const HttpError &error) {
        return error.kind() == HttpError::Kind::Network ? "unreadable" : "wrong kind";
    }
    if (!reader.isComplete())
        return "...";
    auto result = std::to_string(reader.status());
    for (const auto &[name, value] : reader.headers())
        if (name == "X-Message")
            result += ' ' + value.toStdString();
    return result + ' ' + reader.body().toStdString() + (reader.canFollow() ? "+" : "");
}

} // namespace

TEST(HttpAnswerReader, ReadsEveryFormHoweverItIsCut)
{
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    const std::string five = "Content-Length: 5\r\n\r\nwhole";
    const std::string chunked =
        "Transfer-Encoding: chunked\r\n\r\n2\r\nwh\r\n3;a=b\r\nole\r\n0\r\n";
    const std::tuple<std::string, bool, std::string> rows[] = {
        {ok + five, false, "200 whole+"},
        {ok + "X-Message: 参数 \r\n" + five, false, "200 参数 whole+"},
        {ok + chunked + "\r\n", false, "200 whole+"},
        {ok + chunked + "Trailer: x\r\n\r\n", false, "200 whole+"},
        {ok + chunked, true, "..."},
        {ok + "Connection: close\r\n" + five, false, "200 whole"},
        {"HTTP/1.0 200 OK\r\n" + five, false, "200 whole"},
        {ok + five + "HTTP/1.1", false, "200 whole"},
        {ok + "\r\nwhole", false, "..."},
        {ok + "\r\nwhole", true, "200 whole"},
        {ok + "Content-Length: 6\r\n\r\nwhole", true, "..."},
        {ok, true, "..."},
        {"HTTP/1.1 204 \r\n\r\n", false, "204 +"},
        {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early\r\nLink: x\r\n\r\n" + ok + five,
         false,
         "200 whole+"},
        {"HTTP/1.1 101 Switching\r\n\r\n", false, "101 +"},
        {"SSH-2.0-OpenSSH_9.2\r\n\r\n", false, "unreadable"},
        {ok + "Content-Length: many\r\n\r\n", false, "unreadable"},
        {ok + "X: " + std::string(70'000, 'x'), false, "unreadable"},
        {ok + "Content-Length: 67108865\r\n\r\n", false, "unreadable"},
        {ok + "Transfer-Encoding: chunked\r\n\r\n4000001\r\nx", false, "unreadable"},
    };
    for (const auto &[answer, isEnd, expected] : rows)
        for (const size_t step : {1U, 7U, 1'000'000U})
            EXPECT_EQ(read(answer, answer.size() > 10'000 ? 10'000U : step, isEnd), expected)
                << answer.substr(0, 200) << " in parts of " << step;
}
