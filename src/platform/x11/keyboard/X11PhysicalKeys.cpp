// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "X11PhysicalKeys.h"

#include "X11Reply.h"
#include "X11RoundTrip.h"

#include <string_view>
#include <vector>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace {

// The server names its own keyboards for posted keys so, after the keyboard they belong to.
bool isForPostedKeys(const xcb_input_xi_device_info_t *device)
{
    const auto length = static_cast<std::size_t>(xcb_input_xi_device_info_name_length(device));
    const std::string_view name(xcb_input_xi_device_info_name(device), length);
    return name.ends_with(" XTEST keyboard");
}

// The keyboards that are for posted keys, or those that are not.
std::vector<quint8> keyboards(xcb_connection_t *connection, bool areForPostedKeys)
{
    std::vector<quint8> keyboards;
    const auto request = xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL);
    const auto reply = replyTo(connection, request, xcb_input_xi_query_device_reply);
    if (!reply)
        return keyboards;
    auto devices = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; devices.rem > 0; xcb_input_xi_device_info_next(&devices))
        if (devices.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD
            && isForPostedKeys(devices.data) == areForPostedKeys)
            keyboards.push_back(static_cast<quint8>(devices.data->deviceid));
    return keyboards;
}

void addKeysDown(const xcb_input_query_device_state_reply_t *reply, std::set<quint8> &down)
{
    auto classes = xcb_input_query_device_state_classes_iterator(reply);
    for (; classes.rem > 0; xcb_input_input_state_next(&classes)) {
        if (classes.data->class_id != XCB_INPUT_INPUT_CLASS_KEY)
            continue;
        const auto *const state =
            static_cast<const xcb_input_key_state_t *>(static_cast<const void *>(classes.data));
        for (unsigned key = 0; key < 256; ++key)
            if ((unsigned{state->keys[key / 8]} >> (key % 8) & 1U) != 0)
                down.insert(static_cast<quint8>(key));
    }
}

} // namespace

std::optional<quint8> keyboardForPostedKeys(X11Connection &connection)
{
    const X11RoundTrip roundTrip(connection);
    // The first belongs to the keyboard that everybody uses.
    const auto found = keyboards(connection.get(), true);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::set<quint8> physicalKeysDown(X11Connection &connection)
{
    auto *const server = connection.get();
    const X11RoundTrip roundTrip(connection);
    std::vector<xcb_input_query_device_state_cookie_t> requests;
    for (const auto keyboard : keyboards(server, false))
        requests.push_back(xcb_input_query_device_state(server, keyboard));
    std::set<quint8> down;
    for (const auto request : requests) {
        const auto reply = replyTo(server, request, xcb_input_query_device_state_reply);
        if (reply)
            addKeysDown(reply.get(), down);
    }
    return down;
}
