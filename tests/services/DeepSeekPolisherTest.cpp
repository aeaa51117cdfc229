// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekPolisher.h"
#include "HttpSession.h"
#include "ServiceOutcome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class DeepSeekPolisherTest : public testing::Test
{
protected:
    DeepSeekPolisherTest() { m_config.apiKey = u"\t sk-1 \n"_s; }

    QString polished()
    {
        return DeepSeekPolisher(m_config, u"你是/\"助手\"\n"_s, m_session).polish(u" 嗯\\ "_s);
    }

    std::string outcomeOf(int status, const QByteArray &body)
    {
        const auto call = [this] { return polished(); };
        auto [result, requests] =
            answered({.status = status, .body = body}, m_config.baseURL, call);
        m_requests = std::move(requests);
        return result;
    }

    static QByteArray choices(const QByteArray &list)
    {
        return R"({"id":1,"choices":[)" + list + "]}";
    }
    static QByteArray choice(const QByteArray &content)
    {
        return R"({"message":{"role":"assistant","content":)" + content + "}}";
    }

    DeepSeekConfig m_config;
    HttpSession m_session;
    std::vector<RecordedRequest> m_requests;
};

TEST_F(DeepSeekPolisherTest, SendsTheWholeRequestInTheGivenOrder)
{
    EXPECT_EQ(outcomeOf(200, choices(choice(R"(" 好。\n")"))), "= 好。");
    const auto &[head, body, time] = m_requests.at(0);
    EXPECT_TRUE(head.startsWith("POST /base/chat/completions HTTP/1.1\r\n"));
    EXPECT_EQ(HttpRequest().inactivityLimit, std::chrono::seconds(60));
    EXPECT_TRUE(
        head.contains("\r\nContent-Type: application/json\r\nAuthorization: Bearer sk-1\r\n"));
    EXPECT_EQ(body,
              R"({"model":"deepseek-v4-flash","messages":[{"role":"system","content":)"
              R"("你是/\"助手\"\n"},{"role":"user","content":"语音识别原文：\n 嗯\\ "}],)"
              R"("thinking":{"type":"disabled"},"stream":false})");
}

TEST_F(DeepSeekPolisherTest, TurnsEveryAnswerIntoItsOutcome)
{
    const std::string refused = "serviceFailed: DeepSeek 请求失败：HTTP ";
    const std::string empty = "responseFailed: DeepSeek 没有返回整理后的文本。";
    const std::tuple<int, QByteArray, std::string> rows[] = {
        {200, choices(choice("\"a\"") + ',' + choice("\"b\"")), "= a"},
        {200, choices(""), empty},
        {200, choices(choice(R"(" \n\u00a0")")), empty},
        {402, "{\"e\":\"余额\"}\n", refused + "402。{\"e\":\"余额\"}\n"},
        {500, "bad \xe4\xbd", refused + "500。"},
        {307, "", refused + "307。"},
        {200, choices(choice("null")), "json"},
        {200, choices(choice("\"a\"") + ',' + choice("null")), "json"},
        {200, choices(R"({"message":{"content":"a"}})"), "json"},
        {200, choices(R"({"message":null})"), "json"},
        {200, choices("1"), "json"},
        {200, R"({"choices":{}})", "json"},
        {200, "{}", "json"},
        {200, "null", "json"},
    };
    for (const auto &[status, body, expected] : rows) {
        EXPECT_EQ(outcomeOf(status, body), expected);
        EXPECT_EQ(m_requests.size(), 1);
    }
}

TEST_F(DeepSeekPolisherTest, ChecksTheSettingsBeforeAnyNetworkUse)
{
    const std::pair<QString, QString> rows[] = {
        {u"https://api.x"_s, u"https://api.x/chat/completions"_s},
        {u"//https://api.x///"_s, u"https://api.x/chat/completions"_s},
        {u"http://api.x:8080/v1/"_s, u"http://api.x:8080/v1/chat/completions"_s},
    };
    for (const auto &[base, expected] : rows) {
        m_config.baseURL = base;
        EXPECT_EQ(DeepSeekPolisher::endpoint(m_config)->url.toString(), expected);
    }
    const auto call = [this] { return polished(); };
    for (const auto &base : u"|///|api.x|https://api.x | https://api.x|https://|http://api.x:99999|"
                            "ftp://api.x"_s.split(u'|')) {
        m_config.baseURL = base;
        EXPECT_EQ(serviceOutcome(call), "configMissing: DeepSeek baseURL 不正确。");
    }
    m_config.apiKey = u" \u2028"_s;
    EXPECT_EQ(serviceOutcome(call),
              "configMissing: 请先在 ~/.wrenfold/config.json 填入 DeepSeek apiKey。");
}
