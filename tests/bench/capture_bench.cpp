// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NotePanelModel.h>
#include <support/TestServices.h>

#include <bench/Measure.h>

using namespace flitmark;

// How long it takes from a keystroke to the draft on disk. The first argument is the folder to work in (a temporary one
// is made there): give one on the disk that matters, for a folder in memory flatters.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc > 1) {
        qputenv("TMPDIR", argv[1]);
    }
    TestServices services;
    services.output.reset();
    NotePanelModel panel(services.config, services.drafts, services.notes, services.loop);
    const QString text = QString("Some words of a note that grows and grows.\n").repeated(240);
    QList<double> times;
    for (int i = 0; i < 2000; ++i) {
        times.append(milliseconds([&] { panel.setNoteContent(text + QString::number(i)); }));
    }
    std::sort(times.begin(), times.end());
    report("keystroke to draft, 10 KB, p99", times[1980], "ms", 1);
    return 0;
}
