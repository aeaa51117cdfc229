// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Desktop.h"

#include "WaitUntil.h"

#include <QFile>

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

quint8 keyboard(xcb_connection_t *connection, bool isForPostedKeys)
{
    const auto request = xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL);
    const auto reply = owned(xcb_input_xi_query_device_reply(connection, request, nullptr));
    auto devices = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices)) {
        const QByteArray name(xcb_input_xi_device_info_name(devices.data),
                              xcb_input_xi_device_info_name_length(devices.data));
        if (devices.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD
            && name.contains("XTEST") == isForPostedKeys)
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
    m_keyboard = keyboard(connection, false);
    EXPECT_NE(m_keyboard, 0);
}

Desktop::~Desktop()
{
    setLayout(u"us"_s);
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

// Returns when the server has done it.
void Desktop::post(quint8 key, bool isPress)
{
    // The input extension's key press is its second event, the release the third.
    const auto type = static_cast<quint8>(m_firstInputEvent + (isPress ? 1 : 2));
    auto *const connection = m_connection.get();
    xcb_test_fake_input(connection, type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
    const auto barrier = xcb_get_input_focus(connection);
    owned(xcb_get_input_focus_reply(connection, barrier, nullptr)).reset();
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

void Desktop::setLayout(const QString &arguments)
{
    // An empty option takes those away that an earlier call set.
    EXPECT_EQ(runCommand(u"setxkbmap -option '' "_s + arguments).exitCode, 0);
}

void Desktop::setPostingLayout(const QString &arguments)
{
    const auto command = u"setxkbmap -device %1 "_s.arg(keyboard(m_connection.get(), true));
    EXPECT_EQ(runCommand(command + arguments).exitCode, 0);
}

std::unique_ptr<BackgroundProcess>
Desktop::start(const QString &program, const QStringList &arguments, const QString &windowClass)
{
    auto process = std::make_unique<BackgroundProcess>();
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(program, arguments);
    EXPECT_TRUE(waitUntil([&] { return focusedClass().contains(windowClass, Qt::CaseInsensitive); },
                          std::chrono::seconds(20)))
        << program.toStdString();
    return process;
}

bool Desktop::isSaved(const QString &text, const QString &file)
{
    return waitUntil([&] {
        tap({Key::leftControl, Key::s});
        QFile saved(file);
        return waitUntil([&] { return saved.exists(); }, std::chrono::milliseconds(500))
            && saved.open(QIODevice::ReadOnly)
            && QString::fromUtf8(saved.readAll()).trimmed() == text;
    });
}

QString Desktop::focusedClass() const
{
    const auto ask = u"xprop -id $(xdotool getwindowfocus) WM_CLASS"_s;
    return QString::fromUtf8(runCommand(ask).output);
}
