// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "DataTest.h"
#include "JsonCoding.h"
#include "PromptLibrary.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const auto configFile = u".wrenfold/config.json"_s;
const auto legacyFile = u".hush-wire/config.json"_s;

class AppConfigTest : public DataTest
{
protected:
    AppConfigTest()
    {
        m_unusual.volcengine.endpoint = u"http://[::1]/a?b=\"c\"\\"_s;
        m_unusual.volcengine.enablePunctuation = false;
        m_unusual.deepSeek = {u""_s, u"ключ"_s, u"\u0001\t\n👍"_s};
        m_unusual.paste = {-9'223'372'036'854'775'807};
        m_unusual.hotKey = {4'294'967'295, 0, u"⌃⌥"_s};
        m_unusual.prompts = {u"custom.A"_s, {{u"custom.A"_s, u"甲"_s, u"a\nb"_s}, {}}};
        m_unusual.personalDictionary.terms = {u"X!"_s, u"X!"_s};
        m_unusual.polishPrompt = u""_s;
        AppConfig::save({});
        m_template = m_home.read(configFile);
        QDir(m_directory).removeRecursively();
    }

    // Loads a file with this content, which must stay as it is, and returns the error's
    // description; empty when the file loads.
    QString errorOf(const QByteArray &content)
    {
        QString error;
        m_home.write(configFile, content);
        try {
            m_loaded = AppConfig::loadOrCreateTemplate().config;
        } catch (const LocalizedError &thrown) {
            error = thrown.localizedDescription();
        }
        EXPECT_EQ(m_home.read(configFile), content);
        return error;
    }

    static void load() { static_cast<void>(AppConfig::loadOrCreateTemplate()); }

    AppConfig m_unusual;
    AppConfig m_loaded;
    QByteArray m_template;
};

} // namespace

TEST_F(AppConfigTest, TheFirstLoadWritesATemplateAndAllFilesAreMadePrivate)
{
    const auto [config, createdTemplate] = AppConfig::loadOrCreateTemplate();
    EXPECT_TRUE(createdTemplate);
    EXPECT_EQ(config, AppConfig());
    EXPECT_EQ(config.polishPrompt, PromptLibrary::cleanPrompt().text);
    EXPECT_EQ(m_home.read(configFile), m_template);
    auto fields = QJsonDocument::fromJson(m_template).object();
    fields.remove("polishPrompt"_L1);
    EXPECT_EQ(
        QJsonDocument(fields).toJson(QJsonDocument::Compact),
        R"({"deepSeek":{"apiKey":"","baseURL":"https://api.deepseek.com",)"
        R"("model":"deepseek-v4-flash"},"hotKey":{"displayName":"⌘⇧Space","keyCode":49,)"
        R"("modifiers":768},"paste":{"restoreClipboardAfterMilliseconds":900},)"
        R"("personalDictionary":{"terms":[]},"prompts":{"customPrompts":[],)"
        R"("selectedID":"builtin.clean"},"volcengine":{"accessKey":"","apiKey":"",)"
        R"("appKey":"","enableDDC":true,"enableITN":true,"enablePunctuation":true,"endpoint":)"
        R"("https://openspeech.bytedance.com/api/v3/auc/bigmodel/recognize/flash",)"
        R"("modelName":"bigmodel","resourceId":"volc.bigasr.auc_turbo"}})");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(modeOf(m_directory), 0700U);
        EXPECT_EQ(modeOf(m_home.path(configFile)), 0600U);
        ::chmod(qPrintable(m_directory), 0755);
        ::chmod(qPrintable(m_home.path(configFile)), 0644);
        EXPECT_FALSE(AppConfig::loadOrCreateTemplate().createdTemplate);
        EXPECT_EQ(m_home.read(configFile), m_template);
    }
}

TEST_F(AppConfigTest, SavingKeepsALinkEveryFieldAndTheSameBytesWithKeysSorted)
{
    m_home.write(u"dotfiles/wrenfold.json"_s, "{}");
    QDir().mkpath(m_directory);
    QFile::link(m_home.path(u"dotfiles/wrenfold.json"_s), m_home.path(configFile));
    AppConfig::save(m_unusual);
    EXPECT_TRUE(QFileInfo(m_home.path(configFile)).isSymLink());
    EXPECT_EQ(namesIn(m_home.path(u"dotfiles"_s)), QStringList{u"wrenfold.json"_s});
    const auto text = m_home.read(configFile);
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, m_unusual);
    AppConfig::save(m_unusual);
    EXPECT_EQ(m_home.read(configFile), text);
    const auto keys = u"deepSeek apiKey baseURL model hotKey paste personalDictionary polishPrompt "
                      "prompts volcengine"_s.split(u' ');
    const QRegularExpression sorted(keys.join(u"\": .*\""_s),
                                    QRegularExpression::DotMatchesEverythingOption);
    EXPECT_TRUE(sorted.match(QString::fromUtf8(text)).hasMatch()) << text.data();
}

