// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How long it takes from a note of 200 tasks being loaded again to the Daily tab painted anew, whatever has changed in
// it. Usage: QT_QPA_PLATFORM=offscreen bench_daily_tab

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/DailyTabView.h>
#include <support/TestServices.h>
#include <ui/Motion.h>

#include <QApplication>
#include <QVBoxLayout>

#include <bench/Measure.h>

using namespace flitmark;

namespace {

constexpr int taskCount = 200;
constexpr int rounds = 11;

/// The line of a task in the note of a round.
using TaskLine = QByteArray (*)(int task, int round);

QByteArray noteOf(TaskLine line, int round)
{
    QByteArray note = "## Today's Focus\n**Ship it**\n\n## Tasks\n";
    for (int task = 0; task < taskCount; ++task) {
        note += line(task, round);
    }
    return note;
}

QByteArray task(int number, int tomatoes = 0, bool isDone = false)
{
    return (isDone ? "- [x] " : "- [ ] ") + QByteArray("Finalize page ") + QByteArray::number(number) +
           QByteArray(" 🍅").repeated(tomatoes) + '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    motion::set(motion::Setting::Never);
    TestServices services("");
    services.output.reset();
    DailyTabModel model(
        {services.daily, services.signalManager, services.controller, services.notifications, services.loop});
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    auto* view = new DailyTabView(model, host);
    layout->addWidget(view);
    host.resize(460, 560);
    host.show();
    view->setTabShown(true);

    const auto reload = [&](const QByteArray& note) {
        writeTestFile(services.notePath, note);
        return milliseconds([&] {
            services.daily.loadTodayNote();
            services.loop.runQueued();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        });
    };
    const std::pair<const char*, TaskLine> changes[] = {
        {"nothing", [](int number, int) { return task(number); }},
        {"one task ticked", [](int number, int round) { return task(number, 0, number == 3 && round % 2 == 0); }},
        {"a task comes and goes at the top",
         [](int number, int round) { return (number == 0 && round % 2 == 0 ? task(999) : "") + task(number); }},
        {"every task gets or loses a tomato", [](int number, int round) { return task(number, 1 + round % 2); }},
        {"all other tasks", [](int number, int round) { return task(1000 * (1 + round % 2) + number); }},
    };
    for (const auto& [label, line] : changes) {
        reload(noteOf(line, 1));
        QList<double> times;
        for (int round = 0; round < rounds; ++round) {
            times.append(reload(noteOf(line, round)));
        }
        report(QByteArray("200 tasks shown, ") + label, medianOf(times), "ms", 16);
    }
    return 0;
}
