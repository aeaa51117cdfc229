// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DeepSeekPolisher.h"
#include "HttpSession.h"
#include "Outcome.h"
#include "ScriptedHttpServer.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class DeepSeekPolisherTest : public testing::Test
{
protected:
    DeepSeekPolisherTest() { m_config.apiKey = u"\t sk-1 \n"_s; }

    QString outcomeOf(const ScriptedAnswer &answer, const QString &transcript = {})
    {
        const ScriptedHttpServer server(answer);
        m_config.baseURL = server.url().toString();
        auto result = outcomeOfCall(transcript);
        m_requests = server.requests();
        return result;
    }

    QString outcomeOfCall(const QString &transcript = {})
    {
        return outcome([&] {
            return DeepSeekPolisher(m_config, u"你是/\"助手\"\n"_s, m_session).polish(transcript);
        });
    }

    DeepSeekConfig m_config;
    HttpSession m_session;
    std::vector<RecordedRequest> m_requests;
};

QByteArray choices(const QByteArray &list)
{
    return R"({"id":1,"choices":[)" + list + "]}";
}

QByteArray choice(const QByteArray &content)
{
    return R"({"message":{"role":"assistant","content":)" + content + "}}";
}

} // namespace

TEST_F(DeepSeekPolisherTest, SendsTheWholeRequestInTheGivenOrder)
{
    EXPECT_EQ(outcomeOf({.body = choices(choice(R"(" 好。\n")"))}, u" 嗯\\ "_s), u"= 好。"_s);
    ASSERT_EQ(m_requests.size(), 1);
    const auto head = m_requests[0].head;
    EXPECT_TRUE(head.startsWith("POST /chat/completions HTTP/1.1\r\n"));
    EXPECT_TRUE(
        head.contains("\r\nContent-Type: application/json\r\nAuthorization: Bearer sk-1\r\n"));
    EXPECT_EQ(m_requests[0].body,
              R"({"model":"deepseek-v4-flash","messages":[{"role":"system","content":)"
              R"("你是/\"助手\"\n"},{"role":"user","content":"语音识别原文：\n 嗯\\ "}],)"
              R"("thinking":{"type":"disabled"},"stream":false})");
}

TEST_F(DeepSeekPolisherTest, TurnsEveryAnswerIntoItsOutcome)
{
    const auto empty = u"responseFailed: DeepSeek 没有返回整理后的文本。"_s;
    const std::vector<std::tuple<int, QByteArray, QString>> table{
        {200, choices(choice("\"a\"") + ',' + choice("\"b\"")), u"= a"_s},
        {200, choices(""), empty},
        {200, choices(choice(R"(" \n\u00a0")")), empty},
        {402,
         "{\"e\":\"余额\"}\n",
         u"serviceFailed: DeepSeek 请求失败：HTTP 402。{\"e\":\"余额\"}\n"_s},
        {500, "bad \xe4\xbd", u"serviceFailed: DeepSeek 请求失败：HTTP 500。"_s},
        {307, "", u"serviceFailed: DeepSeek 请求失败：HTTP 307。"_s},
        {200, choices(choice("null")), u"json"_s},
        {200, choices(choice("\"a\"") + ',' + choice("null")), u"json"_s},
        {200, choices(R"({"message":{"content":"a"}})"), u"json"_s},
        {200, choices(R"({"message":null})"), u"json"_s},
        {200, choices("1"), u"json"_s},
        {200, R"({"choices":{}})", u"json"_s},
        {200, "{}", u"json"_s},
        {200, "null", u"json"_s},
        {200, choices(choice("\"\xc3\"")), u"json"_s},
        {200, choices(QByteArray(5'000, '[') + QByteArray(5'000, ']')), u"json"_s},
    };
    for (const auto &[status, body, expected] : table) {
        EXPECT_EQ(outcomeOf({.status = status, .body = body}), expected);
        EXPECT_EQ(m_requests.size(), 1);
    }
}

TEST_F(DeepSeekPolisherTest, AppendsTheChatPathToTheConfiguredBase)
{
    const std::vector<std::pair<QString, QString>> table{
        {u"https://api.x"_s, u"https://api.x/chat/completions"_s},
        {u"//https://api.x///"_s, u"https://api.x/chat/completions"_s},
        {u"http://api.x:8080/v1/"_s, u"http://api.x:8080/v1/chat/completions"_s},
        {u""_s, {}},
        {u"///"_s, {}},
        {u"api.x"_s, {}},
        {u"https://api.x "_s, {}},
        {u" https://api.x"_s, {}},
        {u"https://"_s, {}},
        {u"http://api.x:99999"_s, {}},
        {u"ftp://api.x"_s, {}},
    };
    for (const auto &[base, expected] : table) {
        m_config.baseURL = base;
        EXPECT_EQ(DeepSeekPolisher::endpoint(m_config).value_or(QUrl()).toString(), expected);
        if (expected.isEmpty()) {
            EXPECT_EQ(outcomeOfCall(), u"configMissing: DeepSeek baseURL 不正确。"_s);
        }
    }
    m_config.apiKey = u" \u2028"_s;
    EXPECT_EQ(outcomeOfCall(),
              u"configMissing: 请先在 ~/.wrenfold/config.json 填入 DeepSeek apiKey。"_s);
}

TEST_F(DeepSeekPolisherTest, RefusesAKeyThatIsNoHeaderValue)
{
    for (const auto &key : {u"sk\r\nX-Injected: 1"_s, u"密钥"_s}) {
        m_config.apiKey = key;
        EXPECT_EQ(outcomeOf({.body = choices(choice("\"a\""))}), u"invalidRequest"_s);
        EXPECT_EQ(m_requests.size(), 0);
    }
}
