// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Connection.h"

#include <map>
#include <mutex>
#include <set>
#include <vector>

// A key going down or up on any keyboard, by its X key code.
struct KeyStroke
{
    quint8 key = 0;
    bool isPress = false;

    bool operator==(const KeyStroke &) const = default;
};

// The keys, all going the same way.
template<typename Keys>
[[nodiscard]] std::vector<KeyStroke> strokesOf(const Keys &keys, bool isPress)
{
    std::vector<KeyStroke> strokes;
    strokes.reserve(keys.size());
    for (const quint8 key : keys)
        strokes.push_back({key, isPress});
    return strokes;
}

// The connection on which the keyboard is watched and keys are posted. Both share it, because a key
// that we posted ourselves is told from the user's by the sequence number of our own request.
class X11InputConnection final
{
public:
    // `time` is the server's, in milliseconds.
    using Listener = std::function<void(const KeyStroke &stroke, quint32 time)>;

    X11InputConnection();
    ~X11InputConnection();
    X11InputConnection(const X11InputConnection &) = delete;
    X11InputConnection &operator=(const X11InputConnection &) = delete;

    // Whether keys can be watched, and whether they can be posted.
    [[nodiscard]] bool canWatch() const;
    [[nodiscard]] bool canPost() const;
    [[nodiscard]] X11Connection &connection() { return m_connection; }

    // Calls the listener for the keys that others press and release, whichever window has the
    // focus. When this returns no later key is missed. One listener an owner. Main thread only.
    void addListener(const void *owner, Listener listener);
    void removeListener(const void *owner);
    // Tells the listeners of every key that was pressed or released until now. Main thread only.
    void catchUp();
    // The keys that are down now, by X key code. Any thread.
    [[nodiscard]] std::vector<quint8> keysDown();

    // Has `yield` called, on any thread, before keys are posted: the owner then lets go of the
    // keyboard, so that they reach the application in front, and returns when it has. Main thread
    // only, as removing it again.
    void addKeyboardHolder(const void *owner, std::function<void()> yield);
    void removeKeyboardHolder(const void *owner);
    // Has every holder let go of the keyboard. Any thread.
    void yieldKeyboard();

    // Posts the strokes in their order and returns when the server has taken them. Any thread.
    void post(const std::vector<KeyStroke> &strokes);
    // Presses those of the keys that fingers hold, until the fingers let go of them. Any thread.
    void pressForFingers(const std::vector<quint8> &keys);

private:
    struct Posted
    {
        KeyStroke stroke;
        quint32 sequence = 0;
    };

    void handleEvent(const void *event);
    void updateWatch();
    void postLocked(const KeyStroke &stroke);
    void followFingers(const KeyStroke &stroke);
    [[nodiscard]] bool takePosted(const KeyStroke &stroke, quint32 sequence);

    X11Connection m_connection;
    int m_inputOpcode = 0; // 0 when the extension is missing
    bool m_canPost = false;
    std::mutex m_mutex; // guards what follows
    std::map<const void *, Listener> m_listeners;
    std::map<const void *, std::function<void()>> m_keyboardHolders;
    std::set<quint8> m_pressedForFingers;
    bool m_isWatching = false;
    std::vector<Posted> m_posted;
};
