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

Finding SettingsCheck::fileModes()
{
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
        | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QFileInfo folder(DataDirectory::path());
    if (!folder.exists())
        return {Verdict::Works, u"Files"_s, u"there are none yet."_s, {}};
    if (!folder.isWritable())
        return {Verdict::Fails,
                u"Files"_s,
                folder.filePath() + u" cannot be written to."_s,
                u"Give it to yourself: chown and chmod u+rwX."_s};
    if (folder.permissions() & others)
        return {Verdict::Limited,
                u"Files"_s,
                u"others can look into "_s + folder.filePath() + u'.',
                u"Wrenfold closes it when it starts."_s};
    return {Verdict::Works, u"Files"_s, folder.filePath() + u" is yours alone."_s, {}};
}

QList<Finding> SettingsCheck::services(const AppConfig &config, HttpSession &http)
{
    return {service(u"Recognition"_s, VolcengineFlashASR::endpoint(config.volcengine), http),
            service(u"Polishing"_s, DeepSeekPolisher::endpoint(config.deepSeek), http)};
}
