// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakRun.h"

#include "HistoryStore.h"
#include "SoakFailure.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"

#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qsizetype historyLimit = 200;
const QString foreignText = u"copied by another program"_s;

void pass(std::chrono::milliseconds time)
{
    static_cast<void>(waitUntil([] { return false; }, time));
}

QStringList writtenInHistory()
{
    QStringList written;
    const HistoryStore history;
    for (const auto &item : history.items())
        written << item.polished;
    return written;
}

bool begins(const QStringList &history, const QStringList &beginning)
{
    return history.size() == historyLimit && history.first(beginning.size()) == beginning;
}

bool isExpected(SoakFault fault, SoakOutcome outcome)
{
    using enum SoakFault;
    using enum SoakOutcome;
    switch (fault) {
    case RecognitionRefuses:
    case RecognitionAnswersWrongly:
    case RecognitionIsCutOff:
    case PolishingRefuses:
    case PolishingAnswersWrongly:
    case PolishingIsCutOff:
        return outcome == Told;
    case Escape:
        return outcome == Cancelled;
    case RecognitionIsSilent:
    case PolishingIsSilent:
    case Killed:
    case Quit:
        return outcome == Relaunched;
    case SoundStandsStill:
        return outcome == Pasted || outcome == Told;
    case FocusTaken:
    case EditorCloses:
        return outcome == Pasted || outcome == Copied;
    case ClipboardTaken:
        return outcome == Pasted || outcome == Copied || outcome == Told;
    default:
        return outcome == Pasted;
    }
}

} // namespace

SoakRun::SoakRun()
{
    {
        HistoryStore history;
        const SoakPlan before(0, 0);
        for (int number = -int(historyLimit); number < 0; ++number)
            history.add(before.step(number).spoken, before.step(number).written);
    }
    m_history = writtenInHistory();
    m_services.configure();
    m_application.launch();
    require(m_editors.begin(), u"the editor gets no focus"_s);
}

void SoakRun::dictate(const SoakStep &step)
{
    require(m_editors.text() == m_arrived, u"more has arrived since: "_s + m_editors.text());
    require(m_editors.begin(), u"the editor gets no focus"_s);
    m_log.mark();
    m_services.begin(step);
    auto end = start(step);
    if (!end)
        end = record(step);
    if (!end)
        end = process(step);
    if (!end)
        end = outcome(step);
    require(isExpected(step.fault, *end), u"it ended in another way: %1"_s.arg(int(*end)));
    m_arrived = m_editors.text();
    checkRequests(*end);
    checkHistory(step, *end);
    repair(step);
    checkTraces(step);
    m_report.note(step.fault, *end);
    m_application.countDictation();
}

std::optional<SoakOutcome> SoakRun::start(const SoakStep &step)
{
    const bool isDeaf = step.fault == SoakFault::SoundStandsStill && step.chance % 2 == 0;
    if (isDeaf)
        m_surroundings.stopSound();
    m_desktop.tap(Key::hotKey);
    if (step.fault == SoakFault::DoublePress)
        m_desktop.tap(Key::hotKey);
    require(m_log.await({u"Recording requested."_s}, 1s), u"the press is not heard"_s);
    const auto ends =
        isDeaf ? u"Showing error. error=录音没有启动成功。"_s : u"Recording started."_s;
    require(m_log.await({ends}), u"the log does not say: "_s + ends);
    return isDeaf ? std::optional(SoakOutcome::Told) : std::nullopt;
}

std::optional<SoakOutcome> SoakRun::record(const SoakStep &step)
{
    pass(step.length / 2);
    if (const auto end = interfere(step))
        return end;
    pass(step.length / 2);
    if (step.fault == SoakFault::HistoryReadOnly)
        require(m_surroundings.makeReadOnly(), u"the disk cannot be made read-only"_s);
    if (!m_log.has(u"Recording stopped."_s)) // by a second press that came late enough
        m_desktop.tap(Key::hotKey);
    return {};
}

