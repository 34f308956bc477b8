// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/Descriptor.h>
#include <platform/RunLoop.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace flitmark {

namespace {

constexpr int edits = 2000;

/// Another program that writes into the note in the three ways in which programs do, each time one line of its own.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& path)
        : m_path(QFile::encodeName(path))
        , m_thread([this] { run(); })
    {
    }
    ~OtherProgram() { stop(); }
    Q_DISABLE_COPY_MOVE(OtherProgram)

    void stop()
    {
        m_isStopped = true;
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }
    /// Lets it write two lines more. Without a limit the note would outgrow a slow machine.
    void goOn() { m_allowed += 2; }
    /// How many lines it wrote, named "other 0", "other 1", ...
    int lineCount() const { return m_lines; }

private:
    void run()
    {
        QRandomGenerator random(7);
        while (!m_isStopped) {
            if (m_lines >= m_allowed) {
                QThread::usleep(100);
                continue;
            }
            const quint32 way = random.bounded(3U);
            const QByteArray line = "other " + QByteArray::number(m_lines) + '\n';
            if (way == 0 ? append(line) : way == 1 ? rewrite(line) : renameOver(line)) {
                ++m_lines;
            }
            QThread::usleep(random.bounded(3000U));
        }
    }

    bool append(const QByteArray& line)
    {
        const Descriptor file(::open(m_path.constData(), O_WRONLY | O_APPEND | O_CLOEXEC));
        return file.isOpen() && writeAll(file, line);
    }

    bool rewrite(const QByteArray& line)
    {
        const Descriptor file(::open(m_path.constData(), O_RDWR | O_CLOEXEC));
        if (!file.isOpen()) {
            return false;
        }
        const QByteArray bytes = line + readAll(file).value_or(QByteArray());
        return ::lseek(file.get(), 0, SEEK_SET) == 0 && writeAll(file, bytes);
    }

    /// Keeps the file open for writing from reading it until replacing it: who does not can lose what others write, and
    /// nobody else can do anything about it.
    bool renameOver(const QByteArray& line)
    {
        const Descriptor file(::open(m_path.constData(), O_RDWR | O_CLOEXEC));
        struct stat opened = {};
        struct stat named = {};
        if (!file.isOpen() || ::fstat(file.get(), &opened) != 0 || ::stat(m_path.constData(), &named) != 0 ||
            opened.st_ino != named.st_ino) {
            return false;
        }
        const QByteArray temporary = m_path + ".other";
        const Descriptor fresh(::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
        return writeAll(fresh, line + readAll(file).value_or(QByteArray())) &&
               ::rename(temporary.constData(), m_path.constData()) == 0;
    }

    QByteArray m_path;
    std::atomic<bool> m_isStopped = false;
    std::atomic<int> m_allowed = 0;
    int m_lines = 0;
    std::thread m_thread;
};

/// What a task must look like in the end.
struct Expected
{
    bool isTicked = false;
    int tomatoes = 0;

    QString line(qsizetype number) const
    {
        return (isTicked ? QStringLiteral("- [x] task ") : QStringLiteral("- [ ] task ")) + QString::number(number) +
               u'.' + QStringLiteral(" 🍅").repeated(tomatoes);
    }
};

} // namespace

class EditRaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineOfBothSides_isThereInTheEnd();

private:
    /// Makes one random edit; what was written is noted in `m_tasks` and the counters.
    void editOnce(DailyNoteManager& manager);
    void editTask(DailyNoteManager& manager, qsizetype number, const TaskItem& item);

    QRandomGenerator m_random{42};
    QList<Expected> m_tasks;
    int m_entries = 0;
    int m_refused = 0;
    QString m_focus;
};

