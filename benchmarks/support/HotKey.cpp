// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKey.h"

#include "ChildProcess.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include <linux/input-event-codes.h>
#include <sys/socket.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

using Keys = std::vector<int>;

std::function<void(const Keys &)> displayKeyboard()
{
    const std::shared_ptr<xcb_connection_t> connection(xcb_connect(nullptr, nullptr),
                                                       &xcb_disconnect);
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("there is no display");
    return [connection](const Keys &keys) {
        constexpr int displayOffset = 8;
        for (const int key : keys)
            xcb_test_fake_input(connection.get(),
                                key > 0 ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                                static_cast<std::uint8_t>(std::abs(key) + displayOffset),
                                0,
                                XCB_NONE,
                                0,
                                0,
                                0);
        xcb_flush(connection.get());
    };
}

// A program that is told keys in lines, and answers each once it has pressed them.
class SessionKeyboard final
{
public:
    explicit SessionKeyboard(const std::string &program)
        : m_ends(connectedEnds())
        , m_program({program}, m_ends[1], m_ends[1])
    {
        close(m_ends[1]);
        awaitLine();
    }
    ~SessionKeyboard() { close(m_ends[0]); }
    SessionKeyboard(const SessionKeyboard &) = delete;
    SessionKeyboard &operator=(const SessionKeyboard &) = delete;

    // Returns before the keys are pressed, but not before those of the line before are.
    void move(const Keys &keys)
    {
        if (m_isBusy)
            awaitLine();
        std::string line;
        for (const int key : keys)
            line += std::to_string(key) + ' ';
        line += '\n';
        if (send(m_ends[0], line.data(), line.size(), MSG_NOSIGNAL) < 0)
            throw std::runtime_error("the keyboard is gone");
        m_isBusy = true;
    }

private:
    static std::array<int, 2> connectedEnds()
    {
        std::array<int, 2> ends{};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
            throw std::runtime_error("no socket");
        return ends;
    }

    void awaitLine() const
    {
        for (char sign = 0; sign != '\n';)
            if (recv(m_ends[0], &sign, 1, 0) != 1)
                throw std::runtime_error("the keyboard does not answer");
    }

    std::array<int, 2> m_ends;
    ChildProcess m_program;
    bool m_isBusy = false;
};

std::function<void(const Keys &)> usualKeyboard()
{
    const char *const program = std::getenv("WRENFOLD_BENCH_KEYBOARD");
    if (!program)
        return displayKeyboard();
    return [keyboard = std::make_shared<SessionKeyboard>(program)](const Keys &keys) {
        keyboard->move(keys);
    };
}

} // namespace

HotKey::HotKey()
    : m_move(usualKeyboard())
{}

Instant HotKey::press()
{
    m_move({KEY_LEFTCTRL});
    m_move({KEY_LEFTALT});
    const auto pressedAt = Clock::now();
    m_move({KEY_SPACE, -KEY_SPACE, -KEY_LEFTALT, -KEY_LEFTCTRL});
    return pressedAt;
}
