// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "FileDescriptor.h"

#include <unistd.h>

void FileDescriptor::reset()
{
    // Linux frees the descriptor even when close reports an error; there is nothing to repeat.
    if (const int descriptor = std::exchange(m_descriptor, -1); descriptor >= 0)
        ::close(descriptor);
}
