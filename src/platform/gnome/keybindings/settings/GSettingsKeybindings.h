// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "GSettingsGroup.h"
#include "GnomeKeybindings.h"

// Our shortcuts among the custom ones of the settings daemon's media keys.
class GSettingsKeybindings final : public GnomeKeybindings
{
public:
    // Whether this system has such settings; without them none of these may be made.
    [[nodiscard]] static bool areThere();

    void bind(HotKeyId id, const QString &wanted) override;
    void unbind(HotKeyId id) override;
    void removeAll() override;
    [[nodiscard]] QString ownerOf(const Match &isSame) const override;
    [[nodiscard]] KeyRepeat keyRepeat() const override;

private:
    [[nodiscard]] QString userOwnerOf(const Match &isSame) const;
    [[nodiscard]] QStringList foreignPaths() const;
    void addEntries();

    GSettingsGroup m_mediaKeys{"org.gnome.settings-daemon.plugins.media-keys"};
};
