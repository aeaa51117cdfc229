// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "UnusedMemory.h"

#include <cstdint>
#include <fstream>
#include <malloc.h>
#include <sstream>
#include <string>

#include <sys/mman.h>

namespace {

// A range of our addresses, as a line of /proc/self/smaps tells it.
struct Mapping
{
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    std::string permissions;
    std::string path;
};

// Whether the line begins a mapping; the lines that follow it do not.
bool read(const std::string &line, Mapping &mapping)
{
    std::istringstream words(line);
    Mapping found;
    char dash = 0;
    std::string skipped;
    words >> std::hex >> found.begin >> dash >> found.end >> found.permissions;
    if (dash != '-')
        return false;
    words >> skipped >> skipped >> skipped >> found.path;
    mapping = found;
    return true;
}

// What was written to, as the tables that the loader fills and then protects, is not in the file.
bool isUnwritten(const std::string &line)
{
    std::istringstream words(line);
    std::string key;
    long kilobytes = -1;
    words >> key >> kilobytes;
    return key == "Anonymous:" && kilobytes == 0;
}

void releasePagesOfFiles()
{
    std::ifstream lines("/proc/self/smaps");
    Mapping mapping;
    for (std::string line; std::getline(lines, line);) {
        if (read(line, mapping) || !isUnwritten(line))
            continue;
        const bool isOfFile = mapping.path.starts_with('/');
        if (isOfFile && mapping.permissions[1] == '-' && mapping.permissions[3] == 'p')
            // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel tells addresses as numbers
            ::madvise(reinterpret_cast<void *>(mapping.begin),
                      mapping.end - mapping.begin,
                      MADV_DONTNEED);
    }
}

} // namespace

void releaseUnusedMemory()
{
    releasePagesOfFiles();
    malloc_trim(0);
}
