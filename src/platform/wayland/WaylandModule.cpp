// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandModule.h"

#include <QtGlobal>

#include <dlfcn.h>

std::unique_ptr<WaylandDesktop> WaylandModule::connect()
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return {};
    // Never unloaded: what came from it runs until the process ends.
    void *const library = ::dlopen("libwrenfold-wayland.so", RTLD_NOW | RTLD_LOCAL);
    void *const function = library != nullptr ? ::dlsym(library, entryPoint) : nullptr;
    if (function == nullptr)
        return {};
    return std::unique_ptr<WaylandDesktop>(reinterpret_cast<EntryPoint *>(function)());
}
