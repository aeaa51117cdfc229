// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "PasteChordTable.h"

#include <algorithm>
#include <string_view>

namespace {

struct Row
{
    std::string_view application; // in lower case
    PasteChord chord;
};

// Every application that is not told by Control + V: terminals, and editors in which that is a
// command of its own.
constexpr Row chords[] = {
    {"alacritty", PasteChord::ShiftInsert},
    {"com.gexperts.tilix", PasteChord::ShiftInsert},
    {"com.mitchellh.ghostty", PasteChord::ShiftInsert},
    {"cool-retro-term", PasteChord::ShiftInsert},
    {"deepin-terminal", PasteChord::ShiftInsert},
    {"emacs", PasteChord::ShiftInsert},
    {"foot", PasteChord::ShiftInsert},
    {"ghostty", PasteChord::ShiftInsert},
    {"gnome-terminal", PasteChord::ShiftInsert},
    {"gnome-terminal-server", PasteChord::ShiftInsert},
    {"guake", PasteChord::ShiftInsert},
    {"gvim", PasteChord::ShiftInsert},
    {"hyper", PasteChord::ShiftInsert},
    {"kgx", PasteChord::ShiftInsert},
    {"kitty", PasteChord::ShiftInsert},
    {"konsole", PasteChord::ShiftInsert},
    {"lxterminal", PasteChord::ShiftInsert},
    {"mate-terminal", PasteChord::ShiftInsert},
    {"org.gnome.console", PasteChord::ShiftInsert},
    {"org.gnome.ptyxis", PasteChord::ShiftInsert},
    {"org.gnome.terminal", PasteChord::ShiftInsert},
    {"org.kde.konsole", PasteChord::ShiftInsert},
    {"org.kde.yakuake", PasteChord::ShiftInsert},
    {"org.wezfurlong.wezterm", PasteChord::ShiftInsert},
    {"ptyxis", PasteChord::ShiftInsert},
    {"qterminal", PasteChord::ShiftInsert},
    {"rxvt", PasteChord::ShiftInsert},
    {"st", PasteChord::ShiftInsert},
    {"st-256color", PasteChord::ShiftInsert},
    {"tabby", PasteChord::ShiftInsert},
    {"terminator", PasteChord::ShiftInsert},
    {"terminology", PasteChord::ShiftInsert},
    {"tilda", PasteChord::ShiftInsert},
    {"tilix", PasteChord::ShiftInsert},
    {"urxvt", PasteChord::ShiftInsert},
    {"uxterm", PasteChord::ShiftInsert},
    {"wezterm", PasteChord::ShiftInsert},
    {"xfce4-terminal", PasteChord::ShiftInsert},
    {"xterm", PasteChord::ShiftInsert},
    {"yakuake", PasteChord::ShiftInsert},
};

} // namespace

PasteChord pasteChordOf(const QByteArrayList &applicationNames)
{
    for (const auto &name : applicationNames) {
        const auto lowerCase = name.toLower();
        const auto *const row =
            std::ranges::find(chords, std::string_view(lowerCase.constData()), &Row::application);
        if (row != std::end(chords))
            return row->chord;
    }
    return PasteChord::ControlV;
}

PasteChord pasteChordOf(const FocusedApplication &application)
{
    return application.isUnknown ? PasteChord::ShiftInsert : pasteChordOf(application.names);
}
