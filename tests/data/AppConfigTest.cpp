// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "DataTest.h"
#include "JsonCoding.h"
#include "PromptLibrary.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const auto configFile = u".wrenfold/config.json"_s;
const auto legacyFile = u".hush-wire/config.json"_s;

class AppConfigTest : public DataTest
{
protected:
    // Loads a file with this content and checks that it stays as it is. The error's description
    // when it does not load, else empty.
    QString errorOf(const QByteArray &content)
    {
        m_home.write(configFile, content);
        QString error;
        try {
            const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
            EXPECT_FALSE(createdTemplate);
            m_loaded = config;
        } catch (const LocalizedError &thrown) {
            error = thrown.localizedDescription();
        }
        EXPECT_EQ(m_home.read(configFile), content);
        return error;
    }

    // The template's file.
    QByteArray templateText()
    {
        AppConfig::save(AppConfig());
        return m_home.read(configFile);
    }

    AppConfig m_loaded;
};

AppConfig unusualConfig()
{
    AppConfig config;
    config.volcengine = {
        u"http://[::1]/a?b=\"c\"\\"_s, u"k"_s, u"a"_s, u"s"_s, u""_s, u"模"_s, false, true, false};
    config.deepSeek = {u"http://localhost:1"_s, u"ключ"_s, u"\u0001\t\n👍"_s};
    config.paste = {-9'223'372'036'854'775'807};
    config.hotKey = {4'294'967'295, 0, u"⌃⌥"_s};
    config.prompts = {u"custom.A"_s, {{u"custom.A"_s, u"甲"_s, u"a\nb"_s}, {u""_s, u""_s, u""_s}}};
    config.personalDictionary.terms = {u"X!"_s, u"X!"_s};
    config.polishPrompt = u""_s;
    return config;
}

} // namespace

TEST_F(AppConfigTest, TheFirstLoadWritesATemplateThatOnlyTheUserCanRead)
{
    const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
    EXPECT_TRUE(createdTemplate);
    EXPECT_EQ(config, AppConfig());
    EXPECT_EQ(config.polishPrompt, PromptLibrary::cleanPrompt().text);
    EXPECT_EQ(modeOf(m_directory), 0700U);
    EXPECT_EQ(modeOf(m_home.path(configFile)), 0600U);
    const auto text = m_home.read(configFile);
    EXPECT_TRUE(
        text.contains("\"https://openspeech.bytedance.com/api/v3/auc/bigmodel/recognize/flash\""));
    ::chmod(qPrintable(m_directory), 0755);
    ::chmod(qPrintable(m_home.path(configFile)), 0644);
    EXPECT_FALSE(AppConfig::loadOrCreateTemplate().createdTemplate);
    EXPECT_EQ(m_home.read(configFile), text);
    EXPECT_EQ(modeOf(m_directory), 0700U);
    EXPECT_EQ(modeOf(m_home.path(configFile)), 0600U);
}

TEST_F(AppConfigTest, SavingKeepsEveryFieldAndTheSameBytesWithKeysSorted)
{
    const auto config = unusualConfig();
    AppConfig::save(config);
    const auto text = m_home.read(configFile);
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, config);
    AppConfig::save(config);
    EXPECT_EQ(m_home.read(configFile), text);
    qsizetype last = 0;
    for (const auto *key : {"deepSeek",
                            "apiKey",
                            "baseURL",
                            "model",
                            "hotKey",
                            "paste",
                            "personalDictionary",
                            "polishPrompt",
                            "prompts",
                            "volcengine"}) {
        const auto position = text.indexOf('"' + QByteArray(key) + "\":", last);
        EXPECT_GT(position, last) << key;
        last = position;
    }
}

TEST_F(AppConfigTest, TheTopLevelIsLenient)
{
    EXPECT_EQ(errorOf("{}"), QString());
    EXPECT_EQ(m_loaded, AppConfig());
    EXPECT_EQ(errorOf(R"({"polishPrompt": null, "hotKey": null, "later": {"a": 1}})"), QString());
    EXPECT_EQ(m_loaded, AppConfig());
    EXPECT_EQ(
        errorOf(R"({"polishPrompt": "old", "personalDictionary": {"terms": ["X!"], "x": 0}})"),
        QString());
    EXPECT_EQ(PromptLibrary::selectedPrompt(m_loaded.prompts, m_loaded.polishPrompt),
              PromptLibrary::cleanPrompt());
    EXPECT_EQ(m_loaded.personalDictionary.terms, QStringList{u"X!"_s});
    AppConfig::save(m_loaded);
    EXPECT_FALSE(m_home.read(configFile).contains("\"x\""));
}

TEST_F(AppConfigTest, EveryKeyOfARecordIsRequiredAndOfItsType)
{
    const auto whole = QJsonDocument::fromJson(templateText()).object();
    int checked = 0;
    for (const auto &record : whole.keys()) {
        const auto fields = whole.value(record).toObject();
        for (const auto &field : fields.keys()) {
            for (const auto &wrong :
                 {QJsonValue(QJsonValue::Undefined), QJsonValue(), QJsonValue(QJsonObject())}) {
                auto changed = whole;
                auto changedFields = fields;
                changedFields.insert(field, wrong);
                changed.insert(record, changedFields);
                const auto error = errorOf(QJsonDocument(changed).toJson());
                EXPECT_TRUE(error.contains(u"\"%1.%2\""_s.arg(record, field))) << qPrintable(error);
                ++checked;
            }
        }
        auto changed = whole;
        changed.insert(record, 5);
        EXPECT_TRUE(errorOf(QJsonDocument(changed).toJson()).contains(record));
    }
    EXPECT_EQ(checked, 3 * (9 + 3 + 1 + 3 + 2 + 1));
}

