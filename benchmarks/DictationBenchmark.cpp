// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "DictationBenchmark.h"

#include "FastMicrophone.h"

#include <array>
#include <csignal>
#include <fstream>
#include <map>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr int shortRuns = 21;
constexpr int minuteRuns = 5;
// What the sound server captures comes in blocks of 20 ms; a press at each fifth of one.
constexpr auto betweenPhases = 4ms;
// Where the desktop repeats a held hotkey, what comes sooner is no press of its own.
constexpr auto betweenPresses = 700ms;

// What puts its input on the clipboard and presses the keys that paste it.
struct Glue
{
    std::string tools; // "none" where no tool presses keys without more rights
    std::string command = {};
    std::optional<Measurement::Goal> goal = {};
};
const std::map<std::string, Glue> glues{
    {"",
     {.tools = "curl, xclip, xdotool",
      .command = "xclip -selection clipboard && exec xdotool key ctrl+v",
      .goal = Measurement::Goal{.limit = 0.25}}},
    {"sway",
     {.tools = "curl, wl-copy, wtype",
      .command = "wl-copy && exec wtype -M ctrl v -m ctrl",
      .goal = Measurement::Goal{.limit = 0.35}}},
    {"kde", {.tools = "none"}},
    {"gnome", {.tools = "none"}},
};

// Configures before anything looks at the files.
std::filesystem::path configuredLogFile(int port)
{
    Application::configure(port);
    return Application::logFile();
}

} // namespace

DictationBenchmark::DictationBenchmark(Results &results, std::string_view desktop)
    : m_results(results)
    , m_desktop(desktop)
    , m_log(configuredLogFile(m_services.port()))
    , m_application({Application::command().front(), "--background"}) // the editor keeps the focus
{
    m_log.waitFor("Launch finished.");
    std::this_thread::sleep_for(500ms); // some desktops take a hotkey in later
}

void DictationBenchmark::measureShortOnes()
{
    const auto &glue = glues.at(m_desktop);
    Measurement sample{.name = "Key press to first captured sample",
                       .unit = "ms",
                       .peer = "parecord",
                       .goal = Measurement::Goal{.limit = 0.7}};
    Measurement text{.name = "Recognition answer to text in the focused window",
                     .unit = "ms",
                     .peer = glue.tools,
                     .goal = glue.goal};
    FastMicrophone microphone;
    microphone.talk();
    dictate(betweenPresses); // the first of each pays for what is loaded once
    if (!glue.command.empty())
        glueToText();
    for (int run = 0; run < shortRuns; ++run) {
        const auto times = dictate(betweenPresses);
        sample.values.push_back(times.pressToSample);
        sample.peerValues.push_back(parecordToSample());
        text.values.push_back(times.answerToText);
        if (!glue.command.empty())
            text.peerValues.push_back(glueToText());
    }
    add(sample);
    add(text);
}

void DictationBenchmark::measureMinutes()
{
    Measurement request{.name = "Second key press to last byte of a minute's request",
                        .unit = "ms",
                        .peer = "curl",
                        .goal = Measurement::Goal{.limit = 1.0}};
    m_services.keepBodies();
    const auto bodyFile = Application::logFile().parent_path() / "body.json";
    for (int run = 0; run < minuteRuns; ++run) {
        request.values.push_back(dictate(60s + run * betweenPhases).pressToLastByte);
        std::ofstream(bodyFile) << m_services.latestBody();
        request.peerValues.push_back(curlToLastByte(bodyFile));
    }
    m_results.add(request);
}

void DictationBenchmark::add(Measurement measurement)
{
    if (m_desktop.empty()) {
        m_results.add(measurement);
        return;
    }
    const auto onX11 = m_results.valuesOf(measurement.name);
    measurement.name += ", " + m_desktop;
    m_results.add(measurement);
    measurement.peer = "X11";
    measurement.peerValues = onX11;
    measurement.goal = Measurement::Goal{.limit = 1.5};
    m_results.add(measurement);
}

DictationBenchmark::Times DictationBenchmark::dictate(std::chrono::milliseconds speech)
{
    Times times;
    const auto firstPress = m_hotKey.press();
    times.pressToSample = milliseconds(firstPress, m_recordings.waitForFirstSample());
    m_log.waitFor("Recording started.");
    std::this_thread::sleep_for(speech);
    const auto secondPress = m_hotKey.press();
    const auto request = m_services.waitForRequest();
    times.pressToLastByte = milliseconds(secondPress, request.lastByte);
    const auto arrival = m_editor.waitForText(QString::fromUtf8(InstantServices::polishedText));
    times.answerToText = milliseconds(request.answered, arrival);
    m_log.waitFor("Processing timing.");
    std::this_thread::sleep_for(betweenPresses);
    return times;
}

double DictationBenchmark::parecordToSample() const
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    ChildProcess recorder({"parecord", "--raw", "--rate=16000", "--channels=1", "--format=s16le"},
                          ends[1]);
    close(ends[1]);
    char sample = 0;
    const auto count = read(ends[0], &sample, 1);
    const auto arrivedAt = Clock::now();
    recorder.signal(SIGTERM);
    recorder.waitForExit();
    close(ends[0]);
    if (count != 1)
        throw std::runtime_error("parecord records nothing");
    return milliseconds(recorder.startedAt(), arrivedAt);
}

// curl does not wait for a leave to send the body: that would cost it a second.
double DictationBenchmark::curlToLastByte(const std::string &bodyFile)
{
    ChildProcess curl({"curl",
                       "--silent",
                       "--noproxy",
                       "*",
                       "--header",
                       "Content-Type: application/json",
                       "--header",
                       "Expect:",
                       "--data-binary",
                       '@' + bodyFile,
                       "http://127.0.0.1:" + std::to_string(m_services.port()) + "/"});
    const auto request = m_services.waitForRequest();
    curl.waitForExit();
    return milliseconds(curl.startedAt(), request.lastByte);
}

// The same steps: the polishing's request and answer, the clipboard, the keys.
double DictationBenchmark::glueToText()
{
    ChildProcess glue(
        {"sh",
         "-c",
         R"(curl --silent --noproxy '*' --header 'Content-Type: application/json' \
                              --data '{"messages":[]}' "$1" |
                              sed 's/.*"content":"//; s/".*//' | tr -d '\n' | )"
             + glues.at(m_desktop).command,
         "sh",
         "http://127.0.0.1:" + std::to_string(m_services.port()) + "/chat/completions"});
    const auto arrival = m_editor.waitForText(QString::fromUtf8(InstantServices::polishedText));
    glue.waitForExit(); // or its keys stay down
    return milliseconds(glue.startedAt(), arrival);
}
