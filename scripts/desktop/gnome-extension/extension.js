// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/* exported init, enable, disable */

const {Clutter} = imports.gi;

let devices = [];

function init() {}

// Windows of a seat without a keyboard are never active, and the first key would be lost.
function enable() {
    global.context.unsafe_mode = true;
    const seat = Clutter.get_default_backend().get_default_seat();
    devices = [Clutter.InputDeviceType.KEYBOARD_DEVICE, Clutter.InputDeviceType.POINTER_DEVICE].map(
        type => seat.create_virtual_device(type),
    );
}

function disable() {
    devices = [];
}
