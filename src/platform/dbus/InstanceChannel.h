// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusContext>
#include <QObject>

#include <chrono>
#include <functional>

// What another process of this user may ask of the running instance.
enum class InstanceCommand {
    ShowMainWindow,
    ToggleRecording, // as a press of the hotkey does
    CancelRecording, // as Escape does
    Quit,
};

// What became of such a request.
enum class InstanceAnswer {
    Done,
    NotRunning, // nobody has the name on this session's bus
    NoAnswer, // somebody has, but does not answer within a second, or is on its way out
    NoBus,
};

// The only channel between two processes of ours: an object on the session bus, which belongs to
// one user and session. Main thread only.
class InstanceChannel final : public QObject, public QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "local.wrenfold")
public:
    using Time = std::chrono::steady_clock::time_point;
    // `askedAt` is when the process was started that asks.
    // False leaves the request without an answer.
    using Handler = std::function<bool(InstanceCommand, Time askedAt)>;

    InstanceChannel() = default;
    ~InstanceChannel() override;

    // Whether there is one in this session, and whether it has its hotkey; false when it does not
    // say so.
    [[nodiscard]] static bool isRunning();
    [[nodiscard]] static bool isHotKeyThere();
    // Asks the running instance and waits for its answer, a second at most. Needs no event loop.
    [[nodiscard]] static InstanceAnswer ask(InstanceCommand command);
    // Asks it to quit, likewise, and then waits until its process has left the bus; NoAnswer when
    // it is still there after six seconds.
    [[nodiscard]] static InstanceAnswer askToQuit();

    // Makes this process the running instance: calls the handler from the event loop for every
    // request until close(); a request is answered once the handler returns. `hasHotKey` answers
    // isHotKeyThere(). False without a bus.
    [[nodiscard]] bool open(Handler handler, std::function<bool()> hasHotKey);
    // From here on nobody is answered.
    void close();

    // The object's members on the bus.
    Q_SCRIPTABLE void showMainWindow();
    // With what a compositor gave to the asking process for the window's activation.
    Q_SCRIPTABLE void showMainWindow(const QString &token);
    Q_SCRIPTABLE void toggleRecording();
    Q_SCRIPTABLE void toggleRecording(qlonglong askedAt); // in milliseconds of that clock
    Q_SCRIPTABLE void cancelRecording();
    Q_SCRIPTABLE void quit();
    Q_SCRIPTABLE bool hasHotKey() const;

private:
    void handle(InstanceCommand command, Time askedAt = std::chrono::steady_clock::now()) const;

    Handler m_handler; // empty when not open
    std::function<bool()> m_hasHotKey;
};
