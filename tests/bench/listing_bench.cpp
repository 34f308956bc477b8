// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// How long it takes to list a folder of many notes, as a multiple of the bare walk over its entries with their
// attributes. Usage: bench_listing [number of notes], 100,000 if not given. Ends with 1 when a multiple exceeds 1.5.

#include <capture/VaultItem.h>
#include <core/NameOrder.h>

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace flitmark;

constexpr double budget = 1.5;
constexpr int rounds = 9;

enum class Names { Timestamps, Titles, Mixed, NonAscii };

QString titleWords(QRandomGenerator& random, const QStringList& words)
{
    QStringList title;
    for (int i = random.bounded(2, 6); i > 0; --i) {
        title.append(words[random.bounded(words.size())]);
    }
    return title.join(u' ');
}

QString noteName(Names names, int index, QRandomGenerator& random)
{
    static const QStringList plain =
        QStringLiteral("Buy milk today Plan the Week meeting Notes idea Review release draft").split(u' ');
    static const QStringList accented = QStringLiteral("Übung Äpfel Größe café Žižek Журнал 日記 💡").split(u' ');
    const QString number = QString::number(index);
    if (names == Names::Timestamps) {
        return QDateTime(QDate(2020, 1, 1), QTime(0, 0)).addSecs(index * qint64{1733}).toString(u"yyyy-MM-dd--HHmmss") +
               QStringLiteral("--") + titleWords(random, plain).toLower().replace(u' ', u'-') + QStringLiteral(".md");
    }
    const bool isAccented = names == Names::NonAscii || (names == Names::Mixed && index % 5 == 0);
    return titleWords(random, plain) + (isAccented ? accented[random.bounded(accented.size())] : QString()) + u' ' +
           number + QStringLiteral(".md");
}

void fill(const QString& folder, Names names, int count)
{
    QRandomGenerator random(1);
    for (int i = 0; i < count; ++i) {
        QFile file(folder + u'/' + noteName(names, i, random));
        if (!file.open(QIODevice::WriteOnly) || file.write("# Note\n\nText of the note\n") < 0) {
            std::fprintf(stderr, "%s\n", qPrintable(file.errorString()));
            std::exit(2);
        }
    }
}

/// The least that anyone who lists a folder has to do.
qsizetype walk(const QByteArray& folder)
{
    qsizetype files = 0;
    DIR* stream = ::opendir(folder.constData());
    while (const dirent* entry = ::readdir(stream)) {
        struct stat info = {};
        if (::fstatat(::dirfd(stream), entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode)) {
            ++files;
        }
    }
    ::closedir(stream);
    return files;
}

template<typename Work>
double milliseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool measure(const char* label, Names names, int count)
{
    const QTemporaryDir folder;
    fill(folder.path(), names, count);
    const NameOrder order{QLocale(QLocale::English)};
    QList<double> walks;
    QList<double> listings;
    for (int round = 0; round < rounds; ++round) {
        qsizetype walked = 0;
        qsizetype listed = 0;
        walks.append(milliseconds([&] { walked = walk(QFile::encodeName(folder.path())); }));
        listings.append(milliseconds([&] { listed = listVaultItems(folder.path(), order).size(); }));
        if (walked != count || listed != count) {
            std::fprintf(stderr, "Listed %lld and %lld of %d\n", static_cast<long long>(walked),
                         static_cast<long long>(listed), count);
            std::exit(2);
        }
    }
    const double ratio = median(listings) / median(walks);
    std::printf("%-12s bare walk %7.1f ms, listing %7.1f ms, ratio %.2f%s\n", label, median(walks), median(listings),
                ratio, ratio > budget ? "  OVER BUDGET" : "");
    return ratio <= budget;
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 100000;
    std::printf("%d notes, medians of %d rounds, budget %.1f\n", count, rounds, budget);
    std::printf("asking the language %.2f ms, once\n", milliseconds([] { NameOrder{QLocale(QLocale::English)}; }));
    bool isWithinBudget = measure("timestamps", Names::Timestamps, count);
    isWithinBudget = measure("titles", Names::Titles, count) && isWithinBudget;
    isWithinBudget = measure("fifth accents", Names::Mixed, count) && isWithinBudget;
    isWithinBudget = measure("all accents", Names::NonAscii, count) && isWithinBudget;
    return isWithinBudget ? 0 : 1;
}
