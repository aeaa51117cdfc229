// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ClipboardHandover.h"

#include "X11Selections.h"
#include "XcbReply.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

#include <xcb/xcb.h>

namespace {

struct Disconnect
{
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

// Asks the clipboard manager to take the clipboard over, on a connection of its own: Qt's serves
// the manager's questions for the content meanwhile.
class SaveRequest final
{
public:
    SaveRequest()
    {
        if (!isUsable())
            return;
        auto *connection = m_connection.get();
        const auto window = xcb_generate_id(connection);
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        xcb_create_window(connection,
                          0,
                          window,
                          root,
                          0,
                          0,
                          1,
                          1,
                          0,
                          XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT,
                          0,
                          nullptr);
        xcb_convert_selection(connection,
                              window,
                              X11Selections::atom(connection, "CLIPBOARD_MANAGER"),
                              X11Selections::atom(connection, "SAVE_TARGETS"),
                              X11Selections::atom(connection, "WRENFOLD_HANDOVER"),
                              XCB_CURRENT_TIME);
        xcb_flush(connection);
    }

    [[nodiscard]] bool isUsable() const { return !xcb_connection_has_error(m_connection.get()); }
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(m_connection.get()); }

    // Whether the manager has answered, with the content taken or refused.
    [[nodiscard]] bool isAnswered()
    {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
            constexpr int sentBit = 0x80;
            m_isAnswered |= (event->response_type & ~sentBit) == XCB_SELECTION_NOTIFY;
        }
        return m_isAnswered || !isUsable();
    }

private:
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection{xcb_connect(nullptr, nullptr)};
    bool m_isAnswered = false;
};

void waitForAnswer(std::chrono::milliseconds limit)
{
    SaveRequest request;
    if (!request.isUsable())
        return;
    const QSocketNotifier wakeUp(request.descriptor(), QSocketNotifier::Read);
    QTimer limitTimer;
    limitTimer.start(limit);
    const QDeadlineTimer deadline(limit);
    while (!request.isAnswered() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                        | QEventLoop::WaitForMoreEvents);
}

} // namespace

void handOverClipboard(std::chrono::milliseconds limit)
{
    auto *connection = X11Selections::applicationConnection();
    if (!connection)
        return;
    auto *clipboard = QGuiApplication::clipboard();
    if (!clipboard->ownsClipboard() && !clipboard->ownsSelection())
        return;
    const auto manager = X11Selections::atom(connection, "CLIPBOARD_MANAGER");
    if (X11Selections::owner(connection, manager) == 0)
        return;
    if (clipboard->ownsClipboard())
        waitForAnswer(limit);
    if (clipboard->ownsClipboard())
        clipboard->clear(QClipboard::Clipboard);
    if (clipboard->ownsSelection())
        clipboard->clear(QClipboard::Selection);
}
