// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessingFailureStage.h"

#include <QtGlobal>

QLatin1StringView logName(ProcessingFailureStage stage)
{
    switch (stage) {
    case ProcessingFailureStage::SpeechRecognition:
        return QLatin1StringView("speechRecognition");
    case ProcessingFailureStage::TextPolishing:
        return QLatin1StringView("textPolishing");
    case ProcessingFailureStage::AutoPaste:
        return QLatin1StringView("autoPaste");
    }
    Q_UNREACHABLE();
}
