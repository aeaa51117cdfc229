// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppConfig.h"
#include "Desktop.h"
#include "Process.h"
#include "WaitUntil.h"
#include "WrenfoldApplication.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto tool = QStringLiteral("'" WRENFOLD_LOCAL "'"); // as a word of the shell's

// Speaks into the microphone, to the end.
void speak(const QString &text)
{
    const auto file = QDir::home().filePath(u"spoken.wav"_s);
    const auto command = u"flite -voice slt -t '%1' -o %2 && paplay %2"_s;
    ASSERT_EQ(runCommand(command.arg(text, file)).exitCode, 0);
}

// What the editor in front holds, by the file it saves.
std::string savedText(Desktop &desktop, const QString &path)
{
    QFile file(path);
    const bool isSaved = waitUntil([&] {
        desktop.tap({Key::leftControl, Key::s});
        return waitUntil([&] { return file.size() > 0; }, 500ms);
    });
    return isSaved && file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
}

} // namespace

TEST(LocalServices, TurnSpeechIntoTextInTheEditorWithoutAnAccount)
{
    qputenv("XDG_DATA_HOME", WRENFOLD_LOCAL_DATA);
    ASSERT_EQ(runCommand(tool + u" enable"_s).exitCode, 0) << "scripts/local install failed";
    BackgroundProcess services;
    services.setProcessChannelMode(QProcess::ForwardedChannels);
    services.start(QStringLiteral(WRENFOLD_LOCAL), {u"serve"_s});
    qunsetenv("XDG_DATA_HOME");
    Desktop desktop;
    const auto application = WrenfoldApplication::launch();
    ASSERT_EQ(runCommand(tool + u" disable"_s).exitCode, 1);

    const auto note = QDir::home().filePath(u"note.txt"_s);
    const auto editor = desktop.start(u"mousepad"_s, {u"--disable-server"_s, note}, u"mousepad"_s);
    using App = WrenfoldApplication;
    ASSERT_TRUE(App::tapUntilLogged(desktop, Key::hotKey, u"Recording started."_s));
    speak(u"Um, please please bring the documents to the meeting on Thursday."_s);
    ASSERT_TRUE(App::tapUntilLogged(desktop, Key::hotKey, u"Recording stopped."_s));
    ASSERT_TRUE(App::waitForLog(u"Auto paste succeeded."_s, 1, 60s));
    // The last word depends on where the recording ends.
    EXPECT_THAT(
        savedText(desktop, note),
        testing::MatchesRegex("Please,? please bring the documents to the meeting on .+\\."));

    EXPECT_EQ(application->end(SIGTERM), 0);
    EXPECT_EQ(runCommand(tool + u" disable"_s).exitCode, 0);
    EXPECT_EQ(AppConfig::loadOrCreateTemplate().config, AppConfig());
    services.terminate();
    EXPECT_TRUE(services.waitForFinished());
}
