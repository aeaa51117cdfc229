// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

// What the race detector is told, in a build that has it.
extern "C" const char *__tsan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "ignore_noninstrumented_modules=1:halt_on_error=1:second_deadlock_stack=1";
}

// Every test program's entry: an application object without a display unless one was given.
int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    // What a test starts on a Wayland desktop chooses for itself.
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qunsetenv("QT_QPA_PLATFORM");
    return RUN_ALL_TESTS();
}
