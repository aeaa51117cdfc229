// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "LevelMeter.h"
#include "LocalizedError.h"
#include "WavFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

TEST(WavFileTest, IsPrivateAndHasItsSizesInTheHeader)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.wav"_s);
    WavFile wav(path);
    wav.append(std::vector<std::int16_t>{1, -2});
    wav.append(std::vector<std::int16_t>{258});
    wav.finish();
    wav.append(std::vector<std::int16_t>{4});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toHex(' '),
              "52 49 46 46 2a 00 00 00 57 41 56 45 66 6d 74 20 10 00 00 00 01 00 01 00 80 3e 00 00"
              " 00 7d 00 00 02 00 10 00 64 61 74 61 06 00 00 00 01 00 fe ff 02 01"_ba);
    EXPECT_EQ(file.permissions() & 0x0fff, QFile::ReadUser | QFile::WriteUser);
}

TEST(WavFileTest, NeverWritesThroughALinkOrOverAFile)
{
    const QTemporaryDir directory;
    const QString target = directory.filePath(u"target"_s);
    const QString planted = directory.filePath(u"planted.wav"_s);
    for (const bool hasTarget : {false, true}) {
        ASSERT_TRUE(!hasTarget || QFile(target).open(QIODevice::WriteOnly));
        QFile::remove(planted);
        ASSERT_TRUE(QFile::link(target, planted));
        EXPECT_THROW(const WavFile wav(planted), LocalizedError);
        EXPECT_EQ(QFileInfo::exists(target), hasTarget);
        EXPECT_EQ(QFileInfo(target).size(), 0);
    }
    EXPECT_THROW(const WavFile wav(target), LocalizedError);
    EXPECT_THROW(const WavFile wav(directory.filePath(u"missing/a.wav"_s)), LocalizedError);
}

TEST(LevelMeterTest, TellsTheLoudnessOfTheLatestTenthOfASecond)
{
    LevelMeter meter;
    EXPECT_EQ(meter.averagePowerDb(), -160.0F);
    // A square wave of a tenth of the full scale, and how much of the tenth silence has replaced.
    std::vector<std::int16_t> samples(1600);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = i % 2 == 0 ? 3277 : -3277;
    meter.add(samples);
    for (const float db : {-20.0F, -23.01F, -160.0F}) {
        EXPECT_NEAR(meter.averagePowerDb(), db, 0.01F);
        meter.add(std::vector<std::int16_t>(800));
    }
}
