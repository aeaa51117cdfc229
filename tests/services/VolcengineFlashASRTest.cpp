// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"
#include "ServiceOutcome.h"
#include "VolcengineFlashASR.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class VolcengineFlashASRTest : public testing::Test
{
protected:
    VolcengineFlashASRTest()
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("RIFF") == 4);
        m_config.apiKey = u" key\n"_s;
        m_config.appKey = u" app "_s;
        m_config.accessKey = u"access\n"_s;
    }

    QString transcribed()
    {
        return VolcengineFlashASR(m_config, m_dictionary, m_session)
            .transcribe(QUrl::fromLocalFile(m_path));
    }

    std::string outcomeOf(const ScriptedAnswer &answer)
    {
        auto [result, requests] =
            answered(answer, m_config.endpoint, [this] { return transcribed(); });
        m_requests = std::move(requests);
        return result;
    }

    // "name: value" of the headers that are ours, a line each; the request id left out.
    QByteArray ownHeaders()
    {
        QByteArray result;
        for (const auto &[name, value] : m_requests.at(0).headers())
            if (name.startsWith("X-Api") || name == "Content-Type")
                result += name + (name == "X-Api-Request-Id" ? "" : ": " + value) + '\n';
        return result;
    }

    QTemporaryDir m_directory;
    QString m_path = m_directory.filePath(u"audio.wav"_s);
    VolcengineConfig m_config;
    PersonalDictionaryConfig m_dictionary;
    HttpSession m_session;
    std::vector<RecordedRequest> m_requests;
    const ScriptedAnswer m_hello{.body = R"({"result":{"text":" \n你好 \u2028","x":1},"y":[]})"};
};

TEST_F(VolcengineFlashASRTest, SendsTheWholeRequestInTheGivenOrder)
{
    m_config.modelName = u"big\"model"_s;
    m_config.enablePunctuation = false;
    EXPECT_EQ(outcomeOf(m_hello), "= 你好");
    EXPECT_TRUE(m_requests.at(0).head.startsWith("POST /base HTTP/1.1\r\n"));
    EXPECT_EQ(ownHeaders(),
              "Content-Type: application/json\nX-Api-Resource-Id: volc.bigasr.auc_turbo\n"
              "X-Api-Request-Id\nX-Api-Sequence: -1\nX-Api-Key: key\n");
    EXPECT_EQ(m_requests[0].body,
              R"({"user":{"uid":"key"},"audio":{"data":"UklGRg=="},"request":{"model_name":)"
              R"("big\"model","enable_itn":true,"enable_punc":false,"enable_ddc":true}})");
    const auto id = QString::fromLatin1(*m_requests[0].header("X-Api-Request-Id"));
    EXPECT_EQ(QUuid(id).toString(QUuid::WithoutBraces).toUpper(), id);

    m_config.apiKey = u"  "_s;
    m_config.enableDDC = false;
    m_dictionary.terms = {u"C++ 语言"_s, u"x"_s, u"c 语言"_s, u"Wren"_s};
    EXPECT_EQ(outcomeOf(m_hello), "= 你好");
    EXPECT_NE(m_requests.at(0).header("X-Api-Request-Id"), id.toLatin1());
    EXPECT_TRUE(ownHeaders().endsWith("-1\nX-Api-App-Key: app\nX-Api-Access-Key: access\n"));
    EXPECT_TRUE(m_requests[0].body.startsWith(R"({"user":{"uid":"app"},)"));
    EXPECT_TRUE(m_requests[0].body.endsWith(
        R"("enable_itn":true,"enable_punc":false,"enable_ddc":false,"corpus":{"context":"{\"hotwords\":[{\"word\":\"C 语言\"},)"
        R"({\"word\":\"Wren\"}]}"}}})"));
}

TEST_F(VolcengineFlashASRTest, TurnsEveryAnswerIntoItsOutcome)
{
    using Headers = QList<std::pair<QByteArray, QByteArray>>;
    const Headers ok{{"x-api-status-code", "20000000"}};
    const Headers bad{{"X-Api-Status-Code", "45000001"}, {"X-Api-Message", "参数 bad"}};
    const std::string empty =
        "responseFailed: 火山引擎没有返回可用文字，可能是静音、音频太短或识别失败。";
    const std::string failed = "serviceFailed: 火山引擎识别失败：";
    const QByteArray good = R"({"result":{"text":"t"}})";
    const QByteArray deep = QByteArray(100'000, '[');
    const std::tuple<int, Headers, QByteArray, std::string> rows[] = {
        {200, ok, good, "= t"},
        {299, {}, good, "= t"},
        {401, bad, good, "serviceFailed: 火山引擎请求失败：HTTP 401。"},
        {302, ok, good, "serviceFailed: 火山引擎请求失败：HTTP 302。"},
        {200, bad, good, failed + "45000001 参数 bad。"},
        {200, {{"X-Api-Status-Code", "020000000"}}, good, failed + "020000000 unknown。"},
        {200, ok, "{}", empty},
        {200, ok, R"({"result":null})", empty},
        {200, ok, R"({"result":{}})", empty},
        {200, ok, R"({"result":{"text":null}})", empty},
        {200, ok, R"({"result":{"text":" \n\t"}})", empty},
        {200, ok, R"({"result":{"text":1}})", "json"},
        {200, ok, R"({"result":[]})", "json"},
        {200, ok, "[]", "json"},
        {200, ok, "", "json"},
        {200, ok, good + "x", "json"},
        {200, ok, "{\"result\":{\"text\":\"\xff\"}}", "json"},
        {200, ok, deep, "json"},
        {200, ok, R"({"result":)" + deep + QByteArray(100'000, ']') + '}', "json"},
    };
    for (const auto &[status, headers, body, expected] : rows) {
        EXPECT_EQ(outcomeOf({.status = status, .body = body, .headers = headers}), expected);
        EXPECT_EQ(m_requests.size(), 1);
    }
}

TEST_F(VolcengineFlashASRTest, ChecksTheSettingsThenTheFileBeforeAnyNetworkUse)
{
    const ScriptedHttpServer server(m_hello);
    const auto call = [this] { return transcribed(); };
    m_config.endpoint = server.url().toString();
    for (const auto &[name, reason] : {std::pair(u"missing.wav"_s, "No such file or directory."),
                                       std::pair(u"."_s, "file to open is a directory.")}) {
        m_path = m_directory.filePath(name);
        EXPECT_EQ(serviceOutcome(call),
                  "other: The file \"" + m_path.toStdString() + "\" could not be read: " + reason);
    }
    m_config.apiKey.clear();
    m_config.accessKey.clear();
    EXPECT_EQ(serviceOutcome(call),
              "configMissing: 请先在 ~/.wrenfold/config.json 填入火山引擎 apiKey，"
              "或 appKey + accessKey。");
    for (const auto &endpoint :
         u"|not a url|words|ftp://x|https://|https:///api/v3|http://host:99999|"
         " http://host|http://a b/"_s.split(u'|')) {
        m_config.endpoint = endpoint;
        EXPECT_EQ(serviceOutcome(call), "configMissing: 火山引擎识别接口地址不正确。");
    }
    EXPECT_EQ(server.connections(), 0);
}
