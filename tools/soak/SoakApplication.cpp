// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakApplication.h"

#include "Desktop.h"
#include "SoakFailure.h"
#include "SoakLog.h"
#include "WaitUntil.h"
#include "X11Reply.h"
#include "X11RoundTrip.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <span>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Dictations: by then a launch is warm, so many tell what it takes then and at the end, and
// launches that last less long are not judged.
constexpr qsizetype warmUp = 50;
constexpr qsizetype judged = 20;
constexpr qsizetype longEnough = 90;

constexpr quint8 key1 = 10;
constexpr quint8 keyW = 25;

// Windows on the screen that no window manager knows: of this desktop, its own of one pixel and the
// overlay.
bool isOverlayShown(const X11Connection &connection)
{
    auto *const server = connection.get();
    const auto tree =
        replyTo(server, xcb_query_tree(server, connection.root()), xcb_query_tree_reply);
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return std::ranges::any_of(children, [server](xcb_window_t window) {
        const auto found = replyTo(
            server, xcb_get_window_attributes(server, window), xcb_get_window_attributes_reply);
        const auto size = replyTo(server, xcb_get_geometry(server, window), xcb_get_geometry_reply);
        return found && size && found->override_redirect
            && found->map_state == XCB_MAP_STATE_VIEWABLE && size->width > 1;
    });
}

qint64 statusValue(const QString &status, const QString &key)
{
    return QRegularExpression(key + u":\\s+(\\d+)"_s).match(status).captured(1).toLongLong();
}

} // namespace

SoakApplication::SoakApplication(Desktop &desktop, SoakLog &log)
    : m_desktop(desktop)
    , m_log(log)
{}

void SoakApplication::launch()
{
    m_application.reset();
    m_application =
        std::make_unique<WrenfoldApplication>(QStringList(), QStringList{u"--background"_s});
    const auto launched = u"[pid=%1] Launch finished."_s.arg(m_application->processId());
    require(m_log.await({launched}, 20s), u"it does not launch"_s);
    // The icon of the launch before may still be told of.
    require(waitUntil([this] { return m_panel.hasIcon() && isReady(); }), u"it has no icon"_s);
    // Twice, for all that they keep from then on: the keys may come before a page is whole.
    showPages();
    showPages();
    m_figures.clear();
}

void SoakApplication::relaunch(int signal)
{
    requireNoGrowth();
    int status = 0;
    const auto took = millisecondsOf([&] { status = m_application->end(signal); });
    require(signal == SIGKILL || (status == 0 && took < 2000),
            u"ending it took %1 ms, with status %2"_s.arg(took).arg(status));
    launch();
}

void SoakApplication::showPages()
{
    const auto hasFocus = [this] { return m_desktop.focusedClass().contains("\"wrenfold\""_L1); };
    BackgroundProcess asking;
    asking.start(WrenfoldApplication::executable(), {u"--show"_s});
    require(waitUntil(hasFocus), u"its window does not open"_s);
    for (quint8 page = 0; page < 4; ++page)
        m_desktop.tap({Key::leftControl, quint8(key1 + page)});
    const auto hasClosed = [&] {
        m_desktop.tap({Key::leftControl, keyW}); // Escape would cancel a recording
        return waitUntil([&] { return !hasFocus(); }, 500ms);
    };
    require(waitUntil(hasClosed), u"its window does not close"_s);
    require(waitUntil([&] { return asking.state() == QProcess::NotRunning; }),
            u"who asked for its window gets no answer"_s);
}

bool SoakApplication::isReady() const
{
    return m_panel.iconProperty(u"ToolTip"_s).contains(u"：听，"_s);
}

void SoakApplication::requireReady() const
{
    require(
        waitUntil([this] { return m_panel.iconProperty(u"ToolTip"_s).contains(u"：听，"_s); }, 1s),
        u"it is not ready after a second"_s);
    require(m_application->isRunning(), u"it has ended"_s);
}

void SoakApplication::requireNoOverlay() const
{
    require(waitUntil([this] { return !isOverlayShown(m_connection); }, 3s),
            u"its overlay stays"_s);
}

SoakApplication::Figures SoakApplication::figures() const
{
    const auto folder = u"/proc/%1/"_s.arg(m_application->processId());
    QFile file(folder + u"status"_s);
    static_cast<void>(file.open(QIODevice::ReadOnly));
    const auto status = QString::fromUtf8(file.readAll());
    return {statusValue(status, u"RssAnon"_s),
            QDir(folder + u"fd"_s).entryList(QDir::Files | QDir::System).size(),
            statusValue(status, u"Threads"_s)};
}

void SoakApplication::requireNoGrowth()
{
    const auto count = m_figures.size();
    if (count < longEnough)
        return;
    auto warm = m_figures[warmUp - judged];
    auto now = m_figures.last();
    for (std::size_t i = 0; i < now.size(); ++i)
        for (qsizetype k = 0; k < judged; ++k) {
            warm[i] = std::max(warm[i], m_figures[warmUp - judged + k][i]);
            now[i] = std::min(now[i], m_figures[count - judged + k][i]);
        }
    const auto said = u"%1 dictations after its warm-up: %2 to %3 KB, %4 to %5 descriptors, "
                      "%6 to %7 threads"_s.arg(count - warmUp)
                          .arg(warm[0])
                          .arg(now[0])
                          .arg(warm[1])
                          .arg(now[1])
                          .arg(warm[2])
                          .arg(now[2]);
    for (std::size_t i = 0; i < now.size(); ++i)
        require(now[i] * 100 < warm[i] * 102, u"it has grown: "_s + said);
    if (count > m_longest)
        m_growth = said;
    m_longest = std::max(m_longest, count);
}
