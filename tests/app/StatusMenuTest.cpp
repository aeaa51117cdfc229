// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LoggedLines.h"
#include "StatusMenu.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(StatusMenu, logsWhetherItsImageIsThere)
{
    const TemporaryHome home;
    home.write(u"art/Wrenfold.png"_s, "no image");
    StatusMenu({}).loadIcon();
    StatusMenu({}).loadIcon(home.path(u"art"_s));
    QFile::remove(home.path(u"art/Wrenfold.png"_s));
    QFile::copy(u":/icons/Wrenfold.png"_s, home.path(u"art/Wrenfold.png"_s));
    StatusMenu({}).loadIcon(home.path(u"art"_s));
    const auto loaded = u"INFO Status menu icon loaded."_s;
    EXPECT_EQ(loggedLines(home),
              QStringList({loaded, u"WARN Status menu icon missing."_s, loaded}));
}
