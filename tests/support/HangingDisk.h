// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/fanotify.h>

// While it lives, whoever opens the file or, in a directory, a file hangs, as on a disk that does
// not answer: the kernel asks this object for permission, which says nothing.
class HangingDisk final
{
public:
    explicit HangingDisk(const QString &path)
        : m_questions(::fanotify_init(FAN_CLASS_CONTENT | FAN_CLOEXEC, O_RDONLY))
    {
        const auto name = QFile::encodeName(path);
        m_hangs = m_questions.isOpen()
            && ::fanotify_mark(m_questions.get(),
                               FAN_MARK_ADD,
                               FAN_OPEN_PERM | FAN_EVENT_ON_CHILD,
                               AT_FDCWD,
                               name.constData())
                == 0;
    }

    // Whether this user may do such a thing.
    [[nodiscard]] bool hangs() const { return m_hangs; }

private:
    FileDescriptor m_questions;
    bool m_hangs = false;
};
