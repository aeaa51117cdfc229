// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

// A pop-up menu of prompts. It elides a long name, and leaves the wheel to the page it stands on.
class PromptMenu final : public QComboBox
{
protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
