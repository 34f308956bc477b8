// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteFile.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <config/ConfigManager.h>
#include <platform/RunLoop.h>
#include <support/RecordingSound.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>

using namespace flitmark;

namespace {

/// How often this thread has had to wait for something, the disk above all, so far.
long waits()
{
    struct rusage usage = {};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

/// Runs `step` `count` times, giving it the number of the run, and prints how long one takes. The number of waits tells
/// a slow disk from a busy machine, which adds some milliseconds to each of them.
template<typename Step>
void measure(const char* name, int count, Step step)
{
    QList<qint64> times;
    const long waitsBefore = waits();
    for (int i = 0; i < count; ++i) {
        QElapsedTimer timer;
        timer.start();
        step(i);
        times.append(timer.nsecsElapsed());
    }
    const double waitsPerRun = static_cast<double>(waits() - waitsBefore) / count;
    std::sort(times.begin(), times.end());
    const auto milliseconds = [&times](qsizetype percent) {
        return static_cast<double>(times[(times.size() - 1) * percent / 100]) / 1e6;
    };
    std::printf("%-40s p50 %7.3f ms   p99 %7.3f ms   %5.2f waits   (%d runs)\n", name, milliseconds(50),
                milliseconds(99), waitsPerRun, count);
    std::fflush(stdout);
}

QString textOf(qsizetype bytes)
{
    return QStringLiteral("Some words of a note that grows and grows.\n").repeated(bytes / 43 + 1).first(bytes);
}

} // namespace

// What capturing costs. The first argument is the folder to work in (a temporary one is made there): give one on the
// disk that matters, for a folder in memory flatters.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString place = argc > 1 ? QFile::decodeName(argv[1]) : QDir::tempPath();
    const QTemporaryDir home(place + QStringLiteral("/capture-bench-XXXXXX"));
    const Directories directories{
        .home = home.path(), .applicationSupport = home.filePath(QStringLiteral("config")), .cache = {}};
    RecordingSound sound;
    ConfigManager config(directories);
    config.update([&home](AppConfig& settings) { settings.vaultPath = home.filePath(QStringLiteral("vault")); });
    RunLoop& loop = RunLoop::shared();
    DraftManager drafts(directories, loop);
    NoteManager notes(config, loop, sound);
    NotePanelModel panel(config, drafts, notes, loop);

    const QString text = textOf(10 * 1024);
    measure("keystroke to draft on disk, 10 KB", 2000, [&](int i) { panel.setNoteContent(text + QString::number(i)); });
    measure("keystroke to draft on disk, 100 bytes", 2000,
            [&](int i) { panel.setNoteContent(text.first(100) + QString::number(i)); });
    bool isSaved = true;
    measure("save of a 10 KB note, flushed to disk", 500, [&](int i) {
        const auto saved = notes.save(QString::number(i), text, QStringLiteral("Fleeting"));
        isSaved = isSaved && saved.has_value();
    });

    const QString crowded = home.filePath(QStringLiteral("crowded"));
    QDir().mkpath(crowded);
    for (int i = 0; i < 10'000; ++i) {
        QFile file(crowded + QStringLiteral("/note-%1.md").arg(i));
        isSaved = isSaved && file.open(QIODevice::WriteOnly) && file.write(text.first(500).toUtf8()) > 0;
    }
    measure("recent notes of a folder of 10000", 100, [&](int) { listRecentNotes(crowded); });
    return isSaved ? 0 : 1;
}