TEST_F(AppConfigTest, TheTopLevelIsLenient)
{
    for (const auto *text : {"{}", "\xef\xbb\xbf{}", R"({"polishPrompt": null, "hotKey": null})"}) {
        EXPECT_EQ(errorOf(text), QString());
        EXPECT_EQ(m_loaded, AppConfig());
    }
    errorOf(R"({"later": 1, "personalDictionary": {"terms": ["X!"], "later": 0}})");
    EXPECT_EQ(m_loaded.personalDictionary.terms, QStringList{u"X!"_s});
    AppConfig::save(m_loaded);
    EXPECT_FALSE(m_home.read(configFile).contains("later"));
}

TEST_F(AppConfigTest, EveryKeyOfARecordIsRequiredAndOfItsType)
{
    const auto whole = QJsonDocument::fromJson(m_template).object();
    int checked = 0;
    for (const auto &record : whole.keys()) {
        const auto fields = whole.value(record).toObject();
        const auto errorWith = [&](const QJsonValue &value) {
            auto changed = whole;
            changed.insert(record, value);
            return errorOf(QJsonDocument(changed).toJson());
        };
        EXPECT_TRUE(errorWith(5).contains(u'"' + record + u'"'));
        for (const auto &field : fields.keys())
            for (const auto &wrong :
                 {QJsonValue(QJsonValue::Undefined), QJsonValue(), QJsonValue(QJsonObject())}) {
                auto changed = fields;
                changed.insert(field, wrong);
                EXPECT_TRUE(errorWith(changed).contains(u"\"%1.%2\""_s.arg(record, field)));
                ++checked;
            }
    }
    EXPECT_EQ(checked, 3 * (9 + 3 + 1 + 3 + 2 + 1));
}

TEST_F(AppConfigTest, NumbersMustBeIntegersThatFit)
{
    const auto both = QByteArray("0 49.0 4.9e1 4294967295").split(' ');
    const auto delays =
        QByteArray("4294967296 -1 9223372036854775807 -9223372036854775808").split(' ');
    const auto none = QByteArray("49.5 9223372036854775808 1e300 1e400 \"49\" true").split(' ');
    const auto loadsWith = [this](const char *before, const QByteArray &after) {
        return errorOf(QByteArray(m_template).replace(before, after)).isEmpty();
    };
    for (const auto &number : both + delays + none) {
        EXPECT_EQ(loadsWith(": 49,", ": " + number + ','), both.contains(number)) << number.data();
        EXPECT_EQ(loadsWith(": 900", ": " + number), !none.contains(number)) << number.data();
    }
}

TEST_F(AppConfigTest, WhatIsNotAJsonObjectOfUtf8IsRefused)
{
    auto cases = QByteArray("|null|[]|7|{|{} x|{'a': 1}|{\"polishPrompt\": 5}|{\"a\": \"\xff\"}|"
                            "{\"a\": \"\xed\xa0\x80\"}|{\"personalDictionary\": {\"terms\": [1]}}|"
                            "{\"prompts\": {\"selectedID\": \"\", \"customPrompts\": [{}]}}")
                     .split('|');
    cases.append("{\"deep\": " + QByteArray(100'000, '[') + QByteArray(100'000, ']') + '}');
    for (const auto &text : std::as_const(cases))
        EXPECT_NE(errorOf(text), QString()) << text.left(80).data();
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
    EXPECT_THROW(load(), LocalizedError);
    EXPECT_THROW(load(), LocalizedError);
    EXPECT_EQ(m_home.read(configFile), "broken");
}

TEST_F(AppConfigTest, SomethingElseInTheFilesPlaceIsReportedAndKept)
{
    QDir().mkpath(m_home.path(configFile));
    EXPECT_THROW(load(), LocalizedError);
    EXPECT_THROW(AppConfig::save({}), LocalizedError);
    EXPECT_EQ(namesIn(m_directory), QStringList{u"config.json"_s});
    QDir().rmdir(m_home.path(configFile));
    QFile::link(u"not-mounted"_s, m_home.path(configFile));
    EXPECT_THROW(load(), LocalizedError);
    EXPECT_THROW(AppConfig::save({}), LocalizedError);
    EXPECT_FALSE(QFileInfo::exists(m_directory + u"/not-mounted"_s));
    QFile::remove(m_home.path(configFile));
    ::mkfifo(qPrintable(m_home.path(configFile)), 0600);
    EXPECT_THROW(load(), LocalizedError);
    QDir(m_directory).removeRecursively();
    m_home.write(u".wrenfold"_s, "a file");
    EXPECT_THROW(load(), LocalizedError);
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
    load();
    EXPECT_EQ(namesIn(m_directory), kept.split(u' '));
}
