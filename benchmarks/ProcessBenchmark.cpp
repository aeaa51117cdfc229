// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "ProcessBenchmark.h"

#include "FastMicrophone.h"
#include "ProcessFigures.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto settling = 3s;
// The threads that Qt draws with end when they have had no work for half a minute.
constexpr auto idleSettling = 35s;
constexpr auto idleWindow = 60s;
constexpr auto overlayWindow = 10s;

std::filesystem::path configuredLogFile(int port)
{
    Application::configure(port);
    return Application::logFile();
}

std::filesystem::path trayLog()
{
    const char *file = std::getenv("WRENFOLD_DESKTOP_TRAY_LOG");
    if (!file)
        throw std::runtime_error("to be run by scripts/private-desktop");
    return file;
}

double sinceStart(const ChildProcess &process, Instant until)
{
    return milliseconds(process.startedAt(), until);
}

struct IdleFigures
{
    ProcessFigures::Memory memory;
    double cpuMilliseconds = 0; // a minute
    double wakeUps = 0; // a minute
};

double megabytes(long kilobytes)
{
    return static_cast<double>(kilobytes) / 1024;
}

// In MB, before the program goes on with what it does next.
double memoryWhileStopped(const ChildProcess &process)
{
    process.signal(SIGSTOP);
    const auto memory = ProcessFigures::memory(process.pid());
    process.signal(SIGCONT);
    return megabytes(memory.proportional);
}

IdleFigures idleFigures(pid_t process)
{
    IdleFigures figures;
    std::this_thread::sleep_for(idleSettling);
    figures.memory = ProcessFigures::memory(process);
    const auto before = ProcessFigures::activity(process);
    std::this_thread::sleep_for(idleWindow);
    const auto after = ProcessFigures::activity(process);
    figures.cpuMilliseconds = after.cpuMilliseconds - before.cpuMilliseconds;
    figures.wakeUps = static_cast<double>(after.wakeUps - before.wakeUps);
    return figures;
}

struct WindowFigures
{
    std::string widgetsOfPages;
    double memory = 0; // MB, proportional
};

WindowFigures measureWindow(const std::string &arguments)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path()
        / "wrenfold-bench-windows hold ";
    const ChildProcess holder({"sh", "-c", "exec " + program.string() + arguments}, ends[1]);
    close(ends[1]);
    WindowFigures figures;
    for (char sign = 0; read(ends[0], &sign, 1) == 1 && sign != '\n';)
        figures.widgetsOfPages += sign;
    close(ends[0]);
    std::this_thread::sleep_for(settling);
    figures.memory = megabytes(ProcessFigures::memory(holder.pid()).proportional);
    return figures;
}

} // namespace

ProcessBenchmark::ProcessBenchmark(Results &results)
    : m_results(results)
    , m_log(configuredLogFile(m_services.port()))
    , m_tray(trayLog())
{}

void ProcessBenchmark::measureStart()
{
    Measurement registered{.name = "Launch to \"Hotkey registered.\"",
                           .unit = "ms",
                           .peer = "CopyQ to tray",
                           .goal = Measurement::Goal{.limit = 0.6}};
    Measurement finished{
        .name = "Launch to \"Launch finished.\"", .unit = "ms", .peer = "CopyQ to tray"};
    Measurement tray{.name = "Launch to tray icon", .unit = "ms", .values = {}, .peer = "CopyQ"};
    Measurement memory{.name = "Proportional memory after the launch, window not built",
                       .unit = "MB",
                       .peer = "CopyQ",
                       .goal = Measurement::Goal{.limit = 0.7}};
    constexpr int runs = 16;
    for (int run = 0; run < runs; ++run) {
        ChildProcess application(Application::command());
        const double toHotKey = sinceStart(application, m_log.waitFor("Hotkey registered."));
        const double toEnd = sinceStart(application, m_log.waitFor("Launch finished."));
        const double ownMemory = memoryWhileStopped(application);
        const double toTray = sinceStart(application, m_tray.waitFor("item"));
        terminate(application);
        ChildProcess copyq({"copyq"});
        const double peer = sinceStart(copyq, m_tray.waitFor("item"));
        const double peerMemory = memoryWhileStopped(copyq);
        std::this_thread::sleep_for(500ms); // it cannot be asked to leave while it starts
        ::run({"copyq", "exit"});
        copyq.waitForExit();
        if (run == 0)
            continue; // files are read from the disk, settings are made
        registered.values.push_back(toHotKey);
        finished.values.push_back(toEnd);
        tray.values.push_back(toTray);
        for (auto *row : {&registered, &finished, &tray})
            row->peerValues.push_back(peer);
        memory.values.push_back(ownMemory);
        memory.peerValues.push_back(peerMemory);
    }
    for (const auto *row : {&registered, &finished, &tray, &memory})
        m_results.add(*row);
}

