// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include <csignal>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

ChildProcess::ChildProcess(const std::vector<std::string> &command, int output, int input)
{
    std::vector<char *> arguments;
    for (const auto &argument : command)
        arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (input >= 0)
        posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (output >= 0)
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    m_startedAt = Clock::now();
    const int error =
        posix_spawnp(&m_pid, arguments.front(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), command.front());
}

ChildProcess::~ChildProcess()
{
    if (m_status)
        return;
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
}

void ChildProcess::signal(int number) const
{
    if (!m_status)
        kill(m_pid, number);
}

int ChildProcess::waitForExit(std::chrono::seconds limit)
{
    if (m_status)
        return *m_status;
    pollfd ended{
        .fd = static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0)), .events = POLLIN, .revents = 0};
    const int count = poll(&ended, 1, static_cast<int>(limit.count()) * 1000);
    close(ended.fd);
    if (count != 1)
        throw std::runtime_error("a program did not end in time");
    int status = 0;
    waitpid(m_pid, &status, 0);
    m_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return *m_status;
}

void run(const std::vector<std::string> &command)
{
    ChildProcess process(command);
    if (process.waitForExit() != 0)
        throw std::runtime_error("failed: " + command.front());
}
