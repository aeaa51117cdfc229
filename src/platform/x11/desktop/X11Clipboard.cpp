// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11Clipboard.h"

#include "X11ClipboardHandover.h"
#include "X11Reply.h"
#include "X11Selections.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

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

// Whether both windows belong to one client.
bool areOfOneClient(xcb_connection_t *connection, xcb_window_t one, xcb_window_t other)
{
    const auto clientBits = ~xcb_get_setup(connection)->resource_id_mask;
    return (one & clientBits) == (other & clientBits);
}

} // namespace

X11Clipboard::X11Clipboard(X11Reach reach)
    : m_reach(reach)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Clipboard::~X11Clipboard() = default;

bool X11Clipboard::offer(const QString &text, ClipboardSelections selections, FetchHandler fetched)
{
    m_fetched = std::move(fetched);
    m_isKeptByCompositor = false;
    const auto given = [this, alive = std::weak_ptr(m_lifetime)] {
        if (!alive.expired())
            noteGiven();
    };
    return place(text, QClipboard::Clipboard, given)
        && (selections == ClipboardSelections::Clipboard
            || place(text, QClipboard::Selection, given));
}

bool X11Clipboard::isKeptAfterUs() const
{
    return m_reach == X11Reach::XWayland || hasClipboardManager();
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
        && (request->response_type & 0x7f) == XCB_SELECTION_REQUEST) {
        const auto focus =
            replyTo(connection, xcb_get_input_focus(connection), xcb_get_input_focus_reply);
        m_isFocusBeyondX = focus && focus->focus == XCB_NONE && m_reach == X11Reach::XWayland;
        m_isFocusedClientAsking =
            focus && areOfOneClient(connection, focus->focus, request->requestor);
        m_isPrimaryWanted = request->selection == XCB_ATOM_PRIMARY;
    }
    return false;
}

// Qt gives the text away right after the request, to a window of our own without one.
void X11Clipboard::noteGiven()
{
    if (!m_fetched)
        return;
    const bool isFetch = m_isFocusBeyondX
        ? isForProgramBeyondX()
        : m_isFocusedClientAsking || QGuiApplication::focusWindow() != nullptr;
    if (isFetch)
        m_fetched();
}

// The compositor asks for its programs, and once for itself, to keep the text; not the primary one.
bool X11Clipboard::isForProgramBeyondX()
{
    return m_isPrimaryWanted || std::exchange(m_isKeptByCompositor, true);
}