void ProcessBenchmark::measureIdle()
{
    auto application = startApplication();
    const auto own = idleFigures(application->pid());
    terminate(*application);
    ChildProcess copyq({"copyq"});
    m_tray.waitFor("item");
    const auto peer = idleFigures(copyq.pid());
    ::run({"copyq", "exit"});
    copyq.waitForExit();

    m_results.add({.name = "Idle: proportional memory, window open",
                   .unit = "MB",
                   .values = {megabytes(own.memory.proportional)},
                   .peer = "CopyQ",
                   .peerValues = {megabytes(peer.memory.proportional)}});
    m_results.add({.name = "Idle: resident memory, window open",
                   .unit = "MB",
                   .values = {megabytes(own.memory.resident)},
                   .peer = "CopyQ",
                   .peerValues = {megabytes(peer.memory.resident)}});
    m_results.add({.name = "Idle: CPU a minute",
                   .unit = "ms",
                   .values = {own.cpuMilliseconds},
                   .peer = "CopyQ",
                   .peerValues = {peer.cpuMilliseconds}});
    m_results.add({.name = "Idle: wake-ups a minute",
                   .unit = "",
                   .values = {own.wakeUps},
                   .peer = "CopyQ",
                   .peerValues = {peer.wakeUps},
                   .goal = Measurement::Goal{.limit = 0, .isRatio = false}});
}

void ProcessBenchmark::measureClosedWindow()
{
    const auto application = startApplication();
    std::this_thread::sleep_for(settling);
    const auto open = ProcessFigures::memory(application->pid()).proportional;
    ::run({"xdotool", "search", "--name", "^Wrenfold$", "windowactivate", "--sync"});
    ::run({"xdotool", "key", "Escape"});
    std::this_thread::sleep_for(idleWindow);
    const auto closed = ProcessFigures::memory(application->pid());
    terminate(*application);
    ChildProcess copyq({"copyq"});
    m_tray.waitFor("item");
    std::this_thread::sleep_for(idleWindow);
    const auto peer = ProcessFigures::memory(copyq.pid()).proportional;
    ::run({"copyq", "exit"});
    copyq.waitForExit();
    if (closed.proportional >= open)
        throw std::runtime_error("the window gives nothing back");
    m_results.add({.name = "A minute after the window was closed: memory",
                   .unit = "MB",
                   .values = {megabytes(closed.proportional)},
                   .peer = "CopyQ",
                   .peerValues = {megabytes(peer)},
                   .goal = Measurement::Goal{.limit = 0.65}});
}

void ProcessBenchmark::measureOverlay()
{
    m_services.setAnswering(false);
    const auto application = startApplication();
    record();
    m_results.add({.name = "CPU while recording, overlay and level meter",
                   .unit = "%",
                   .values = {cpuShare(*application)}});
    m_hotKey.press();
    m_services.waitForRequest();
    m_results.add(
        {.name = "CPU while processing, overlay", .unit = "%", .values = {cpuShare(*application)}});
}

void ProcessBenchmark::measureHandOver()
{
    Measurement handOver{.name = "Second launch to hand-over", .unit = "ms", .values = {}};
    Measurement exit{.name = "Second launch to its exit", .unit = "ms", .values = {}};
    const auto application = startApplication();
    for (int run = 0; run < 15; ++run) {
        ChildProcess second(Application::command());
        const auto seenAt = m_log.waitFor("Duplicate launch request received.");
        if (second.waitForExit() != 0)
            throw std::runtime_error("the second launch fails");
        exit.values.push_back(sinceStart(second, Clock::now()));
        handOver.values.push_back(sinceStart(second, seenAt));
    }
    m_results.add(handOver);
    m_results.add(exit);
}

