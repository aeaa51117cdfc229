// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HttpSession.h"
#include "Outcome.h"
#include "ScriptedHttpServer.h"
#include "VolcengineFlashASR.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class VolcengineFlashASRTest : public testing::Test
{
protected:
    VolcengineFlashASRTest()
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("RIFF") == 4);
        m_config.apiKey = u" key\n"_s;
    }

    // Transcribes against a server that gives this answer.
    QString outcomeOf(const ScriptedAnswer &answer)
    {
        const ScriptedHttpServer server(answer);
        m_config.endpoint = server.url(u"/flash"_s).toString();
        auto result = outcomeOfCall();
        m_requests = server.requests();
        return result;
    }

    QString outcomeOfCall()
    {
        return outcome([this] {
            const VolcengineFlashASR recogniser(m_config, m_dictionary, m_session);
            return recogniser.transcribe(QUrl::fromLocalFile(m_path));
        });
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
};

const ScriptedAnswer hello{.body = R"({"result":{"text":" \n你好 \u2028","x":1},"y":[]})"};

} // namespace

TEST_F(VolcengineFlashASRTest, SendsTheWholeRequestInTheGivenOrder)
{
    m_config.modelName = u"big\"model"_s;
    m_config.enableDDC = false;
    EXPECT_EQ(outcomeOf(hello), u"= 你好"_s);
    ASSERT_EQ(m_requests.size(), 1);
    EXPECT_TRUE(m_requests[0].head.startsWith("POST /flash HTTP/1.1\r\n"));
    EXPECT_EQ(ownHeaders(),
              "Content-Type: application/json\nX-Api-Resource-Id: volc.bigasr.auc_turbo\n"
              "X-Api-Request-Id\nX-Api-Sequence: -1\nX-Api-Key: key\n");
    EXPECT_EQ(m_requests[0].body,
              R"({"user":{"uid":"key"},"audio":{"data":"UklGRg=="},"request":{"model_name":)"
              R"("big\"model","enable_itn":true,"enable_punc":true,"enable_ddc":false}})");
    const auto id = m_requests[0].header("X-Api-Request-Id");
    EXPECT_EQ(QUuid(QString::fromLatin1(*id)).toString(QUuid::WithoutBraces).toUpper().toLatin1(),
              *id);
    EXPECT_EQ(outcomeOf(hello), u"= 你好"_s);
    EXPECT_NE(m_requests.at(0).header("X-Api-Request-Id"), id);
}

TEST_F(VolcengineFlashASRTest, SendsHotwordsAsJsonInsideAString)
{
    m_dictionary.terms = {u"C++ 语言"_s, u"x"_s, u"c 语言"_s, u"Wren"_s};
    EXPECT_EQ(outcomeOf(hello), u"= 你好"_s);
    EXPECT_TRUE(m_requests.at(0).body.endsWith(
        R"("enable_ddc":true,"corpus":{"context":"{\"hotwords\":[{\"word\":\"C 语言\"},)"
        R"({\"word\":\"Wren\"}]}"}}})"))
        << m_requests[0].body.toStdString();
}

TEST_F(VolcengineFlashASRTest, UsesTheKeyPairWithoutAnApiKey)
{
    m_config.apiKey = u"  "_s;
    m_config.appKey = u" app "_s;
    m_config.accessKey = u"access\n"_s;
    EXPECT_EQ(outcomeOf(hello), u"= 你好"_s);
    EXPECT_TRUE(ownHeaders().endsWith("-1\nX-Api-App-Key: app\nX-Api-Access-Key: access\n"));
    EXPECT_TRUE(m_requests.at(0).body.startsWith(R"({"user":{"uid":"app"},)"));
}

TEST_F(VolcengineFlashASRTest, TurnsEveryAnswerIntoItsOutcome)
{
    using Headers = QList<std::pair<QByteArray, QByteArray>>;
    const Headers ok{{"x-api-status-code", "20000000"}};
    const auto empty =
        u"responseFailed: 火山引擎没有返回可用文字，可能是静音、音频太短或识别失败。"_s;
    const QByteArray good = R"({"result":{"text":"t"}})";
    const std::vector<std::tuple<int, QByteArray, Headers, QString>> table{
        {200, good, ok, u"= t"_s},
        {299, good, {}, u"= t"_s},
        {401, good, {{"X-Api-Status-Code", "1"}}, u"serviceFailed: 火山引擎请求失败：HTTP 401。"_s},
        {302, good, ok, u"serviceFailed: 火山引擎请求失败：HTTP 302。"_s},
        {200,
         good,
         {{"X-Api-Status-Code", "45000001"}, {"X-Api-Message", "参数 bad"}},
         u"serviceFailed: 火山引擎识别失败：45000001 参数 bad。"_s},
        {200,
         good,
         {{"X-Api-Status-Code", "020000000"}},
         u"serviceFailed: 火山引擎识别失败：020000000 unknown。"_s},
        {200, "{}", ok, empty},
        {200, R"({"result":null})", ok, empty},
        {200, R"({"result":{}})", ok, empty},
        {200, R"({"result":{"text":null}})", ok, empty},
        {200, R"({"result":{"text":" \n\t"}})", ok, empty},
        {200, R"({"result":{"text":1}})", ok, u"json"_s},
        {200, R"({"result":[]})", ok, u"json"_s},
        {200, "[]", ok, u"json"_s},
        {200, "", ok, u"json"_s},
        {200, good + "x", ok, u"json"_s},
        {200, "{\"result\":{\"text\":\"\xff\"}}", ok, u"json"_s},
        {200, QByteArray(100'000, '['), ok, u"json"_s},
        {200,
         R"({"result":)" + QByteArray(100'000, '[') + QByteArray(100'000, ']') + '}',
         ok,
         u"json"_s},
    };
    for (const auto &[status, body, headers, expected] : table) {
        EXPECT_EQ(outcomeOf({.status = status, .body = body, .headers = headers}), expected);
        EXPECT_EQ(m_requests.size(), 1);
    }
}

TEST_F(VolcengineFlashASRTest, ChecksTheSettingsThenTheFileBeforeAnyNetworkUse)
{
    const auto badKeys =
        u"configMissing: 请先在 ~/.wrenfold/config.json 填入火山引擎 apiKey，或 appKey + accessKey。"_s;
    const ScriptedHttpServer server(hello);
    m_config.endpoint = server.url().toString();
    m_path = m_directory.filePath(u"missing.wav"_s);
    EXPECT_EQ(
        outcomeOfCall(),
        u"other: The file \"%1\" could not be read: No such file or directory."_s.arg(m_path));
    m_path = m_directory.path();
    EXPECT_TRUE(outcomeOfCall().startsWith(u"other: The file "_s));
    m_config.apiKey.clear();
    m_config.appKey = u"app"_s;
    EXPECT_EQ(outcomeOfCall(), badKeys);
    m_config.endpoint = u"https:///api/v3"_s;
    for (const auto &endpoint : {u""_s,
                                 u"not a url"_s,
                                 u"words"_s,
                                 u"ftp://x"_s,
                                 u"https://"_s,
                                 u"http://host:99999"_s,
                                 u" http://host"_s,
                                 u"http://a b/"_s}) {
        m_config.endpoint = endpoint;
        EXPECT_EQ(outcomeOfCall(), u"configMissing: 火山引擎识别接口地址不正确。"_s);
    }
    EXPECT_EQ(server.connections(), 0);
}
