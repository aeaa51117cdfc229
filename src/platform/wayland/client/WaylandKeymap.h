// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct xkb_context;
struct xkb_keymap;

// What the keys of a keyboard type.
class WaylandKeymap final
{
public:
    // A plain keyboard of the American layout.
    WaylandKeymap();
    // As a compositor describes it; without keys when it is no description.
    explicit WaylandKeymap(const QByteArray &description);

    // The description that a compositor reads, with the zero at its end.
    [[nodiscard]] QByteArray description() const;
    // What the key types without modifiers, the keypad as with Num Lock; empty when it types
    // nothing by itself.
    [[nodiscard]] QString charactersTypedBy(quint32 virtualKeyCode) const;

private:
    std::shared_ptr<xkb_context> m_context;
    std::shared_ptr<xkb_keymap> m_keymap;
};
