// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What the overlay shows.
struct VoiceOverlayMode
{
    enum class Kind {
        Recording, // a caption with the microphone's name above the level waveform
        Typing, // a stage of the processing, with a moving highlight
        Status, // a short message
    };

    [[nodiscard]] static VoiceOverlayMode recording(const QString &microphoneName);
    [[nodiscard]] static VoiceOverlayMode typing(const QString &text);
    [[nodiscard]] static VoiceOverlayMode status(const QString &text);

    // The words on the overlay: the text, or the caption that names the microphone.
    [[nodiscard]] QString displayedText() const;

    bool operator==(const VoiceOverlayMode &) const = default;

    Kind kind = Kind::Recording;
    QString text; // the microphone's name when recording
};
