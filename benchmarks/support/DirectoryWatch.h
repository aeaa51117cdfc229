// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

// Waits for something to happen to the files of one directory, woken by the kernel at each change.
class DirectoryWatch final
{
public:
    // The directory must exist. Throws std::system_error.
    explicit DirectoryWatch(const std::filesystem::path &directory);
    ~DirectoryWatch();
    DirectoryWatch(const DirectoryWatch &) = delete;
    DirectoryWatch &operator=(const DirectoryWatch &) = delete;

    // Returns when the condition holds, which is looked at once and after each change. Throws
    // std::runtime_error when the limit passes first.
    void waitUntil(const std::function<bool()> &condition,
                   std::chrono::seconds limit = std::chrono::seconds(20)) const;

private:
    int m_descriptor = -1;
};