void EditRaceTest::editTask(DailyNoteManager& manager, qsizetype number, const TaskItem& item)
{
    Expected& task = m_tasks[number];
    switch (m_random.bounded(3)) {
    case 0:
        if (manager.toggleTask(item.lineNumber)) {
            task.isTicked = !task.isTicked;
        } else {
            ++m_refused;
        }
        break;
    case 1:
        if (manager.addPomodoroToTask(item.lineNumber)) {
            ++task.tomatoes;
        } else {
            ++m_refused;
        }
        break;
    default:
        if (manager.removePomodoroFromTask(item.lineNumber)) {
            --task.tomatoes;
        } else {
            m_refused += task.tomatoes > 0 ? 1 : 0;
        }
    }
}

void EditRaceTest::editOnce(DailyNoteManager& manager)
{
    const int kind = m_random.bounded(10);
    if (kind == 0 || m_tasks.isEmpty()) {
        const bool isWritten = manager.addNewTask(QStringLiteral("task %1.").arg(m_tasks.size()));
        isWritten ? m_tasks.append(Expected()) : void(++m_refused);
    } else if (kind == 1) {
        const bool isWritten = manager.addPomodoroEntry(QStringLiteral("entry"));
        ++(isWritten ? m_entries : m_refused);
    } else if (kind == 2) {
        const QString focus = QStringLiteral("focus %1").arg(m_random.generate());
        manager.updateFocus(focus) ? void(m_focus = focus) : void(++m_refused);
    } else {
        const qsizetype number = m_random.bounded(int(m_tasks.size()));
        const QString start = QStringLiteral("task %1.").arg(number);
        for (const TaskItem& item : manager.todayNote().tasks) {
            if (item.text.startsWith(start)) {
                editTask(manager, number, item);
                return;
            }
        }
    }
}

void EditRaceTest::everyLineOfBothSides_isThereInTheEnd()
{
    const QTemporaryDir folder;
    const QString vault = folder.filePath(QStringLiteral("vault"));
    const QString path = vault + QStringLiteral("/Daily/2026/2026-01-22.md");
    const Directories directories{.home = folder.path(), .applicationSupport = folder.path(), .cache = {}};
    ManualRunLoop loop;
    ManualFileEvents events;
    TestWorkspace workspace;
    const auto output = std::make_unique<OutputCapture>();
    ConfigManager config(directories);
    config.update([&](AppConfig& changed) { changed.vaultPath = vault; });
    SignalManager signalManager(directories, config, loop, events);
    writeTestFile(path,
                  "## Focus\nnone\n## Tasks\n## Pomodoro\nToday: 0/8\n| # | Time | Focus |\n|---|---|---|\n## Other\n");
    DailyNoteManager manager({config, signalManager, loop, events, workspace});
    loop.runQueued();

    OtherProgram other(path);
    for (int i = 0; i < edits; ++i) {
        other.goOn();
        editOnce(manager);
        loop.runQueued();
    }
    other.stop();

    const QStringList lines = QString::fromUtf8(readTestFile(path)).split(u'\n');
    QHash<QString, int> found;
    for (const QString& line : lines) {
        ++found[line];
    }
    const auto expectOnce = [&](const QString& line) {
        if (found.value(line) != 1) {
            qWarning("%d times: %s", found.value(line), qPrintable(line));
        }
        return found.value(line) == 1;
    };
    int wrong = 0;
    for (qsizetype i = 0; i < m_tasks.size(); ++i) {
        wrong += expectOnce(m_tasks[i].line(i)) ? 0 : 1;
    }
    for (int i = 0; i < other.lineCount(); ++i) {
        wrong += expectOnce(QStringLiteral("other %1").arg(i)) ? 0 : 1;
    }
    for (int i = 1; i <= m_entries; ++i) {
        wrong += expectOnce(QStringLiteral("| %1 | 14:03 | entry |").arg(i)) ? 0 : 1;
    }
    wrong += expectOnce(m_focus) ? 0 : 1;
    qInfo("%lld tasks, %d log entries, %d lines of the other program, %d edits refused", qint64(m_tasks.size()),
          m_entries, other.lineCount(), m_refused);
    QCOMPARE(wrong, 0);
    QVERIFY(other.lineCount() > 100);
    QCOMPARE(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::EditRaceTest)
#include "EditRaceTest.moc"
