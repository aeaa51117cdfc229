// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryChipButton.h"
#include "DictionaryChipCloudView.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const auto ignore = [](const QString &) {};

} // namespace

TEST(DictionaryChipCloudView, isAsHighAsItsLines)
{
    DictionaryChipCloudView cloud(ignore);
    cloud.setTerms(QStringList(6, u"DeepSeek"_s));
    // In 240 pixels, or fewer, two stand beside each other.
    for (const auto &[width, height] : {std::pair(240, 110), {100, 110}, {2000, 34}})
        EXPECT_EQ(cloud.heightForWidth(width), height);
    cloud.setTerms({});
    EXPECT_EQ(cloud.heightForWidth(240), 44);
}

TEST(DictionaryChipButton, showsATermThatLooksLikeMarkupAsItIsWritten)
{
    const DictionaryChipButton chip(u"R&D & <b>QA</b>"_s, ignore);
    const auto title = u"R&D & <b>QA</b>  ×"_s;
    EXPECT_EQ(chip.chipSize(), QSize(chip.fontMetrics().horizontalAdvance(title) + 24, 30));
    EXPECT_TRUE(chip.shortcut().isEmpty());
    EXPECT_EQ(DictionaryChipButton(u"R&D"_s, ignore).toolTip(), u"删除 R&D"_s);
    EXPECT_EQ(chip.toolTip(), u"删除 R&amp;D &amp; &lt;b&gt;QA&lt;/b&gt;"_s);
    EXPECT_EQ(DictionaryChipButton(u"i"_s, ignore).chipSize(), QSize(58, 30));
}
