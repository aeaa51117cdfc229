// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"
#include "StatusMenu.h"
#include "TemporaryHome.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(StatusMenu, logsWhetherItsImageIsThere)
{
    const TemporaryHome home;
    home.write(u"art/Wrenfold.png"_s, "no image");
    QFile::copy(u":/icons/Wrenfold.png"_s, home.path(u"good.png"_s));
    StatusMenu({}).loadIcon();
    StatusMenu({}).loadIcon(home.path(u"art"_s));
    QFile::remove(home.path(u"art/Wrenfold.png"_s));
    QFile::rename(home.path(u"good.png"_s), home.path(u"art/Wrenfold.png"_s));
    StatusMenu({}).loadIcon(home.path(u"art"_s));
    AppLogger::drain();
    QList<QByteArray> messages;
    for (const auto &line : home.read(u".wrenfold/logs/wrenfold.log"_s).trimmed().split('\n'))
        messages << line.mid(line.lastIndexOf("] ") + 2);
    EXPECT_EQ(
        messages,
        QList<QByteArray>(
            {"Status menu icon loaded.", "Status menu icon missing.", "Status menu icon loaded."}));
}
