// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "AudioSystem.h"

#include <QString>
#include <QUrl>

#include <memory>

// One recording and the file it grows in, which is deleted with this object unless the recording
// has been finished. One thread at a time.
class Recording final
{
public:
    // Creates the file, in the directory for temporary files. Throws LocalizedError when that
    // fails.
    explicit Recording(AudioSystem &system);
    ~Recording();
    Recording(const Recording &) = delete;
    Recording &operator=(const Recording &) = delete;

    [[nodiscard]] RecordingEngine &engine() { return *m_engine; }
    [[nodiscard]] const RecordingEngine &engine() const { return *m_engine; }

    // After the engine's stop(): waits for the rest of what was spoken, at most 150 ms, and returns
    // the finished file, which is the caller's from then on. Not on the main thread.
    [[nodiscard]] QUrl finish();

private:
    const QString m_path;
    std::unique_ptr<RecordingEngine> m_engine;
    bool m_isFinished = false;
};
