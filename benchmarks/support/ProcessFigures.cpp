// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessFigures.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace {

const std::filesystem::path procRoot("/proc");

std::filesystem::path folder(pid_t process)
{
    return procRoot / std::to_string(process);
}

// The number behind "KEY:" in a file of such lines; 0 when there is none.
long value(const std::filesystem::path &file, const std::string &key)
{
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(key + ':'))
            return std::stol(line.substr(key.size() + 1));
    }
    return 0;
}

} // namespace

std::vector<pid_t> ProcessFigures::processTree(pid_t root)
{
    std::vector<pid_t> tree{root};
    for (std::size_t i = 0; i < tree.size(); ++i) {
        for (const auto &thread : std::filesystem::directory_iterator(folder(tree[i]) / "task")) {
            std::ifstream children(thread.path() / "children");
            for (pid_t child = 0; children >> child;)
                tree.push_back(child);
        }
    }
    return tree;
}

ProcessFigures::Memory ProcessFigures::memory(pid_t root)
{
    Memory memory;
    for (const auto process : processTree(root)) {
        const auto file = folder(process) / "smaps_rollup";
        memory.resident += value(file, "Rss");
        memory.proportional += value(file, "Pss");
    }
    return memory;
}

long ProcessFigures::peakResident(pid_t process)
{
    return value(folder(process) / "status", "VmHWM");
}

void ProcessFigures::resetPeakResident(pid_t process)
{
    std::ofstream(folder(process) / "clear_refs") << "5";
}

ProcessFigures::Activity ProcessFigures::activity(pid_t root)
{
    Activity activity;
    for (const auto process : processTree(root)) {
        for (const auto &thread : std::filesystem::directory_iterator(folder(process) / "task")) {
            double nanoseconds = 0;
            std::ifstream(thread.path() / "schedstat") >> nanoseconds;
            activity.cpuMilliseconds += nanoseconds / 1e6;
            const auto status = thread.path() / "status";
            activity.wakeUps += value(status, "voluntary_ctxt_switches")
                + value(status, "nonvoluntary_ctxt_switches");
        }
    }
    return activity;
}
