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

void print(const DesktopWays &ways)
{
    std::printf("\nWhat does what on this desktop (%s):\n", qUtf8Printable(ways.session));
    for (const auto &part : ways.parts)
        std::printf("%-19s %s%s%s\n",
                    qUtf8Printable(part.title),
                    qUtf8Printable(part.way),
                    part.limit.isEmpty() ? "" : ". ",
                    qUtf8Printable(part.limit));
}

Finding session()
{
    return {Verdict::Limited,
            u"Session"_s,
            u"of this Wayland desktop only programs of X (XWayland) can be reached."_s,
            u"Start them so, or choose a session on X11 when you log in."_s};
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
    all += SettingsCheck::fileModes(); // before reading makes them private
    const auto config = SettingsCheck::load(all);
    all += {SettingsCheck::keys(config),
            DesktopCheck::microphone(*backends.audio),
            DesktopCheck::hotKey(backends, config.hotKey, isRunning)};
    if (!isRunning)
        all.append(DesktopCheck::escape(*backends.hotKeys));
    if (backends.usesXWayland)
        all.append(session());
    all += {DesktopCheck::paste(*backends.keyboard),
            DesktopCheck::clipboard(backends),
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
    for (const auto &finding : all)
        print(finding);
    print(backends.ways);
    const bool works = std::ranges::none_of(
        all, [](const auto &finding) { return finding.verdict == Verdict::Fails; });
    std::printf("\n%s\n",
                works ? "A dictation will work here." : "A dictation will not work here yet.");
    std::fflush(stdout);
    return works ? 0 : 1;
}
