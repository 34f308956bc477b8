// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How long it takes to list a folder of many notes, also as a multiple of the bare walk over its entries with their
// attributes. Usage: bench_listing [number of notes], 100,000 if not given.

#include <capture/VaultItem.h>
#include <core/NameOrder.h>
#include <support/TestFiles.h>

#include <QRandomGenerator>

#include <bench/Measure.h>
#include <dirent.h>
#include <sys/stat.h>

using namespace flitmark;

namespace {

constexpr int runs = 9;

/// The least that anyone who lists a folder has to do.
void walk(const QByteArray& folder)
{
    DIR* stream = ::opendir(folder.constData());
    while (const dirent* entry = ::readdir(stream)) {
        struct stat info = {};
        ::fstatat(::dirfd(stream), entry->d_name, &info, 0);
    }
    ::closedir(stream);
}

/// Measures a folder of notes with names of four of `words` and a number.
void measure(const char* label, const char* words, int count)
{
    const QTemporaryDir folder;
    const QStringList choice = QString::fromUtf8(words).split(u' ');
    QRandomGenerator random(1);
    for (int i = 0; i < count; ++i) {
        QString name;
        for (int word = 0; word < 4; ++word) {
            name += choice[random.bounded(choice.size())] + u' ';
        }
        writeTestFile(folder.filePath(name + QString::number(i) + ".md"), "# Note\n\nText\n");
    }
    const NameOrder order{QLocale(QLocale::English)};
    QList<double> times;
    QList<double> ratios;
    // By turns, so that what else the machine does meanwhile slows down both.
    for (int run = 0; run < runs; ++run) {
        const double walked = milliseconds([&] { walk(QFile::encodeName(folder.path())); });
        times.append(milliseconds([&] { listVaultItems(folder.path(), order); }));
        ratios.append(times.last() / walked);
    }
    const QByteArray what = "listing " + QByteArray::number(count) + " notes, " + label;
    if (count <= 5000) {
        report(what, medianOf(times), "ms", 16);
    } else {
        report(what, medianOf(ratios), "walks", 2.5);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 100000;
    for (const int notes : {std::min(count, 5000), count}) {
        measure("titles", "Buy milk today Plan the Week meeting Notes idea Review draft", notes);
        measure("all accents", "Übung Äpfel Größe café Žižek Журнал 日記 💡", notes);
    }
    return 0;
}
