// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "XWaylandSyntheticKeyboard.h"

#include "X11ActiveWindow.h"
#include "X11InputConnection.h"

XWaylandSyntheticKeyboard::XWaylandSyntheticKeyboard(X11InputConnection &input,
                                                     std::unique_ptr<SyntheticKeyboard> beyondX)
    : m_input(input)
    , m_x11(input)
    , m_beyondX(std::move(beyondX))
{}

XWaylandSyntheticKeyboard::~XWaylandSyntheticKeyboard() = default;

std::optional<PasteChord> XWaylandSyntheticKeyboard::pasteChordOfFocusedWindow()
{
    return current().pasteChordOfFocusedWindow();
}

SyntheticKeyboard &XWaylandSyntheticKeyboard::current()
{
    if (activeWindow(m_input.connection()) == 0)
        return *m_beyondX;
    return m_x11;
}
