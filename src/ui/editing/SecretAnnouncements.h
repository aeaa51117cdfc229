// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

// Qt tells in clear what changes in a field for a secret, to all who listen for screen readers.
namespace SecretAnnouncements {

// From now on they are told of dots, in the whole process. Calling it again does nothing.
void hide();

} // namespace SecretAnnouncements
