// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PulseConnection.h"

#include <new>
#include <utility>

#include <pulse/pulseaudio.h>

using namespace std::chrono_literals;

namespace {

constexpr auto connectLimit = 2s;
constexpr auto answerLimit = 1s;

pa_context *newContext(pa_mainloop_api *api)
{
    pa_proplist *properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "local.wrenfold");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "wrenfold");
    pa_context *context = pa_context_new_with_proplist(api, "Wrenfold", properties);
    pa_proplist_free(properties);
    return context;
}

} // namespace

PulseConnection::Lock::Lock(const PulseConnection &connection)
    : m_loop(connection.m_loop)
{
    pa_threaded_mainloop_lock(m_loop);
}

PulseConnection::Lock::~Lock()
{
    pa_threaded_mainloop_unlock(m_loop);
}

PulseConnection::PulseConnection()
    : m_loop(pa_threaded_mainloop_new())
{
    if (!m_loop)
        throw std::bad_alloc();
    pa_threaded_mainloop_set_name(m_loop, "sound");
    pa_threaded_mainloop_start(m_loop);
}

PulseConnection::~PulseConnection()
{
    pa_threaded_mainloop_stop(m_loop);
    if (m_context) {
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
    }
    pa_threaded_mainloop_free(m_loop);
}

void PulseConnection::connectAhead()
{
    {
        const std::lock_guard guard(m_mutex);
        if (m_state != State::Disconnected)
            return;
        m_state = State::Connecting;
    }
    // On the sound thread, because creating a context reads files and asks the X server.
    const Lock lock(*this);
    pa_mainloop_api_once(
        pa_threaded_mainloop_get_api(m_loop),
        [](pa_mainloop_api *, void *self) { static_cast<PulseConnection *>(self)->establish(); },
        this);
}

bool PulseConnection::isConnected()
{
    connectAhead();
    std::unique_lock guard(m_mutex);
    m_changed.wait_for(guard, connectLimit, [this] { return m_state != State::Connecting; });
    return m_state == State::Connected;
}

std::optional<PulseSource> PulseConnection::defaultSource()
{
    const std::lock_guard turn(m_lookUps);
    if (!isConnected())
        return {};
    pa_operation *operation = askForDefaultSource();
    if (!operation)
        return {};
    {
        std::unique_lock guard(m_mutex);
        m_changed.wait_for(
            guard, answerLimit, [this] { return m_isAnswered || m_state != State::Connected; });
    }
    const Lock lock(*this);
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
    const std::lock_guard guard(m_mutex);
    return std::exchange(m_source, {});
}

pa_operation *PulseConnection::askForDefaultSource()
{
    {
        const std::lock_guard guard(m_mutex);
        m_isAnswered = false;
    }
    const auto keepAnswer = [](pa_context *, const pa_source_info *info, int end, void *data) {
        auto &self = *static_cast<PulseConnection *>(data);
        const std::lock_guard guard(self.m_mutex);
        if (info && info->monitor_of_sink == PA_INVALID_INDEX)
            self.m_source = PulseSource{info->name, QString::fromUtf8(info->description)};
        self.m_isAnswered = end != 0;
        self.m_changed.notify_all();
    };
    const Lock lock(*this);
    return pa_context_get_source_info_by_name(context(), "@DEFAULT_SOURCE@", keepAnswer, this);
}

pa_context *PulseConnection::context() const
{
    const std::lock_guard guard(m_mutex);
    return m_context;
}

void PulseConnection::establish()
{
    if (pa_context *lost = context()) {
        pa_context_set_state_callback(lost, nullptr, nullptr);
        pa_context_unref(lost);
    }
    pa_context *fresh = newContext(pa_threaded_mainloop_get_api(m_loop));
    {
        const std::lock_guard guard(m_mutex);
        m_context = fresh;
    }
    if (!fresh) {
        setState(State::Disconnected);
        return;
    }
    const auto follow = [](pa_context *context, void *self) {
        static_cast<PulseConnection *>(self)->followContextState(context);
    };
    pa_context_set_state_callback(fresh, follow, this);
    if (pa_context_connect(fresh, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        setState(State::Disconnected);
}

void PulseConnection::followContextState(pa_context *context)
{
    const auto state = pa_context_get_state(context);
    if (state == PA_CONTEXT_READY)
        setState(State::Connected);
    else if (!PA_CONTEXT_IS_GOOD(state))
        setState(State::Disconnected);
}

void PulseConnection::setState(State state)
{
    const std::lock_guard guard(m_mutex);
    m_state = state;
    m_changed.notify_all();
}
