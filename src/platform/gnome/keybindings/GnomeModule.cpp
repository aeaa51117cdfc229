// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "GnomeModule.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace {

// Who runs the commands of the shortcuts.
bool isHeard()
{
    const auto bus = QDBusConnection::sessionBus();
    return bus.isConnected()
        && bus.interface()->isServiceRegistered(u"org.gnome.SettingsDaemon.MediaKeys"_s);
}

} // namespace

std::unique_ptr<GnomeKeybindings> GnomeModule::openKeybindings()
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !isHeard())
        return {};
    // Never unloaded: what came from it runs until the process ends.
    void *const library = ::dlopen("libwrenfold-gnome.so", RTLD_NOW | RTLD_LOCAL);
    void *const function = library != nullptr ? ::dlsym(library, entryPoint) : nullptr;
    if (function == nullptr)
        return {};
    return std::unique_ptr<GnomeKeybindings>(reinterpret_cast<EntryPoint *>(function)());
}
