// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "KeyCodes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include <linux/input-event-codes.h>

namespace {

TEST(KeyCodesTest, everyKeyOfADisplayHasOneCodeAndComesBack)
{
    std::set<quint32> codes;
    for (quint32 kernel = 1; kernel <= KeyCodes::highestKernelCode; ++kernel) {
        const auto code = KeyCodes::virtualKeyCode(kernel);
        ASSERT_TRUE(code) << kernel;
        EXPECT_EQ(KeyCodes::kernelCode(*code), kernel);
        codes.insert(*code);
    }
    EXPECT_EQ(codes.size(), KeyCodes::highestKernelCode);
    // No other number names a key: neither 63, the Function key, nor a second one for a known key.
    for (quint32 code = 0; code < 70000; ++code)
        EXPECT_EQ(KeyCodes::kernelCode(code).has_value(), codes.contains(code)) << code;
    for (const quint32 kernel : {0U, 248U, 0x1d0U})
        EXPECT_FALSE(KeyCodes::virtualKeyCode(kernel)) << kernel;
}

TEST(KeyCodesTest, keysHaveTheirKnownCodes)
{
    const std::pair<quint32, quint32> rows[] = {
        {9, KEY_V},         {18, KEY_1},       {22, KEY_6},
        {23, KEY_5},        {36, KEY_ENTER},   {41, KEY_SEMICOLON},
        {46, KEY_M},        {50, KEY_GRAVE},   {51, KEY_BACKSPACE},
        {71, KEY_NUMLOCK},  {76, KEY_KPENTER}, {94, KEY_RO},
        {95, KEY_KPCOMMA},  {102, KEY_HANJA},  {104, KEY_HANGEUL},
        {110, KEY_COMPOSE}, {114, KEY_INSERT}, {117, KEY_DELETE},
        {122, KEY_F1},      {90, KEY_F20},     {326, KEY_SCROLLLOCK},
        {375, KEY_PAUSE},   {348, KEY_HENKAN}};
    for (const auto &[code, kernel] : rows)
        EXPECT_EQ(KeyCodes::kernelCode(code), kernel) << code;
}

} // namespace
