// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How long it takes from a note being loaded to the Daily tab painted: one of 200 tasks that is loaded again, whatever
// has changed in it, one of 20,000, and ones with a line of 5 MB. Usage: QT_QPA_PLATFORM=offscreen bench_daily_tab

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/DailyTabView.h>
#include <support/TestServices.h>
#include <ui/Motion.h>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <bench/Measure.h>

using namespace flitmark;

namespace {

constexpr int rounds = 11;

/// The line of a task in the note of a round.
using TaskLine = QByteArray (*)(int task, int round);

QByteArray noteOf(int tasks, TaskLine line, int round)
{
    QByteArray note = "## Today's Focus\n**Ship it**\n\n## Tasks\n";
    for (int task = 0; task < tasks; ++task) {
        note += line(task, round);
    }
    return note;
}

QByteArray task(int number, int tomatoes = 0, bool isDone = false)
{
    return (isDone ? "- [x] " : "- [ ] ") + QByteArray("Finalize page ") + QByteArray::number(number) +
           QByteArray(" 🍅").repeated(tomatoes) + '\n';
}

QByteArray taskOrTicked(int number, int round)
{
    return task(number, 0, number == 3 && round % 2 == 0);
}

/// The tab in a window.
struct Tab
{
    Tab()
    {
        services.output.reset();
        (new QVBoxLayout(&host))->addWidget(view);
        host.resize(460, 560);
        host.show();
        view->setTabShown(true);
    }

    /// The milliseconds from the loading of `note` to the painted tab.
    double show(const QByteArray& note)
    {
        writeTestFile(services.notePath, note);
        return milliseconds([&] {
            services.daily.loadTodayNote();
            settle();
        });
    }
    void settle()
    {
        services.loop.runQueued();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    TestServices services{""};
    DailyTabModel model{
        {services.daily, services.signalManager, services.controller, services.notifications, services.loop}};
    QWidget host;
    DailyTabView* view = new DailyTabView(model, host);
};

double memoryInMib()
{
    for (const QByteArray& line : readTestFile("/proc/self/smaps_rollup").split('\n')) {
        if (line.startsWith("Pss:")) {
            return line.simplified().split(' ')[1].toDouble() / 1024;
        }
    }
    return 0;
}

void measureReloads()
{
    const std::pair<const char*, TaskLine> changes[] = {
        {"nothing", [](int number, int) { return task(number); }},
        {"one task ticked", taskOrTicked},
        {"a task comes and goes at the top",
         [](int number, int round) { return (number == 0 && round % 2 == 0 ? task(999) : "") + task(number); }},
        {"every task gets or loses a tomato", [](int number, int round) { return task(number, 1 + round % 2); }},
        {"all other tasks", [](int number, int round) { return task(1000 * (1 + round % 2) + number); }},
    };
    Tab tab;
    for (const auto& [label, line] : changes) {
        tab.show(noteOf(200, line, 1));
        QList<double> times;
        for (int round = 0; round < rounds; ++round) {
            times.append(tab.show(noteOf(200, line, round)));
        }
        report(QByteArray("200 tasks shown, ") + label, medianOf(times), "ms", 16);
    }
}

void measureManyTasks(int count)
{
    Tab tab;
    const QByteArray name = QByteArray::number(count) + " tasks ";
    report(name + "shown", tab.show(noteOf(count, taskOrTicked, 1)), "ms", 100);
    report(name + "shown, one task ticked", tab.show(noteOf(count, taskOrTicked, 0)), "ms", 100);
    QScrollBar* bar = tab.view->findChildren<QScrollArea*>().last()->verticalScrollBar();
    report(name + "scrolled to the end", milliseconds([&] {
               bar->setValue(bar->maximum());
               tab.settle();
           }),
           "ms", 100);
    const double picker = milliseconds([&] {
        tab.model.setShowPomodoroTaskPicker(true);
        tab.settle();
    });
    report(name + "to pick from", picker, "ms", 100);
    report(name + "shown, memory", memoryInMib(), "MiB", 60);
}

void measureLongTexts()
{
    const QByteArray text = QByteArray("some words ").repeated(500'000);
    for (const char* heading : {"Focus", "Tasks", "Coach", "Work Done"}) {
        const QByteArray mark = qstrcmp(heading, "Tasks") == 0 ? "- [ ] " : qstrcmp(heading, "Focus") == 0 ? "" : "- ";
        report(QByteArray(heading) + " with a line of 5 MB",
               Tab().show(QByteArray("## ") + heading + '\n' + mark + text), "ms", 150);
    }
    Tab tab;
    const QByteArray alert = R"({"alert_id": "a", "triggered_at": "now", "planned": "%", "actual": "%",)"
                             R"( "misalignment_count": 2, "status": "pending"})";
    const QString path = tab.services.signalManager.coachAlertURL();
    writeTestFile(path, QByteArray(alert).replace('%', text));
    const double time = milliseconds([&] {
        tab.services.events.report(path, FileEventSource::Event::Written);
        tab.settle();
    });
    report("an alert of two texts of 5 MB", time, "ms", 300);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    motion::set(motion::Setting::Never);
    measureReloads();
    measureManyTasks(20'000);
    measureLongTexts();
    return 0;
}