void ProcessBenchmark::measureTermination()
{
    Measurement termination{
        .name = "SIGTERM to exit, in the middle of a request", .unit = "ms", .values = {}};
    m_services.setAnswering(false);
    for (int run = 0; run < 7; ++run) {
        const auto application = startApplication();
        record();
        m_hotKey.press();
        m_services.waitForRequest();
        termination.values.push_back(terminate(*application));
    }
    m_results.add(termination);
}

void ProcessBenchmark::measureLongRecording()
{
    const auto application = startApplication();
    const auto process = application->pid();
    std::this_thread::sleep_for(settling);
    const auto atLaunch = ProcessFigures::memory(process).resident;

    // The first dictation loads fonts and the network's libraries, however short it is.
    record();
    m_hotKey.press();
    m_log.waitFor("Processing timing.");
    std::this_thread::sleep_for(settling);
    const auto afterShortOne = ProcessFigures::memory(process).resident;
    const auto shortPeak = ProcessFigures::peakResident(process);
    ProcessFigures::resetPeakResident(process);

    recordHalfAnHour();
    m_hotKey.press();
    m_log.waitFor("Processing timing.");
    const auto peak = ProcessFigures::peakResident(process);
    m_results.add({.name = "30 minutes: peak memory over idle at launch",
                   .unit = "MB",
                   .values = {megabytes(std::max(peak, shortPeak) - atLaunch)},
                   .goal = Measurement::Goal{.limit = 10, .isRatio = false}});
    m_results.add({.name = "30 minutes: peak memory over idle after a short one",
                   .unit = "MB",
                   .values = {megabytes(peak - afterShortOne)}});
}

// Half an hour of sound, in seconds.
void ProcessBenchmark::recordHalfAnHour()
{
    constexpr std::uintmax_t second = 32000;
    constexpr std::uintmax_t halfAnHour = 30 * 60 * second;
    const FastMicrophone microphone;
    const Application::Recordings recordings;
    m_hotKey.press();
    m_log.waitFor("Recording started.");
    for (auto said = second; said <= halfAnHour; said += second) {
        microphone.speak(second);
        recordings.waitForBytes(said - second / 2); // the server may hold back the last of it
    }
}

void ProcessBenchmark::measureWindowMemory()
{
    Measurement process{.name = "Window: memory of a program that has it open",
                        .unit = "MB",
                        .peer = "with a bare window",
                        .goal = Measurement::Goal{.limit = 1.5}};
    Measurement window{
        .name = "Window: what of it the window adds", .unit = "MB", .peer = "a bare window"};
    for (int run = 0; run < 3; ++run) {
        const auto without = measureWindow("none").memory;
        const auto own = measureWindow("own");
        const auto bare = measureWindow("bare " + own.widgetsOfPages).memory;
        process.values.push_back(own.memory);
        process.peerValues.push_back(bare);
        window.values.push_back(own.memory - without);
        window.peerValues.push_back(bare - without);
    }
    m_results.add(process);
    m_results.add(window);
}

std::unique_ptr<ChildProcess> ProcessBenchmark::startApplication()
{
    auto application = std::make_unique<ChildProcess>(Application::command());
    m_log.waitFor("Launch finished.");
    m_tray.waitFor("item");
    return application;
}

void ProcessBenchmark::record()
{
    const Application::Recordings recordings;
    m_hotKey.press();
    recordings.waitForFirstSample();
    m_log.waitFor("Recording started.");
    std::this_thread::sleep_for(500ms);
}

double ProcessBenchmark::terminate(ChildProcess &application)
{
    const auto askedAt = Clock::now();
    application.signal(SIGTERM);
    if (application.waitForExit() != 0)
        throw std::runtime_error("the application fails at its end");
    return milliseconds(askedAt, Clock::now());
}

double ProcessBenchmark::cpuShare(const ChildProcess &application)
{
    const auto before = ProcessFigures::activity(application.pid()).cpuMilliseconds;
    std::this_thread::sleep_for(overlayWindow);
    const auto after = ProcessFigures::activity(application.pid()).cpuMilliseconds;
    return (after - before) / std::chrono::duration<double, std::milli>(overlayWindow).count()
        * 100;
}
