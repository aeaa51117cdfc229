// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SettingsCheck.h"

#include "AppRuntime.h"
#include "DataDirectory.h"
#include "DeepSeekPolisher.h"
#include "HttpSession.h"
#include "LocalizedError.h"
#include "VolcengineFlashASR.h"

#include <QDirIterator>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Verdict = Finding::Verdict;

namespace {

constexpr auto serviceLimit = 10s;

Finding
service(const QString &subject, const std::optional<HttpAddress> &address, HttpSession &http)
{
    if (!address)
        return {Verdict::Fails,
                subject,
                u"its address is none."_s,
                u"Correct it in "_s + AppRuntime::configPathDisplay + u'.'};
    try {
        const auto response =
            http.send({.address = *address,
                       .headers = {{"Content-Type", "application/json"}},
                       .openBody = [] { return std::make_unique<BytesBody>("{}"); },
                       .inactivityLimit = serviceLimit});
        return {Verdict::Works,
                subject,
                u"%1 answers (HTTP %2; no key was sent)."_s.arg(address->url.host())
                    .arg(response.status),
                {}};
    } catch (...) {
        return {Verdict::Fails,
                subject,
                localizedDescription(std::current_exception()),
                u"Look at the network, the proxy (https_proxy) and the clock of this machine."_s};
    }
}

QString modeOf(const QFileInfo &file)
{
    const auto bits = file.permissions().toInt(); // a hexadecimal digit for each whom it is for
    const auto mode = (bits >> 12 & 7) << 6 | (bits >> 4 & 7) << 3 | (bits & 7);
    return QString::number(mode, 8).rightJustified(4, u'0');
}

// What is wrong with the mode of a file or folder, if anything. `loss` is the verdict on one that
// the user cannot read and write.
std::optional<Finding> fileMode(const QFileInfo &file, Verdict loss)
{
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
        | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const auto path = file.filePath();
    if (!file.isReadable() || !file.isWritable())
        return Finding{loss,
                       u"Files"_s,
                       u"%1 (mode %2, of %3) cannot be read and written."_s.arg(
                           path, modeOf(file), file.owner()),
                       u"Give it to yourself: chown and chmod u+rwX."_s};
    if ((file.permissions() & others) != 0)
        return Finding{Verdict::Limited,
                       u"Files"_s,
                       u"%1 is open to others (mode %2)."_s.arg(path, modeOf(file)),
                       "chmod go= "_L1 + path};
    return {};
}

} // namespace

AppConfig SettingsCheck::load(QList<Finding> &findings)
{
    const auto subject = u"Settings"_s;
    if (!QFileInfo::exists(AppConfig::configURL().toLocalFile())) {
        findings.append({Verdict::Limited,
                         subject,
                         u"there are none yet."_s,
                         u"Start Wrenfold, and follow its first page."_s});
        return {};
    }
    try {
        auto config = AppConfig::loadOrCreateTemplate().config;
        findings.append(
            {Verdict::Works, subject, AppRuntime::configPathDisplay + u" is in order."_s, {}});
        return config;
    } catch (...) {
        findings.append(
            {Verdict::Fails,
             subject,
             localizedDescription(std::current_exception()),
             u"Correct the file, or save something in the window: it is set aside then."_s});
        return {};
    }
}

Finding SettingsCheck::keys(const AppConfig &config)
{
    const auto &voice = config.volcengine;
    const bool hasVoice = !voice.apiKey.trimmed().isEmpty()
        || (!voice.appKey.trimmed().isEmpty() && !voice.accessKey.trimmed().isEmpty());
    const bool hasPolish = !config.deepSeek.apiKey.trimmed().isEmpty();
    if (hasVoice && hasPolish)
        return {Verdict::Works,
                u"Keys"_s,
                u"both services have one; only a dictation tells whether it is right."_s,
                {}};
    return {
        Verdict::Fails,
        u"Keys"_s,
        hasVoice        ? u"the polishing has none."_s
            : hasPolish ? u"the recognition has none."_s
                        : u"there are none."_s,
        u"Enter them on the first page, or use services on this machine: wrenfold-local enable."_s};
}

QList<Finding> SettingsCheck::fileModes()
{
    const QFileInfo folder(DataDirectory::path());
    if (!folder.exists())
        return {{Verdict::Works, u"Files"_s, u"there are none yet."_s, {}}};
    QList<Finding> wrong;
    if (const auto finding = fileMode(folder, Verdict::Fails))
        wrong.append(*finding);
    QDirIterator files(folder.filePath(),
                       QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        if (const auto finding = fileMode(files.nextFileInfo(), Verdict::Limited))
            wrong.append(*finding);
    if (wrong.isEmpty())
        wrong.append({Verdict::Works, u"Files"_s, folder.filePath() + u" is yours alone."_s, {}});
    return wrong;
}

QList<Finding> SettingsCheck::services(const AppConfig &config, HttpSession &http)
{
    return {service(u"Recognition"_s, VolcengineFlashASR::endpoint(config.volcengine), http),
            service(u"Polishing"_s, DeepSeekPolisher::endpoint(config.deepSeek), http)};
}
