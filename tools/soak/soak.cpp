// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AppLogger.h"
#include "SoakFailure.h"
#include "SoakRun.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>

#include <cstdio>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// Dictates on the private desktop it is started on until all is done or something is wrong: see
// scripts/soak.
namespace {

constexpr int progressEvery = 25;

void say(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

void sayProgress(const SoakReport &report, int count, const QElapsedTimer &clock)
{
    const auto done = report.dictations();
    say(u"%1 of %2 dictations, %3 with faults, %4 s left"_s.arg(done)
            .arg(count)
            .arg(report.faults())
            .arg(clock.elapsed() * (count - done) / done / 1000));
}

// Leaves what it takes to see what happened and to have it happen again.
void sayFailure(const SoakFailure &failure, const SoakStep &step, const QString &folder)
{
    say(u"WRONG at dictation %1 (%2, %3 ms): %4"_s.arg(step.number)
            .arg(nameOf(step.fault))
            .arg(step.length.count())
            .arg(QString::fromUtf8(failure.what())));
    QDir().mkpath(folder);
    runCommand(
        u"import -silent -window root '%1/screen.png'; cp -r ~/.wrenfold '%1'"_s.arg(folder));
    say(u"The screen, and the files of the application: "_s + folder);
}

int soak(SoakRun &run, const SoakPlan &plan, int count, const QString &folder)
{
    QElapsedTimer clock;
    clock.start();
    SoakStep step;
    try {
        for (int number = 1; number <= count; ++number) {
            step = plan.step(number);
            run.dictate(step);
            if (number % progressEvery == 0)
                sayProgress(run.report(), count, clock);
        }
        run.finish();
    } catch (const SoakFailure &failure) {
        sayFailure(failure, step, folder);
        say(run.log().join(u'\n'));
        say(run.report().table());
        return 1;
    }
    say(run.report().table());
    say(u"%1 dictations, %2 with faults, in %3 s; nothing wrong."_s.arg(count)
            .arg(run.report().faults())
            .arg(clock.elapsed() / 1000));
    say(run.growth());
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"count"_s, u"dictations"_s, u"N"_s, u"100"_s},
                       {u"seed"_s, u"of all chance"_s, u"S"_s, u"1"_s},
                       {u"faults"_s, u"of a hundred dictations"_s, u"PERCENT"_s, u"5"_s},
                       {u"folder"_s, u"for what is needed to repeat"_s, u"PATH"_s, u"soak"_s}});
    parser.process(application);
    const SoakPlan plan(parser.value(u"seed"_s).toUInt(), parser.value(u"faults"_s).toUInt());
    try {
        SoakRun run;
        return soak(run, plan, parser.value(u"count"_s).toInt(), parser.value(u"folder"_s));
    } catch (const SoakFailure &failure) {
        say(u"WRONG before the first dictation: "_s + QString::fromUtf8(failure.what()));
        return 1;
    }
}
