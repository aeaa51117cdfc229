// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// The page that says why this desktop does not let Wrenfold paste and how to allow it.
namespace InputPermissionHelp {

// Opens the page in the browser. Failures are ignored: the page is only a help.
void open();

} // namespace InputPermissionHelp
