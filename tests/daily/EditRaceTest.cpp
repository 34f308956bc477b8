// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Descriptor.h>
#include <support/TestServices.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace flitmark {

namespace {

/// Writes `line` into the note in one of the three ways in which programs do. The last, a new file, keeps the old one
/// open for writing until then: who does not can lose what others write, and nobody else can do anything about it.
bool writeAsOther(const QByteArray& path, const QByteArray& line, int way)
{
    const Descriptor file(::open(path.constData(), O_RDWR | (way == 0 ? O_APPEND : 0) | O_CLOEXEC));
    struct stat opened = {};
    struct stat named = {};
    if (!file.isOpen() || ::fstat(file.get(), &opened) != 0 || ::stat(path.constData(), &named) != 0) {
        return false;
    }
    if (way == 0) {
        return writeAll(file, line).has_value();
    }
    const QByteArray bytes = line + readAll(file).value_or(QByteArray());
    if (way == 1) {
        return ::lseek(file.get(), 0, SEEK_SET) == 0 && writeAll(file, bytes).has_value();
    }
    const QByteArray temporary = path + ".other";
    const Descriptor fresh(::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    return opened.st_ino == named.st_ino && writeAll(fresh, bytes) &&
           ::rename(temporary.constData(), path.constData()) == 0;
}

} // namespace

class EditRaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineOfBothSides_isThereInTheEnd()
    {
        TestServices services("## Tasks\n- [ ] first\n## Pomodoro\nToday: 0/8\n| # | Time | Focus |\n|---|---|---|\n");
        QStringList expected;
        // How many lines the other may have written by now: without a limit the note would outgrow a slow machine.
        std::atomic<int> allowed = 0;
        std::atomic<bool> isStopped = false;
        QStringList others;
        std::thread other([&, path = QFile::encodeName(services.notePath)] {
            for (int i = 0; !isStopped; ++i) {
                const QByteArray line = "other " + QByteArray::number(i);
                if (others.size() < allowed && writeAsOther(path, line + '\n', i % 3)) {
                    others.append(QString::fromUtf8(line));
                }
                QThread::usleep(static_cast<unsigned long>(i * 37 % 3000));
            }
        });
        int entries = 0;
        QString first = QStringLiteral("- [ ] first");
        for (int i = 0; i < 300; ++i) {
            allowed += 2;
            const QString task = QStringLiteral("task %1.").arg(i);
            if (services.daily.addNewTask(task)) {
                expected.append(QStringLiteral("- [ ] ") + task);
            }
            services.loop.runQueued();
            if (services.daily.addPomodoroEntry(QStringLiteral("entry"))) {
                expected.append(QStringLiteral("| %1 | 09:30 | entry |").arg(++entries));
            }
            services.loop.runQueued();
            if (services.daily.addPomodoroToTask(services.daily.todayNote().tasks.first().lineNumber)) {
                first += QStringLiteral(" 🍅");
            }
            services.loop.runQueued();
        }
        isStopped = true;
        other.join();

        QHash<QString, int> found;
        for (const QString& line : QString::fromUtf8(services.note()).split(u'\n')) {
            ++found[line];
        }
        for (const QString& line : expected + others + QStringList(first)) {
            QVERIFY2(found.value(line) == 1, qPrintable(line));
        }
        QVERIFY(others.size() > 100 && expected.size() > 500);
    }
};

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::EditRaceTest)
#include "EditRaceTest.moc"
