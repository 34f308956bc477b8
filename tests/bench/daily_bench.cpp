// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How fast a daily note is parsed, edited and loaded. Prints medians.

#include <daily/DailyNoteParser.h>
#include <daily/NoteBytes.h>
#include <support/TestServices.h>

#include <bench/Measure.h>

#include <cstdio>

using namespace flitmark;

namespace {

/// A note of about `size` bytes in which every kind of section comes again and again.
QByteArray noteOfSize(qsizetype size)
{
    const QByteArray sections =
        "## Tasks\n- [ ] Finalize the screenshot pack for the landing page 🍅 🍅\n- [x] Publish FAQ visuals 🍅\n"
        "Some plain text below a task, as people write it, with a [[link]] and a #tag.\n- [ ] Review the notes\n\n"
        "## Coach Notes\n- Keep the morning for deep work\n> and the afternoon for the rest\n\n"
        "## Work Done\n- Header clipping fix deployed\n- Überraschungen für später notiert\n\n"
        "## Notes\nA paragraph that nobody reads but its author. It goes on for a while, because notes do that.\n\n"
        "## Pomodoro Log\n**Today:** 3/8 completed\n\n| # | Time | Focus |\n|---|------|-------|\n"
        "| 1 | 09:30 | Ship landing page v2 |\n| 2 | 10:05 | Ship landing page v2 |\n\n";
    return "---\ndate: 2026-01-22\n---\n# Thursday\n\n## 🎯 Focus\n**Ship landing page v2**\n\n" +
           sections.repeated(size / sections.size() + 1);
}

/// The milliseconds per megabyte.
double parseSpeed(qsizetype size, int rounds)
{
    const QByteArray bytes = noteOfSize(size);
    const QString text = *noteText(bytes);
    const double megabytes = static_cast<double>(bytes.size()) / 1e6;
    // From the text to the parsed note; letting go of the note is measured apart.
    QList<double> parsings;
    for (int i = 0; i < rounds; ++i) {
        ParsedDailyNote note;
        parsings.append(milliseconds([&] { note = parseDailyNote(text); }));
    }
    std::sort(parsings.begin(), parsings.end());
    const double parsing = parsings[rounds / 2] / megabytes;
    const double whole = median(rounds, [&](int) { parseDailyNote(*noteText(bytes)); }) / megabytes;
    std::printf("parse %6.1f MB: %6.0f MB/s; with decoding and freeing the result %6.0f MB/s\n", megabytes,
                1000 / parsing, 1000 / whole);
    std::fflush(stdout);
    return parsing;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const double small = parseSpeed(1'000'000, 201);
    std::printf("time per byte, 100 MB against 1 MB: %.2f\n", parseSpeed(100'000'000, 5) / small);

    TestServices services(noteOfSize(10'000));
    const auto reload = [&services](int) {
        services.daily.loadTodayNote();
        services.loop.runQueued();
    };
    const double reloading = median(1001, reload);
    writeTestFile(services.notePath, noteOfSize(1'000'000));
    reload(0);
    const qint64 line = services.daily.todayNote().tasks.last().lineNumber;
    bool isWritten = true;
    const double editing = median(51, [&](int) {
        isWritten = services.daily.toggleTask(line) && isWritten;
        services.loop.runQueued();
    });
    services.output.reset();
    std::printf("reload of a 10 KB note, published: %.3f ms\n", reloading);
    std::printf("edit of a 1 MB note, from the call to the file on disk and the note loaded again: %.3f ms\n", editing);
    return isWritten ? 0 : 1;
}
