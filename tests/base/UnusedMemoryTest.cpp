// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "UnusedMemory.h"

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <gtest/gtest.h>
#include <span>

#include <sys/mman.h>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t size = 4 << 20;

long residentPages()
{
    QFile file(u"/proc/self/statm"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').at(1).toLong();
}

} // namespace

TEST(UnusedMemoryTest, GivesBackWhatWasReadOfFilesAndNothingElse)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(QByteArray(size, 'f'));
    ASSERT_TRUE(file.flush());
    const auto map = [&] {
        return static_cast<char *>(
            ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE, file.handle(), 0));
    };
    char *const written = map();
    written[1] = 'w';
    ::mprotect(written, size, PROT_READ);
    char *const unwritten = map();
    ::mprotect(unwritten, size, PROT_READ);
    EXPECT_EQ(std::ranges::count(std::span(unwritten, size), 'f'), size);
    const auto before = residentPages();
    releaseUnusedMemory();
    EXPECT_LT(residentPages(), before - long(size / 4096) + 64);
    EXPECT_EQ(written[1], 'w');
    EXPECT_EQ(unwritten[size - 1], 'f');
}
