// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Reply.h"

#include <vector>

#include <xcb/xproto.h>

// The values of a property, which any client may have written; none when it is absent or has values
// of another size.
template<typename Value>
[[nodiscard]] std::vector<Value> valuesOf(const X11Reply<xcb_get_property_reply_t> &property)
{
    if (!property || property->format != 8 * sizeof(Value))
        return {};
    const auto *values = static_cast<const Value *>(xcb_get_property_value(property.get()));
    return {values, values + property->value_len};
}
