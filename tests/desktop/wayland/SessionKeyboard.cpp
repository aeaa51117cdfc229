// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "SessionKeyboard.h"

#include <gtest/gtest.h>
#include <ranges>

SessionKeyboard::SessionKeyboard()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(WRENFOLD_SESSION_KEYBOARD), QStringList());
    await("ready");
}

SessionKeyboard::~SessionKeyboard()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

void SessionKeyboard::tap(const std::vector<int> &chord)
{
    std::vector<int> keys = chord;
    for (const int key : std::views::reverse(chord))
        keys.push_back(-key);
    move(keys);
}

void SessionKeyboard::move(const std::vector<int> &keys)
{
    QByteArray line;
    for (const int key : keys)
        line += QByteArray::number(key) + ' ';
    m_process.write(line + '\n');
    await("done");
}

void SessionKeyboard::await(const QByteArray &answer)
{
    while (!m_process.canReadLine())
        ASSERT_TRUE(m_process.waitForReadyRead(5000));
    ASSERT_EQ(m_process.readLine().trimmed(), answer);
}
