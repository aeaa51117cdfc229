// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Check.h"

#include "Autostart.h"
#include "DesktopCheck.h"
#include "HttpSession.h"
#include "InstanceChannel.h"
#include "SettingsCheck.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;
using Verdict = Finding::Verdict;

namespace {

const char *word(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Works:
        return "ok";
    case Verdict::Limited:
        return "note";
    case Verdict::Fails:
        return "FAILS";
    }
    Q_UNREACHABLE();
}

void print(const Finding &finding)
{
    std::printf("%-6s %-12s %s\n",
                word(finding.verdict),
                qUtf8Printable(finding.subject),
                qUtf8Printable(finding.text));
    if (!finding.remedy.isEmpty())
        std::printf("%20s%s\n", "", qUtf8Printable(finding.remedy));
}

Finding instance(bool isRunning)
{
    return {isRunning ? Verdict::Works : Verdict::Limited,
            u"Wrenfold"_s,
            isRunning ? u"it runs in this session."_s : u"it does not run in this session."_s,
            {}};
}

Finding autostart()
{
    return {Verdict::Works, u"Autostart"_s, Autostart::isOn() ? u"on."_s : u"off."_s, {}};
}

QList<Finding> findings(const Backends &backends, bool isOnline)
{
    QList<Finding> all;
    const bool isRunning = InstanceChannel::isRunning();
    all.append(SettingsCheck::fileModes()); // before reading makes them private
    const auto config = SettingsCheck::load(all);
    all += {SettingsCheck::keys(config),
            DesktopCheck::microphone(*backends.audio),
            DesktopCheck::hotKey(backends, config.hotKey, isRunning),
            DesktopCheck::paste(*backends.keyboard),
            DesktopCheck::overlay(backends),
            DesktopCheck::tray(),
            instance(isRunning),
            autostart()};
    if (isOnline) {
        HttpSession http;
        all += SettingsCheck::services(config, http);
    } else {
        all.append({Verdict::Limited,
                    u"Services"_s,
                    u"not asked."_s,
                    u"\"wrenfold --check --online\" asks them, without a key."_s});
    }
    return all;
}

} // namespace

int runCheck(const Backends &backends, bool isOnline)
{
    const auto all = findings(backends, isOnline);
    std::ranges::for_each(all, &print);
    const bool works = std::ranges::none_of(
        all, [](const auto &finding) { return finding.verdict == Verdict::Fails; });
    std::printf("\n%s\n",
                works ? "A dictation will work here." : "A dictation will not work here yet.");
    std::fflush(stdout);
    return works ? 0 : 1;
}
