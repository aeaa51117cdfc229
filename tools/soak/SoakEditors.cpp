// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SoakEditors.h"

#include "WaitUntil.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace std::chrono_literals;

SoakEditors::SoakEditors()
{
    m_editors[0].setGeometry(20, 40, 500, 300);
    m_editors[1].setGeometry(700, 40, 500, 300);
}

bool SoakEditors::begin()
{
    for (auto &editor : m_editors) {
        editor.clear();
        editor.show();
    }
    return waitUntil([this] {
        focus(0);
        return waitUntil([this] { return m_editors[0].isActiveWindow(); }, 200ms);
    });
}

QString SoakEditors::text() const
{
    return m_editors[0].toPlainText() + m_editors[1].toPlainText();
}

void SoakEditors::copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

QString SoakEditors::copied()
{
    return QGuiApplication::clipboard()->text();
}
