// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "X11Property.h"
#include "X11Strut.h"

#include <cstring>

// "4" and values of four bytes, or anything and values of one.
void fuzz(const QByteArray &input)
{
    const auto text = input.mid(1);
    const auto size = static_cast<size_t>(text.size());
    const size_t width = input.startsWith('4') ? 4 : 1;
    const X11Reply<xcb_get_property_reply_t> property(static_cast<xcb_get_property_reply_t *>(
        std::calloc(1, sizeof(xcb_get_property_reply_t) + size)));
    property->format = static_cast<uint8_t>(8 * width);
    property->value_len = static_cast<uint32_t>(size / width);
    std::memcpy(xcb_get_property_value(property.get()), text.constData(), size);
    require(valuesOf<char>(property).size() == (width == 1 ? size : 0));
    const auto reserved =
        X11Strut(valuesOf<quint32>(property)).reservedOf(QRect(640, 0, 640, 800), QSize(1280, 800));
    const QMargins most(639, 799, 639, 799);
    require((QMargins() | reserved) == reserved && (most | reserved) == most);
}
