// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Process.h"

#include <memory>

// What a dictation finds around it and does not own: the sound server and the disk. Puts both right
// again at its end.
class SoakSurroundings final
{
public:
    ~SoakSurroundings();

    // The sound server answers nobody any more, or again.
    void stopSound() const;
    void continueSound() const;
    // Kills it; and starts another, returning whether it comes to have a microphone.
    void killSound() const;
    [[nodiscard]] bool startSound();

    // Lets nothing but the log be written where the application keeps its files; returns whether
    // this user may do such a thing.
    [[nodiscard]] bool makeReadOnly();
    void makeWritable();

private:
    [[nodiscard]] qint64 soundServer() const;

    std::unique_ptr<BackgroundProcess> m_sound; // absent while the desktop's own one runs
    bool m_isReadOnly = false;
};
