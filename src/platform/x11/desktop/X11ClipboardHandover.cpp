// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11ClipboardHandover.h"

#include "X11Connection.h"
#include "X11Selections.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <xcb/xcb.h>

namespace {

void requestHandover(const X11Connection &connection)
{
    auto *server = connection.get();
    const auto window = xcb_generate_id(server);
    xcb_create_window(server,
                      0,
                      window,
                      connection.root(),
                      0,
                      0,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT,
                      0,
                      nullptr);
    xcb_convert_selection(server,
                          window,
                          X11Selections::atom(server, "CLIPBOARD_MANAGER"),
                          X11Selections::atom(server, "SAVE_TARGETS"),
                          X11Selections::atom(server, "WRENFOLD_HANDOVER"),
                          XCB_CURRENT_TIME);
    xcb_flush(server);
}

// Asks the clipboard manager to take the clipboard over, on a connection of its own, and waits for
// its answer; Qt meanwhile serves the manager's questions for the content.
void handOver(std::chrono::milliseconds limit)
{
    bool isAnswered = false;
    const X11Connection connection([&isAnswered](const void *message) {
        constexpr quint8 sentBit = 0x80;
        const auto *event = static_cast<const xcb_generic_event_t *>(message);
        isAnswered |= (event->response_type & ~sentBit) == XCB_SELECTION_NOTIFY;
    });
    if (!connection.isUsable())
        return;
    requestHandover(connection);
    bool isLate = false;
    QTimer::singleShot(limit, Qt::PreciseTimer, &connection, [&isLate] { isLate = true; });
    while (!isAnswered && !isLate && connection.isUsable())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                        | QEventLoop::WaitForMoreEvents);
}

} // namespace

bool hasClipboardManager()
{
    auto *connection = X11Selections::applicationConnection();
    return connection != nullptr
        && X11Selections::owner(connection, X11Selections::atom(connection, "CLIPBOARD_MANAGER"))
        != 0;
}

void handOverClipboard(std::chrono::milliseconds limit)
{
    if (!hasClipboardManager())
        return;
    auto *clipboard = QGuiApplication::clipboard();
    if (clipboard->ownsClipboard())
        handOver(limit);
    // Qt waits at its end for what is still owned.
    if (clipboard->ownsClipboard())
        clipboard->clear(QClipboard::Clipboard);
    if (clipboard->ownsSelection())
        clipboard->clear(QClipboard::Selection);
}
