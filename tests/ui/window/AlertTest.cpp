// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Alert.h"

#include <QApplication>
#include <QMessageBox>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Alert, isInFrontOfEverythingAndShownOnlyOnce)
{
    int dismissals = 0;
    const auto dismissed = [&dismissals] { ++dismissals; };
    for (int i = 0; i < 3; ++i)
        showAlert(u"保存失败"_s, dismissed);
    showAlert(u"识别失败"_s, dismissed);
    QStringList texts;
    for (auto *window : QApplication::topLevelWidgets())
        if (auto *box = qobject_cast<QMessageBox *>(window); box && box->isVisible()) {
            EXPECT_EQ(box->windowModality(), Qt::ApplicationModal);
            EXPECT_TRUE(box->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            texts << box->informativeText();
            box->accept();
        }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    texts.sort();
    EXPECT_EQ(texts, QStringList({u"保存失败"_s, u"识别失败"_s}));
    EXPECT_EQ(dismissals, 4);
}
