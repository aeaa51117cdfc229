// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DBusColorSchemeWatch.h"
#include "Process.h"
#include "WaitUntil.h"

#include <QList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(SettingsPortalTest, TellsTheSchemeAndItsChangesAndNothingWithoutAPortal)
{
    QList<ColorScheme> told;
    DBusColorSchemeWatch settings;
    settings.start([&told](ColorScheme scheme) { told << scheme; });
    EXPECT_FALSE(waitUntil([&told] { return !told.isEmpty(); }, 300ms));

    BackgroundProcess portal;
    portal.start(u"/usr/bin/python3"_s, {QStringLiteral(WRENFOLD_TEST_PORTAL), u"light"_s});
    ASSERT_TRUE(waitUntil([&portal] { return portal.readAll().contains("up"); }));
    portal.write("dark\n");
    EXPECT_TRUE(waitUntil([&told] { return told == QList{ColorScheme::Dark}; }))
        << "of a portal that came later";

    QList<ColorScheme> answered;
    DBusColorSchemeWatch later;
    later.start([&answered](ColorScheme scheme) { answered << scheme; });
    EXPECT_TRUE(answered.isEmpty()) << "told from within start()";
    EXPECT_TRUE(waitUntil([&answered] { return answered == QList{ColorScheme::Dark}; }));
    portal.write("light\n");
    EXPECT_TRUE(waitUntil([&told] { return told.endsWith(ColorScheme::Light); }));
}