std::optional<SoakOutcome> SoakRun::interfere(const SoakStep &step)
{
    static const QString layouts[] = {u"fr"_s, u"dvorak"_s, u"ru"_s, u"us,ru"_s, u"de"_s};
    switch (step.fault) {
    case SoakFault::Escape:
        m_desktop.tap({Key::escape});
        require(m_log.await({u"Recording cancelled."_s}, 1s), u"Escape does not cancel"_s);
        return SoakOutcome::Cancelled;
    case SoakFault::SoundStandsStill:
        m_surroundings.stopSound();
        break;
    case SoakFault::SoundRestarts:
        m_surroundings.killSound();
        require(m_log.await({u"Recording interrupted."_s}, 1s), u"the loss is not noticed"_s);
        break;
    case SoakFault::LayoutChanges:
        m_desktop.setLayout(layouts[step.chance % std::size(layouts)]);
        break;
    case SoakFault::WindowOpens:
        m_application.showPages();
        require(m_editors.begin(), u"the editor gets no focus"_s);
        break;
    case SoakFault::Killed:
    case SoakFault::Quit:
        if (step.chance % 2 == 0)
            break;
        m_application.relaunch(step.fault == SoakFault::Killed ? SIGKILL : SIGTERM);
        return SoakOutcome::Relaunched;
    default:
        break;
    }
    return {};
}

std::optional<SoakOutcome> SoakRun::process(const SoakStep &step)
{
    const auto await = [this](const auto &asked) {
        require(waitUntil([&] { return asked(m_services) > 0; }), u"no service is asked"_s);
    };
    switch (step.fault) {
    case SoakFault::RecognitionIsSilent:
    case SoakFault::Killed:
    case SoakFault::Quit:
        await(std::mem_fn(&SoakServices::recognitions));
        break;
    case SoakFault::PolishingIsSilent:
        await(std::mem_fn(&SoakServices::polishings));
        break;
    default:
        disturbPaste(step);
        require(m_log.await({u"Processing timing."_s}), u"processing does not end"_s);
        return {};
    }
    pass(std::chrono::milliseconds(step.chance % 80));
    m_application.relaunch(step.fault == SoakFault::Killed ? SIGKILL : SIGTERM);
    return SoakOutcome::Relaunched;
}

// While the services work, or at the very moment of the paste.
void SoakRun::disturbPaste(const SoakStep &step)
{
    if (step.fault == SoakFault::PressesWhileProcessing || step.fault == SoakFault::EditorCloses
        || step.fault == SoakFault::EscapeWhileProcessing)
        require(waitUntil([this] { return m_services.recognitions() > 0; }), u"not asked"_s);
    if (step.fault == SoakFault::ClipboardTaken || step.fault == SoakFault::FocusTaken) {
        require(waitUntil([this] { return m_services.hasWritten(); }), u"not asked"_s);
        pass(std::chrono::milliseconds(step.chance % 20));
    }
    if (step.fault == SoakFault::PressesWhileProcessing)
        for (int i = 0; i < 3; ++i)
            m_desktop.tap(Key::hotKey);
    else if (step.fault == SoakFault::EscapeWhileProcessing)
        m_desktop.tap({Key::escape});
    else if (step.fault == SoakFault::ClipboardTaken)
        SoakEditors::copy(foreignText);
    else if (step.fault == SoakFault::FocusTaken)
        m_editors.focus(1);
    else if (step.fault == SoakFault::EditorCloses)
        for (std::size_t i = 0; i < 1 + step.chance % 2; ++i)
            m_editors.close(i);
}

