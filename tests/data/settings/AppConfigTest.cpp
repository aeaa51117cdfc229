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

TEST_F(AppConfigTest, AnAdministratorsDefaultsFillANewFileAndNoOther)
{
    const auto defaults = u"xdg/wrenfold/defaults.json"_s;
    qputenv("XDG_CONFIG_DIRS", "relative:" + m_home.path(u"xdg"_s).toUtf8());
    m_home.write(defaults, R"({"deepSeek": {"baseURL": "https://polish.lan"}, "other": 1})");
    AppConfig expected;
    expected.deepSeek.baseURL = u"https://polish.lan"_s;
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, expected);
    m_home.write(defaults, R"({"deepSeek": {"baseURL": 1}})");
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, expected);
    // It may say where speech must not go: nothing is made up in its place.
    ASSERT_TRUE(QFile::remove(m_home.path(configFile)));
    EXPECT_THROW(load(), LocalizedError);
    EXPECT_FALSE(QFile::exists(m_home.path(configFile)));
    qunsetenv("XDG_CONFIG_DIRS");
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

TEST_F(AppConfigTest, LoadsWhatIsAnObjectOfKnownFieldsAndNumbersThatFit)
{
    const auto with = [this](const char *before, const QByteArray &after) {
        return QByteArray(m_template).replace(before, after);
    };
    QByteArrayList good{"{}", "\xef\xbb\xbf{}", R"({"polishPrompt": null, "hotKey": null})"};
    auto bad = QByteArray("|null|[]|7|{|{} x|{'a': 1}|{\"polishPrompt\": 5}|{\"a\": \"\xff\"}|"
                          "{\"a\": \"\xed\xa0\x80\"}|{\"personalDictionary\": {\"terms\": [1]}}|"
                          "{\"prompts\": {\"selectedID\": \"\", \"customPrompts\": [{}]}}")
                   .split('|');
    bad << "{\"deep\": " + QByteArray(100'000, '[') + QByteArray(100'000, ']') + '}';
    for (const auto &number : QByteArray("0 49.0 4.9e1 4294967295").split(' '))
        good << with(": 49,", ": " + number + ',') << with(": 900", ": " + number);
    for (const auto &number : QByteArray("4294967296 -1 -9223372036854775808").split(' ')) {
        good << with(": 900", ": " + number);
        bad << with(": 49,", ": " + number + ',');
    }
    for (const auto &number : QByteArray("49.5 9223372036854775808 1e400 \"49\" true").split(' '))
        bad << with(": 49,", ": " + number + ',') << with(": 900", ": " + number);
    for (const auto &text : good + bad)
        EXPECT_EQ(errorOf(text).isEmpty(), good.contains(text)) << text.left(999).data();
    errorOf(R"({"later": 1, "personalDictionary": {"terms": ["X!"], "later": 0}})");
    AppConfig expected;
    expected.personalDictionary.terms = {u"X!"_s};
    EXPECT_EQ(m_loaded, expected);
    AppConfig::save(m_loaded);
    EXPECT_FALSE(m_home.read(configFile).contains("later"));
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
    const auto path = m_home.path(configFile);
    const std::pair<QString, std::function<void()>> rows[] = {
        {u"folder"_s, [&] { QDir().mkpath(path); }},
        {u"pipe"_s, [&] { ::mkfifo(qPrintable(path), 0600); }},
        {u"link without its target"_s, [&] { QFile::link(u"not-mounted"_s, path); }},
        {u"file for the directory"_s, [&] { m_home.write(u".wrenfold"_s, "a file"); }}};
    for (const auto &[what, put] : rows) {
        QDir(m_directory).removeRecursively();
        if (!what.startsWith("file"_L1))
            QDir().mkpath(m_directory);
        put();
        EXPECT_THROW(load(), LocalizedError) << what.toStdString();
        if (what != "pipe"_L1) {
            EXPECT_THROW(AppConfig::save({}), LocalizedError) << what.toStdString();
        }
        EXPECT_LE(namesIn(m_directory).size(), 1) << what.toStdString();
    }
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
