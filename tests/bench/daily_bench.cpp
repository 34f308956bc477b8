// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How fast a daily note is parsed, edited and loaded. Prints medians.

#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <daily/DailyNoteParser.h>
#include <daily/NoteBytes.h>
#include <platform/linux/InotifyFileEventSource.h>
#include <signals/SignalManager.h>
#include <support/ManualRunLoop.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace flitmark;

namespace {

/// A note of about `size` bytes in which every kind of section comes again and again.
QByteArray noteOfSize(qsizetype size)
{
    QByteArray note = "---\ndate: 2026-01-22\n---\n# Thursday\n\n## 🎯 Focus\n**Ship landing page v2**\n\n";
    note.reserve(size + 2048);
    for (int i = 0; note.size() < size; ++i) {
        const QByteArray n = QByteArray::number(i);
        note += "## Tasks " + n +
                "\n- [ ] Finalize the screenshot pack for the landing page 🍅 🍅\n- [x] Publish FAQ visuals 🍅\n"
                "Some plain text below a task, as people write it, with a [[link]] and a #tag.\n- [ ] Review release "
                "notes\n\n"
                "## Coach Notes\n- Keep the morning for deep work\n> and the afternoon for the rest\n\n"
                "## Work Done\n- Header clipping fix deployed\n- Überraschungen für später notiert\n\n"
                "## Notes\nA paragraph that nobody reads but its author. It goes on for a while, and then for another "
                "while, "
                "because notes do that.\n\nAnother one.\n\n"
                "## Pomodoro Log\n**Today:** 3/8 completed\n\n| # | Time | Focus |\n|---|------|-------|\n"
                "| 1 | 09:30 | Ship landing page v2 |\n| 2 | 10:05 | Ship landing page v2 |\n\n";
    }
    return note;
}

/// The median of `rounds` runs, in milliseconds. `clear` is not counted.
double median(
    int rounds, const std::function<void()>& run, const std::function<void()>& clear = [] {})
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        run();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        clear();
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double parseSpeed(qsizetype size, int rounds)
{
    const QByteArray bytes = noteOfSize(size);
    const QString text = *noteText(bytes);
    ParsedDailyNote note;
    const auto clear = [&] { note = ParsedDailyNote(); };
    const double parsing = median(
        rounds, [&] { note = parseDailyNote(text); }, clear);
    const double decoding = median(
        rounds, [&] { note = parseDailyNote(*noteText(bytes)); }, clear);
    const double megabytes = static_cast<double>(bytes.size()) / 1e6;
    std::printf("parse %6.1f MB: %9.3f ms, %6.0f MB/s; with decoding %9.3f ms, %6.0f MB/s\n", megabytes, parsing,
                megabytes / parsing * 1000, decoding, megabytes / decoding * 1000);
    return parsing / megabytes;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const double small = parseSpeed(1'000'000, 201);
    const double large = parseSpeed(100'000'000, 5);
    std::printf("time per byte, 100 MB against 1 MB: %.2f\n", large / small);

    const QTemporaryDir folder;
    const Directories directories{.home = folder.path(), .applicationSupport = folder.path(), .cache = {}};
    const QString path = folder.filePath(QStringLiteral("Daily/2026/2026-01-22.md"));
    ManualRunLoop loop;
    InotifyFileEventSources events;
    TestWorkspace workspace;
    ConfigManager config(directories);
    config.update([&](AppConfig& changed) { changed.vaultPath = folder.path(); });
    SignalManager signalManager(directories, config, loop, events);
    writeTestFile(path, noteOfSize(10'000));
    DailyNoteManager manager({config, signalManager, loop, events, workspace});
    loop.runQueued();

    const double reload = median(1001, [&] {
        manager.loadTodayNote();
        loop.runQueued();
    });
    std::printf("reload of a 10 KB note, published and watched: %.3f ms\n", reload);

    writeTestFile(path, noteOfSize(1'000'000));
    manager.loadTodayNote();
    loop.runQueued();
    const qint64 line = manager.todayNote().tasks.last().lineNumber;
    bool isWritten = true;
    const double edit = median(51, [&] {
        isWritten = manager.toggleTask(line) && isWritten;
        loop.runQueued();
    });
    std::printf("edit of a 1 MB note, from the call to the file on disk and the note loaded again: %.3f ms%s\n", edit,
                isWritten ? "" : " (FAILED)");
    QFile raw(folder.filePath(QStringLiteral("raw")));
    const QByteArray bytes = noteOfSize(1'000'000);
    const double plain = median(51, [&] {
        isWritten = raw.open(QIODevice::WriteOnly) && raw.write(bytes) == bytes.size() && raw.flush() &&
                    ::fsync(raw.handle()) == 0;
        raw.close();
    });
    std::printf("for comparison, 1 MB written and flushed to disk: %.3f ms\n", plain);
    return isWritten ? 0 : 1;
}