// What came of a dictation that was processed to its end.
SoakOutcome SoakRun::outcome(const SoakStep &step)
{
    const auto delivered = u"Paste delivered."_s;
    const auto failed = u"Showing processing failure. stage="_s;
    require(m_log.await({delivered, u"Paste not delivered."_s, failed}, 3s),
            u"nothing is said of what came of it"_s);
    if (m_log.has(failed + u"speechRecognition"_s) || m_log.has(failed + u"textPolishing"_s))
        return SoakOutcome::Told;
    if (m_log.has(delivered)) {
        require(waitUntil([&] { return m_editors.text() == step.written; }, 1s),
                u"what was said to be delivered is not in one editor: "_s + m_editors.text());
        return SoakOutcome::Pasted;
    }
    const bool isTaken = step.fault == SoakFault::ClipboardTaken;
    require(m_editors.text().isEmpty() || (isTaken && m_editors.text() == foreignText),
            u"this arrived, and was said not to be delivered: "_s + m_editors.text());
    if (SoakEditors::copied() == step.written)
        return SoakOutcome::Copied;
    return SoakOutcome::Told;
}

void SoakRun::repair(const SoakStep &step)
{
    m_surroundings.makeWritable();
    m_surroundings.continueSound();
    if (step.fault == SoakFault::LayoutChanges)
        m_desktop.setLayout(u"us"_s);
    if (step.fault == SoakFault::SoundRestarts)
        require(m_surroundings.startSound(), u"the sound server does not come back"_s);
}

void SoakRun::checkRequests(SoakOutcome outcome) const
{
    const bool isProcessed = outcome == SoakOutcome::Pasted || outcome == SoakOutcome::Copied;
    const int recognitions = m_services.recognitions();
    const int polishings = m_services.polishings();
    require(recognitions <= 1 && polishings <= recognitions && m_services.strays() == 0
                && (!isProcessed || polishings == 1)
                && (outcome != SoakOutcome::Cancelled || recognitions == 0),
            u"%1 recognitions, %2 polishings, %3 of another dictation"_s.arg(recognitions)
                .arg(polishings)
                .arg(m_services.strays()));
}

// Every text that polishing gave is in the history, newest first. What was not on the disk yet may
// go with a launch that is killed.
void SoakRun::checkHistory(const SoakStep &step, SoakOutcome outcome)
{
    const bool isKilled = step.fault == SoakFault::Killed;
    const bool isRelaunched = outcome == SoakOutcome::Relaunched;
    const auto unkept = m_history.mid(m_unsaved); // what a killed launch leaves at least
    const bool isKept =
        isRelaunched ? m_log.has(u"DeepSeek polish succeeded."_s) : m_services.hasWritten();
    if (isKept)
        m_history.prepend(step.written);
    m_history.resize(std::min(m_history.size(), historyLimit));
    if (step.fault == SoakFault::HistoryReadOnly)
        ++m_unsaved;
    else if (isKept || isRelaunched)
        m_unsaved = 0;
    const auto isSaved = [&] {
        const auto found = writtenInHistory();
        return begins(found, m_history.mid(m_unsaved)) || (isKilled && begins(found, unkept));
    };
    require(waitUntil(isSaved, 3s),
            u"the history holds something else; newest: "_s + writtenInHistory().value(0));
    if (isKilled)
        m_history = writtenInHistory();
}

void SoakRun::checkTraces(const SoakStep &step)
{
    m_application.requireReady();
    require(waitUntil([] { return recordings().isEmpty(); }, 1s), u"a recording is left"_s);
    require(m_desktop.keysDown().empty(), u"a key is stuck"_s);
    m_application.requireNoOverlay();
    const auto &lines = m_log.lines();
    for (const auto *secret : {"scripted-", "spoken-", "written-"})
        require(lines.filter(QLatin1StringView(secret)).isEmpty(), u"the log has a secret"_s);
    require(lines.filter(u"Recording requested."_s).size() == 1, u"more than one recording"_s);
    require(step.fault != SoakFault::None || lines.filter(u"[ERROR]"_s).isEmpty(),
            u"an error is logged"_s);
    require(m_editors.text() == m_arrived, u"more has arrived: "_s + m_editors.text());
}
