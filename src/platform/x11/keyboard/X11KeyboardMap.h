// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <optional>
#include <vector>

class X11Connection;
struct xcb_xkb_get_map_reply_t;
struct xcb_xkb_key_sym_map_iterator_t;

// What the keys of a keyboard type, and which of them are modifiers, as of one moment.
class X11KeyboardMap final
{
public:
    // The first of the eight modifiers in the order of their bits; Mod1 to Mod5 follow.
    enum Row { ShiftRow, LockRow, ControlRow, FirstModRow };
    static constexpr std::size_t rowCount = 8;

    // Reads the map of the keyboard in use in one round trip; absent when the display cannot tell.
    // The connection must have been introduced to the XKB extension.
    [[nodiscard]] static std::optional<X11KeyboardMap> read(X11Connection &connection);
    // The same of one device, which can have a map of its own, by its number.
    [[nodiscard]] static std::optional<X11KeyboardMap> read(X11Connection &connection,
                                                            quint16 keyboard);

    // The keys that set the modifier of this row, in the order of the map.
    [[nodiscard]] const std::vector<quint8> &modifierKeys(std::size_t row) const;
    // The bits of the modifiers Mod1 to Mod5 set by keys that carry one of two key symbols.
    [[nodiscard]] quint16 modifierBits(quint32 wanted, quint32 alternative) const;
    // The key that types the symbol without modifiers: in the current layout, else in another of
    // those that the user switches between.
    [[nodiscard]] std::optional<quint8> keyTyping(quint32 wanted) const;
    // Whether the key changes what others type only while it is held down, unlike a lock key. The
    // AltGr key of many layouts sets a modifier without being in its row.
    [[nodiscard]] bool isHeldModifier(quint8 key) const;

private:
    X11KeyboardMap() = default;
    void readParts(const xcb_xkb_get_map_reply_t *reply);
    void readSymbols(xcb_xkb_key_sym_map_iterator_t keys, std::size_t firstKey);
    [[nodiscard]] quint32 symbol(quint8 key, std::size_t layout) const;

    std::array<std::vector<quint32>, 256> m_symbols; // by key, then by layout
    std::array<std::vector<quint8>, rowCount> m_rows;
    std::size_t m_currentLayout = 0;
    std::size_t m_layoutCount = 1;
};
