// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

struct pa_context;
struct pa_operation;
struct pa_threaded_mainloop;

// An input device as the sound server describes it.
struct PulseSource
{
    QByteArray name; // the server's own, for connecting to it
    QString description; // for people
};

// The one connection to the sound server. It stays open while idle, costs no wake-ups then, and is
// built anew at the next use after it was lost. Every wait is bounded. Safe from any thread.
class PulseConnection final
{
public:
    PulseConnection();
    ~PulseConnection();
    PulseConnection(const PulseConnection &) = delete;
    PulseConnection &operator=(const PulseConnection &) = delete;

    // Starts connecting in the background unless that is done or under way.
    void connectAhead();
    // Connects if necessary; false when no server has answered within two seconds.
    [[nodiscard]] bool isConnected();
    // The default input device of this moment; nothing without a server or a device. What an output
    // plays (its monitor) is none, but a virtual device that is fed from one is.
    [[nodiscard]] std::optional<PulseSource> defaultSource();

    // Holds the sound thread still for a block in which libpulse is called.
    class Lock final
    {
    public:
        explicit Lock(const PulseConnection &connection);
        ~Lock();
        Lock(const Lock &) = delete;
        Lock &operator=(const Lock &) = delete;

    private:
        pa_threaded_mainloop *m_loop;
    };
    // The connection in libpulse's terms; null before the first use. Only under a Lock.
    [[nodiscard]] pa_context *context() const;

private:
    enum class State {
        Disconnected,
        Connecting,
        Connected,
    };

    [[nodiscard]] pa_operation *askForDefaultSource();
    void establish();
    void followContextState(pa_context *context);
    void setState(State state);

    pa_threaded_mainloop *m_loop;
    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    State m_state = State::Disconnected;
    pa_context *m_context = nullptr;
    std::mutex m_lookUps; // held through a look-up of the default source: one at a time
    bool m_isAnswered = false;
    std::optional<PulseSource> m_source;
};
