// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Approved.h"

#include "Appearance.h"
#include "Process.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QStyleHints>
#include <QTemporaryFile>

#include <ctime>

using namespace Qt::StringLiterals;

testing::AssertionResult isApproved(const QString &name, const QString &text)
{
    const auto path = u"%1/%2.txt"_s.arg(QStringLiteral(WRENFOLD_APPROVED_FOLDER), name);
    QFile approved(path);
    if (qEnvironmentVariableIsSet("WRENFOLD_APPROVE")) {
        const bool isWritten =
            approved.open(QIODevice::WriteOnly) && approved.write(text.toUtf8()) > 0;
        return isWritten ? testing::AssertionSuccess() : testing::AssertionFailure();
    }
    if (approved.open(QIODevice::ReadOnly) && approved.readAll() == text.toUtf8())
        return testing::AssertionSuccess();
    QTemporaryFile received;
    if (!received.open() || received.write(text.toUtf8()) < 0 || !received.flush())
        return testing::AssertionFailure() << "nothing can be written";
    const auto command = u"diff -U0 '%1' '%2'"_s.arg(path, received.fileName());
    return testing::AssertionFailure() << runCommand(command).output.toStdString();
}

void standardizeLook()
{
    qputenv("TZ", "Asia/Shanghai");
    tzset();
    QApplication::setFont(QFont(u"Noto Sans CJK SC"_s));
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    Appearance::install();
}
