// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictionaryChipButton.h"
#include "DictionaryChipCloudView.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const auto ignore = [](const QString &) {};

std::vector<QRect> framesIn(int width, const QStringList &terms)
{
    DictionaryChipCloudView cloud(ignore);
    cloud.resize(width, 500);
    cloud.setTerms(terms);
    std::vector<QRect> frames;
    for (const auto *chip : cloud.findChildren<QAbstractButton *>())
        frames.push_back(chip->geometry());
    const auto expectedHeight = frames.empty() ? 44 : frames.back().bottom() + 1 + 4;
    EXPECT_EQ(cloud.heightForWidth(width), expectedHeight);
    return frames;
}

} // namespace

TEST(DictionaryChipCloudView, flowsIntoLines)
{
    // Two of these fit into 240, three do not.
    QString term(4, u'i');
    while (DictionaryChipButton(term, ignore).chipSize().width() < 90)
        term += u'i';
    const int width = DictionaryChipButton(term, ignore).chipSize().width();
    const int step = width + 8;
    const auto wide = QString(40, u'宽');

    const std::tuple<int, QStringList, std::vector<QPoint>> cases[] = {
        {240, {}, {}},
        {240, {term, term, term}, {{0, 0}, {step, 0}, {0, 38}}},
        {100, {term, term, term}, {{0, 0}, {step, 0}, {0, 38}}}, // never narrower than 240
        {2 * step + width - 1, {term, term, term}, {{0, 0}, {step, 0}, {0, 38}}},
        {240, {wide, wide, term}, {{0, 0}, {0, 38}, {0, 76}}},
        {3 * step, {term, term, term, wide}, {{0, 0}, {step, 0}, {2 * step, 0}, {0, 38}}},
    };
    for (const auto &[cloudWidth, terms, positions] : cases) {
        const auto frames = framesIn(cloudWidth, terms);
        ASSERT_EQ(frames.size(), positions.size());
        for (std::size_t i = 0; i < frames.size(); ++i)
            EXPECT_EQ(frames[i].topLeft(), positions[i]) << cloudWidth << ' ' << i;
    }
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
