// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How long it takes to list a folder of many notes, as a multiple of the bare walk over its entries with their
// attributes. Usage: bench_listing [number of notes], 100,000 if not given. Ends with 1 when a multiple exceeds 1.5.

#include <capture/VaultItem.h>
#include <core/NameOrder.h>
#include <support/TestFiles.h>

#include <QRandomGenerator>

#include <bench/Measure.h>
#include <dirent.h>
#include <sys/stat.h>

#include <cstdio>

using namespace flitmark;

namespace {

constexpr double budget = 1.5;

/// The least that anyone who lists a folder has to do.
qsizetype walk(const QByteArray& folder)
{
    qsizetype files = 0;
    DIR* stream = ::opendir(folder.constData());
    while (const dirent* entry = ::readdir(stream)) {
        struct stat info = {};
        files += ::fstatat(::dirfd(stream), entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode) ? 1 : 0;
    }
    ::closedir(stream);
    return files;
}

/// Measures a folder of notes with names of four of `words` and a number.
bool measure(const char* label, const char* words, int count)
{
    const QTemporaryDir folder;
    const QStringList choice = QString::fromUtf8(words).split(u' ');
    QRandomGenerator random(1);
    for (int i = 0; i < count; ++i) {
        QString name;
        for (int word = 0; word < 4; ++word) {
            name += choice[random.bounded(choice.size())] + u' ';
        }
        writeTestFile(folder.filePath(name + QString::number(i) + QStringLiteral(".md")), "# Note\n\nText\n");
    }
    const NameOrder order{QLocale(QLocale::English)};
    bool isComplete = true;
    const double walking = medianOf(
        sortedTimes(9, [&](int) { isComplete = walk(QFile::encodeName(folder.path())) == count && isComplete; }));
    const double listing = medianOf(
        sortedTimes(9, [&](int) { isComplete = listVaultItems(folder.path(), order).size() == count && isComplete; }));
    std::printf("%-12s bare walk %7.1f ms, listing %7.1f ms, ratio %.2f%s\n", label, walking, listing,
                listing / walking, isComplete ? "" : " NOT ALL LISTED");
    return isComplete && listing / walking <= budget;
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 100000;
    std::printf("%d notes, budget %.1f\n", count, budget);
    const bool isPlainFast = measure("titles", "Buy milk today Plan the Week meeting Notes idea Review draft", count);
    const bool isAccentedFast = measure("all accents", "Übung Äpfel Größe café Žižek Журнал 日記 💡", count);
    return isPlainFast && isAccentedFast ? 0 : 1;
}