TEST_F(AppConfigTest, NumbersMustBeIntegersThatFit)
{
    // The integers that fit either field, that fit only the signed 64-bit one, and the rest.
    const QByteArray both = "0 49.0 4.9e1 4294967295";
    const QByteArray delays = "4294967296 -1 9223372036854775807 -9223372036854775808";
    const QByteArray none = "49.5 9223372036854775808 1e300 1e400 \"49\" true";
    const auto text = templateText();
    for (const auto &number : (both + ' ' + delays + ' ' + none).split(' ')) {
        auto keyCode = text;
        auto delay = text;
        EXPECT_EQ(errorOf(keyCode.replace(": 49,", ": " + number + ',')).isEmpty(),
                  both.split(' ').contains(number))
            << number.data();
        EXPECT_EQ(errorOf(delay.replace(": 900", ": " + number)).isEmpty(),
                  (both + ' ' + delays).split(' ').contains(number))
            << number.data();
    }
}

TEST_F(AppConfigTest, WhatIsNotAJsonObjectOfUtf8IsRefused)
{
    QByteArrayList cases =
        QByteArray("|null|[]|7|{|{} x|{'a': 1}|{\"polishPrompt\": 5}|{\"a\": \"\xff\"}|"
                   "{\"a\": \"\xed\xa0\x80\"}|{\"personalDictionary\": {\"terms\": [\"a\", 1]}}|"
                   "{\"prompts\": {\"selectedID\": \"a\", \"customPrompts\": [{\"id\": \"b\"}]}}")
            .split('|');
    cases.append("{\"deep\": " + QByteArray(100'000, '[') + QByteArray(100'000, ']') + '}');
    for (const auto &text : std::as_const(cases))
        EXPECT_NE(errorOf(text), QString()) << text.left(80).data();
    EXPECT_EQ(errorOf("\xef\xbb\xbf{}"), QString());
}

TEST_F(AppConfigTest, ALegacyFileIsCopiedOnceAndOnlyWhenThereIsNoOther)
{
    m_home.write(legacyFile, R"({"polishPrompt": "legacy"})");
    const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
    EXPECT_FALSE(createdTemplate);
    EXPECT_EQ(config.polishPrompt, u"legacy"_s);
    EXPECT_EQ(m_home.read(configFile), m_home.read(legacyFile));
    EXPECT_EQ(modeOf(m_home.path(configFile)), 0600U);
    m_home.write(legacyFile, "broken");
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config.polishPrompt, u"legacy"_s);
    // A broken one is copied too, refused, and not replaced by a template.
    QFile::remove(m_home.path(configFile));
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_EQ(m_home.read(configFile), "broken");
}

TEST_F(AppConfigTest, ALinkStaysALinkToTheFileThatIsReplaced)
{
    m_home.write(u"dotfiles/wrenfold.json"_s, "{}");
    QDir().mkpath(m_directory);
    QFile::link(m_home.path(u"dotfiles/wrenfold.json"_s), m_home.path(configFile));
    AppConfig::save(unusualConfig());
    EXPECT_TRUE(QFileInfo(m_home.path(configFile)).isSymLink());
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, unusualConfig());
    EXPECT_EQ(namesIn(m_home.path(u"dotfiles"_s)), QStringList{u"wrenfold.json"_s});
}

TEST_F(AppConfigTest, SomethingElseInTheFilesPlaceIsReportedAndKept)
{
    QDir().mkpath(m_home.path(configFile));
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_THROW(AppConfig::save({}), LocalizedError);
    EXPECT_EQ(namesIn(m_directory), QStringList{u"config.json"_s});
    QDir().rmdir(m_home.path(configFile));
    ::mkfifo(qPrintable(m_home.path(configFile)), 0600);
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    QDir(m_directory).removeRecursively();
    m_home.write(u".wrenfold"_s, "a file");
    EXPECT_THROW(static_cast<void>(AppConfig::loadOrCreateTemplate()), LocalizedError);
    EXPECT_THROW(AppConfig::save({}), LocalizedError);
    EXPECT_EQ(m_home.read(u".wrenfold"_s), "a file");
}

TEST_F(AppConfigTest, OnlyTheUnfinishedWritesOfDeadProcessesAreRemoved)
{
    // No process can have this id: it is above the system's limit.
    const auto dead = u".config.json.4194305.saving"_s;
    const auto kept =
        u".config.json.1.saving .config.json.x.saving config.json config.json.backup"_s;
    for (const auto &name : kept.split(u' ') + QStringList{dead})
        m_home.write(u".wrenfold/"_s + name, "{}");
    static_cast<void>(AppConfig::loadOrCreateTemplate());
    EXPECT_EQ(namesIn(m_directory), kept.split(u' '));
}
