// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakSurroundings.h"

#include "WaitUntil.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

void tell(qint64 process, int signal)
{
    ::kill(pid_t(process), signal);
}

} // namespace

SoakSurroundings::~SoakSurroundings()
{
    makeWritable();
    continueSound();
}

qint64 SoakSurroundings::soundServer() const
{
    return m_sound ? m_sound->processId()
                   : qEnvironmentVariableIntValue("WRENFOLD_DESKTOP_SOUND_PID");
}

void SoakSurroundings::stopSound() const
{
    tell(soundServer(), SIGSTOP);
}

void SoakSurroundings::continueSound() const
{
    tell(soundServer(), SIGCONT);
}

void SoakSurroundings::killSound() const
{
    tell(soundServer(), SIGKILL);
}

bool SoakSurroundings::startSound()
{
    m_sound = std::make_unique<BackgroundProcess>();
    m_sound->start(qEnvironmentVariable("WRENFOLD_DESKTOP_SOUND_SERVER"), QStringList());
    return waitUntil(
        [] { return runCommand(u"pactl get-default-source"_s).output.trimmed() == "mic"; });
}

bool SoakSurroundings::makeReadOnly()
{
    // The log is bound back from where it can still be written.
    const auto bind = u"cd ~/.wrenfold && mkdir -p $XDG_RUNTIME_DIR/logs && "
                      "mount --bind logs $XDG_RUNTIME_DIR/logs && "
                      "mount --bind . . && cd ~/.wrenfold && "
                      "mount --bind $XDG_RUNTIME_DIR/logs logs && mount -o remount,bind,ro ."_s;
    m_isReadOnly = true;
    return runCommand(bind).exitCode == 0;
}

void SoakSurroundings::makeWritable()
{
    if (m_isReadOnly)
        runCommand(u"cd /; umount -l ~/.wrenfold; umount -l $XDG_RUNTIME_DIR/logs"_s);
    m_isReadOnly = false;
}
