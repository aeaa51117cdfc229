// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Application.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace {

std::string environmentValue(const char *name)
{
    const char *value = std::getenv(name);
    if (!value)
        throw std::runtime_error(std::string(name) + " is not set");
    return value;
}

std::filesystem::path dataFolder()
{
    return std::filesystem::path(environmentValue("HOME")) / ".wrenfold";
}

// The most sound in a recording in the folder, without its header.
std::uintmax_t recordedBytes(const std::filesystem::path &folder)
{
    constexpr std::uintmax_t headerBytes = 44;
    std::uintmax_t most = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        std::error_code isGone;
        if (entry.path().extension() == ".wav")
            if (const auto size = entry.file_size(isGone); !isGone && size > headerBytes)
                most = std::max(most, size - headerBytes);
    }
    return most;
}

} // namespace

std::vector<std::string> Application::command()
{
    return {environmentValue("WRENFOLD")};
}

std::filesystem::path Application::logFile()
{
    return dataFolder() / "logs" / "wrenfold.log";
}

void Application::configure(int port)
{
    std::filesystem::create_directories(logFile().parent_path());
    const auto base = "http://127.0.0.1:" + std::to_string(port);
    std::ofstream(dataFolder() / "config.json")
        << R"({"hotKey": {"keyCode": 49, "modifiers": 6144, "displayName": "⌃⌥Space"},
"deepSeek": {"apiKey": "none", "baseURL": ")"
        << base << R"(", "model": "none"},
"volcengine": {"accessKey": "", "apiKey": "none", "appKey": "", "enableDDC": true,
"enableITN": true, "enablePunctuation": true, "endpoint": ")"
        << base << R"(/recognize/flash",
"modelName": "none", "resourceId": "none"}})";
}

Application::Recordings::Recordings()
    : m_folder(environmentValue("XDG_RUNTIME_DIR"))
    , m_watch(m_folder)
{}

Instant Application::Recordings::waitForBytes(std::uintmax_t count) const
{
    m_watch.waitUntil([&] { return recordedBytes(m_folder) >= count; }, std::chrono::minutes(2));
    return Clock::now();
}
