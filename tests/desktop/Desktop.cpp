// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"

#include "Process.h"
#include "WaitUntil.h"

#include <gtest/gtest.h>
#include <ranges>

#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

using namespace Qt::StringLiterals;

namespace {

template<typename T>
std::unique_ptr<T, decltype(&free)> owned(T *reply)
{
    return {reply, &free};
}

quint8 realKeyboard(xcb_connection_t *connection)
{
    const auto request = xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL);
    const auto reply = owned(xcb_input_xi_query_device_reply(connection, request, nullptr));
    auto devices = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        const QByteArray name(xcb_input_xi_device_info_name(devices.data),
                              xcb_input_xi_device_info_name_length(devices.data));
        if (devices.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && !name.contains("XTEST"))
            return static_cast<quint8>(devices.data->deviceid);
    }
    return 0;
}

} // namespace

Desktop::Desktop()
    : m_connection(xcb_connect(nullptr, nullptr), &xcb_disconnect)
{
    auto *const connection = m_connection.get();
    const auto version = xcb_input_xi_query_version(connection, 2, 2);
    owned(xcb_input_xi_query_version_reply(connection, version, nullptr)).reset();
    m_firstInputEvent = xcb_get_extension_data(connection, &xcb_input_id)->first_event;
    m_keyboard = realKeyboard(connection);
    EXPECT_NE(m_keyboard, 0);
}

Desktop::~Desktop()
{
    setLayout({u"us"_s});
    for (const auto key : keysDown())
        release(key);
}

void Desktop::tap(const std::vector<quint8> &chord)
{
    for (const auto key : chord)
        press(key);
    for (const auto key : std::views::reverse(chord))
        release(key);
}

void Desktop::post(quint8 key, bool isPress)
{
    // The input extension's key press is its second event, the release the third.
    const auto type = static_cast<quint8>(m_firstInputEvent + (isPress ? 1 : 2));
    xcb_test_fake_input(
        m_connection.get(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
    roundTrip();
}

// Returns when the server has done all that was asked of it.
void Desktop::roundTrip()
{
    const auto barrier = xcb_get_input_focus(m_connection.get());
    owned(xcb_get_input_focus_reply(m_connection.get(), barrier, nullptr)).reset();
}

void Desktop::takeSelections()
{
    auto *const connection = m_connection.get();
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto request = xcb_intern_atom(connection, 0, 9, "CLIPBOARD");
    const auto clipboard = owned(xcb_intern_atom_reply(connection, request, nullptr));
    for (const xcb_atom_t selection : {clipboard->atom, xcb_atom_t{XCB_ATOM_PRIMARY}})
        xcb_set_selection_owner(connection, root, selection, XCB_CURRENT_TIME);
    roundTrip();
}

std::vector<quint8> Desktop::keysDown() const
{
    const auto request = xcb_query_keymap(m_connection.get());
    const auto keymap = owned(xcb_query_keymap_reply(m_connection.get(), request, nullptr));
    std::vector<quint8> down;
    for (unsigned key = 0; keymap && key < 256; ++key)
        if ((unsigned{keymap->keys[key / 8]} >> (key % 8) & 1U) != 0)
            down.push_back(static_cast<quint8>(key));
    return down;
}

void Desktop::setLayout(const QStringList &arguments)
{
    // An empty option takes those away that an earlier call set.
    EXPECT_EQ(runProcess(u"setxkbmap"_s, QStringList{u"-option"_s, u""_s} + arguments).exitCode, 0);
}

std::unique_ptr<QProcess>
Desktop::start(const QString &program, const QStringList &arguments, const QString &windowClass)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(program, arguments);
    EXPECT_TRUE(waitUntil([&] { return focusedClass().contains(windowClass, Qt::CaseInsensitive); },
                          std::chrono::seconds(20)))
        << program.toStdString();
    return process;
}

QString Desktop::focusedClass() const
{
    auto *const connection = m_connection.get();
    const auto focus =
        owned(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    for (auto window = focus->focus; window > XCB_INPUT_FOCUS_POINTER_ROOT;) {
        const auto request =
            xcb_get_property(connection, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64);
        const auto name = owned(xcb_get_property_reply(connection, request, nullptr));
        if (name && name->value_len > 0)
            return QString::fromUtf8(static_cast<const char *>(xcb_get_property_value(name.get())),
                                     xcb_get_property_value_length(name.get()))
                .replace(u'\0', u' ')
                .trimmed();
        const auto tree =
            owned(xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
        window = tree ? tree->parent : xcb_window_t{XCB_NONE};
    }
    return {};
}
