// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <capture/NoteFile.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <config/ConfigManager.h>
#include <platform/RunLoop.h>
#include <support/RecordingSound.h>
#include <support/TestFiles.h>

#include <bench/Measure.h>

#include <cstdio>

using namespace flitmark;

namespace {

/// Runs `step` `count` times, giving it the number of the run, and prints how long one takes.
template<typename Step>
void measure(const char* name, int count, Step step)
{
    const QList<double> times = sortedTimes(count, step);
    std::printf("%-40s p50 %7.3f ms   p99 %7.3f ms   (%d runs)\n", name, times[count / 2], times[count * 99 / 100],
                count);
    std::fflush(stdout);
}

} // namespace

// What capturing costs. The first argument is the folder to work in (a temporary one is made there): give one on the
// disk that matters, for a folder in memory flatters.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString place = argc > 1 ? QFile::decodeName(argv[1]) : QDir::tempPath();
    const QTemporaryDir home(place + QStringLiteral("/capture-bench-XXXXXX"));
    const Directories directories{.home = home.path(), .applicationSupport = home.path(), .cache = {}};
    RecordingSound sound;
    ConfigManager config(directories);
    config.update([&home](AppConfig& settings) { settings.vaultPath = home.filePath(QStringLiteral("vault")); });
    RunLoop& loop = RunLoop::shared();
    DraftManager drafts(directories, loop);
    NoteManager notes(config, loop, sound);
    NotePanelModel panel(config, drafts, notes, loop);

    const QString text = QStringLiteral("Some words of a note that grows and grows.\n").repeated(240);
    measure("keystroke to draft on disk, 10 KB", 2000, [&](int i) { panel.setNoteContent(text + QString::number(i)); });
    measure("keystroke to draft on disk, 100 bytes", 2000,
            [&](int i) { panel.setNoteContent(text.first(100) + QString::number(i)); });
    bool isSaved = true;
    measure("save of a 10 KB note, flushed to disk", 500,
            [&](int i) { isSaved = notes.save(QString::number(i), text, QStringLiteral("Fleeting")) && isSaved; });
    const QString crowded = home.filePath(QStringLiteral("crowded"));
    for (int i = 0; i < 10'000; ++i) {
        writeTestFile(crowded + QStringLiteral("/note-%1.md").arg(i), text.first(500).toUtf8());
    }
    measure("recent notes of a folder of 10000", 100, [&](int) { listRecentNotes(crowded); });
    return isSaved ? 0 : 1;
}
