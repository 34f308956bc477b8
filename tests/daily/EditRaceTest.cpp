// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Descriptor.h>
#include <support/TestServices.h>

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

using namespace flitmark;

namespace {

/// Another program that writes into the note in the three ways in which programs do, each time one line of its own.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& path)
        : m_path(QFile::encodeName(path))
        , m_thread([this](const std::stop_token& stopping) { run(stopping); })
    {
    }
    void stop()
    {
        m_thread.request_stop();
        m_thread.join();
    }
    /// Lets it write two lines more. Without a limit the note would outgrow a slow machine.
    void goOn() { m_allowed += 2; }
    /// How many lines it wrote, named "other 0", "other 1", ...
    int lineCount() const { return m_lines; }

private:
    void run(const std::stop_token& stopping)
    {
        QRandomGenerator random(7);
        while (!stopping.stop_requested()) {
            if (m_lines < m_allowed && write(random.bounded(3), "other " + QByteArray::number(m_lines) + '\n')) {
                ++m_lines;
            }
            QThread::usleep(random.bounded(3000U));
        }
    }

    /// Appends the line, writes the whole file anew with it at the top, or replaces the file by such a one.
    bool write(int way, const QByteArray& line)
    {
        // It keeps the file open for writing from reading it until replacing it, and looks whether it is still the file
        // of that name: who does not can lose what is written, and nobody else can do anything about it.
        const Descriptor file(::open(m_path.constData(), (way == 0 ? O_WRONLY | O_APPEND : O_RDWR) | O_CLOEXEC));
        struct stat opened = {};
        struct stat named = {};
        if (!file.isOpen() || ::fstat(file.get(), &opened) != 0 || ::stat(m_path.constData(), &named) != 0 ||
            opened.st_ino != named.st_ino) {
            return false;
        }
        if (way == 0) {
            return writeAll(file, line).has_value();
        }
        const QByteArray bytes = line + readAll(file).value_or(QByteArray());
        if (way == 1) {
            return ::lseek(file.get(), 0, SEEK_SET) == 0 && writeAll(file, bytes);
        }
        const QByteArray temporary = m_path + ".other";
        const Descriptor fresh(::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
        return writeAll(fresh, bytes) && ::rename(temporary.constData(), m_path.constData()) == 0;
    }

    QByteArray m_path;
    std::atomic<int> m_allowed = 0;
    int m_lines = 0;
    std::jthread m_thread;
};

} // namespace

class EditRaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineOfBothSides_isThereInTheEnd()
    {
        TestServices services(
            "## Focus\nnone\n## Tasks\n## Pomodoro\nToday: 0/8\n| # | Time | Focus |\n|---|---|---|\n## Other\n");
        OtherProgram other(services.notePath);
        for (int i = 0; i < 2000; ++i) {
            other.goOn();
            editOnce(services.daily);
            services.loop.runQueued();
        }
        other.stop();

        QStringList expected(m_focus);
        for (qsizetype i = 0; i < m_tasks.size(); ++i) {
            const auto& [isTicked, tomatoes] = m_tasks[i];
            const QString task(isTicked ? "- [x] task %1." : "- [ ] task %1.");
            expected.append(task.arg(i) + QString(" 🍅").repeated(tomatoes));
        }
        for (int i = 0; i < other.lineCount(); ++i) {
            expected.append(QStringLiteral("other %1").arg(i));
        }
        for (int i = 1; i <= m_entries; ++i) {
            expected.append(QStringLiteral("| %1 | 09:30 | entry |").arg(i));
        }
        QHash<QString, int> found;
        for (const QString& line : QString::fromUtf8(services.note()).split(u'\n')) {
            ++found[line];
        }
        for (const QString& line : expected) {
            QVERIFY2(found.value(line) == 1, qPrintable(line));
        }
        QVERIFY(other.lineCount() > 100 && m_tasks.size() > 50);
        QCOMPARE(QDir(QFileInfo(services.notePath).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

private:
    /// What a task must look like in the end.
    struct Expected
    {
        bool isTicked = false;
        int tomatoes = 0;
    };

    /// Makes one random edit and notes what was written; an edit may be refused.
    void editOnce(DailyNoteManager& manager)
    {
        const int kind = m_random.bounded(10);
        if (kind == 0 || m_tasks.isEmpty()) {
            if (manager.addNewTask(QStringLiteral("task %1.").arg(m_tasks.size()))) {
                m_tasks.append(Expected());
            }
        } else if (kind == 1) {
            m_entries += manager.addPomodoroEntry("entry") ? 1 : 0;
        } else if (kind == 2) {
            const QString focus = QStringLiteral("focus %1").arg(m_random.generate());
            m_focus = manager.updateFocus(focus) ? focus : m_focus;
        } else {
            const qsizetype number = m_random.bounded(int(m_tasks.size()));
            for (const TaskItem& item : manager.todayNote().tasks) {
                if (item.text.startsWith(QStringLiteral("task %1.").arg(number))) {
                    editTask(manager, m_tasks[number], item.lineNumber);
                    return;
                }
            }
        }
    }
    void editTask(DailyNoteManager& manager, Expected& task, qint64 line)
    {
        const int kind = m_random.bounded(3);
        if (kind == 0) {
            task.isTicked = manager.toggleTask(line) ? !task.isTicked : task.isTicked;
        } else if (kind == 1) {
            task.tomatoes += manager.addPomodoroToTask(line) ? 1 : 0;
        } else {
            task.tomatoes -= manager.removePomodoroFromTask(line) ? 1 : 0;
        }
    }

    QRandomGenerator m_random{42};
    QList<Expected> m_tasks;
    int m_entries = 0;
    QString m_focus;
};

QTEST_GUILESS_MAIN(EditRaceTest)
#include "EditRaceTest.moc"
