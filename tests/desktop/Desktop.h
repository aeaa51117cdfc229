// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Process.h"

#include <memory>
#include <vector>

struct xcb_connection_t;

// Keys of the private desktop's keyboard by their X key codes.
namespace Key {
inline constexpr quint8 escape = 9;
inline constexpr quint8 insert = 118;
inline constexpr quint8 space = 65;
inline constexpr quint8 a = 38;
inline constexpr quint8 s = 39;
inline constexpr quint8 v = 55;
inline constexpr quint8 tab = 23;
inline constexpr quint8 f9 = 75;
inline constexpr quint8 capsLock = 66;
inline constexpr quint8 numLock = 77;
inline constexpr quint8 scrollLock = 78;
inline constexpr quint8 leftShift = 50;
inline constexpr quint8 rightShift = 62;
inline constexpr quint8 leftControl = 37;
inline constexpr quint8 rightControl = 105;
inline constexpr quint8 leftAlt = 64;
inline constexpr quint8 rightAlt = 108;
inline constexpr quint8 leftSuper = 133;
inline constexpr quint8 rightSuper = 134;
inline constexpr quint8 up = 111;
// What the application's own hotkey is at first.
inline const std::vector<quint8> hotKey{leftSuper, leftShift, space};
} // namespace Key

// The private desktop as a user sits at it: its keyboard, its keyboard layouts and applications
// that we did not write. Leaves no key down and the layout as it was.
class Desktop final
{
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    // Keys as fingers move them: on the real keyboard, not on the one for posted keys.
    void press(quint8 key) { post(key, true); }
    void release(quint8 key) { post(key, false); }
    // Presses the keys in their order and releases them in reverse.
    void tap(const std::vector<quint8> &chord);
    // What the whole display takes to be down.
    [[nodiscard]] std::vector<quint8> keysDown() const;

    // Runs setxkbmap with these arguments.
    void setLayout(const QString &arguments);
    // The same for the device that posted keys come from, until the next setLayout().
    void setPostingLayout(const QString &arguments);

    // Starts an application and waits until its window, by the name its class carries, has the
    // focus. It is ended with the returned object.
    [[nodiscard]] std::unique_ptr<BackgroundProcess>
    start(const QString &program, const QStringList &arguments, const QString &windowClass);
    // Whether the editor that has the focus, told to save, leaves this text in its file.
    [[nodiscard]] bool isSaved(const QString &text, const QString &file);
    // Holds instance and class of the window that has the focus; empty when none has it.
    [[nodiscard]] QString focusedClass() const;

private:
    void post(quint8 key, bool isPress);

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)> m_connection;
    quint8 m_keyboard = 0; // the real keyboard's device
    quint8 m_firstInputEvent = 0;
};
