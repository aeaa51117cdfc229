// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Clipboard.h"

#include "X11ClipboardHandover.h"
#include "X11Reply.h"
#include "X11Selections.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <xcb/xcb.h>

namespace {

// A text that notices when it is given away.
class OfferedText final : public QMimeData
{
public:
    OfferedText(const QString &text, std::function<void()> given)
        : m_given(std::move(given))
    {
        setText(text);
    }

protected:
    [[nodiscard]] QVariant retrieveData(const QString &format, QMetaType type) const override
    {
        m_given();
        return QMimeData::retrieveData(format, type);
    }

private:
    std::function<void()> m_given;
};

// Makes the text what this selection holds; whether it does, as the display tells it.
bool place(const QString &text, QClipboard::Mode mode, const std::function<void()> &given)
{
    auto *const data = new OfferedText(text, given); // the clipboard's from here on
    QGuiApplication::clipboard()->setMimeData(data, mode);
    return QGuiApplication::clipboard()->mimeData(mode) == data;
}

// Whether the window belongs to the client that has the keyboard focus.
bool isOfFocusedClient(xcb_connection_t *connection, xcb_window_t window)
{
    const auto focus =
        replyTo(connection, xcb_get_input_focus(connection), xcb_get_input_focus_reply);
    const auto clientBits = ~xcb_get_setup(connection)->resource_id_mask;
    return focus && (focus->focus & clientBits) == (window & clientBits);
}

} // namespace

X11Clipboard::X11Clipboard()
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Clipboard::~X11Clipboard() = default;

bool X11Clipboard::offer(const QString &text, ClipboardSelections selections, FetchHandler fetched)
{
    m_fetched = std::move(fetched);
    const auto given = [this, alive = std::weak_ptr(m_lifetime)] {
        if (!alive.expired())
            noteGiven();
    };
    return place(text, QClipboard::Clipboard, given)
        && (selections == ClipboardSelections::Clipboard
            || place(text, QClipboard::Selection, given));
}

void X11Clipboard::handOver()
{
    handOverClipboard();
}

bool X11Clipboard::nativeEventFilter(const QByteArray &, void *message, qintptr *)
{
    const auto *const request = static_cast<const xcb_selection_request_event_t *>(message);
    auto *const connection = X11Selections::applicationConnection();
    if (m_fetched && connection != nullptr
        && (request->response_type & 0x7f) == XCB_SELECTION_REQUEST)
        m_isFocusedClientAsking = isOfFocusedClient(connection, request->requestor);
    return false;
}

// Qt gives the text away right after the request, to a window of our own without one.
void X11Clipboard::noteGiven()
{
    if (m_fetched && (m_isFocusedClientAsking || QGuiApplication::focusWindow() != nullptr))
        m_fetched();
}
