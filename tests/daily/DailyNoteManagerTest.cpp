// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/RunLoop.h>
#include <platform/linux/InotifyFileEventSource.h>
#include <signals/SignalManager.h>
#include <support/ManualFileEvents.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <QSignalSpy>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <csignal>

namespace flitmark {

using Event = FileEventSource::Event;
using namespace std::chrono_literals;

namespace {

const QByteArray note = "## Focus\n**Old**\n## Tasks\n- [ ] a\n- [x] b 🍅\n## Pomodoro\n**Today:** 3/8 completed\n"
                        "| # | Time | Focus |\n|---|---|---|\n";

} // namespace

class DailyNoteManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void beforeTheFirstPublication_nothingCanBeEdited();
    void path_isBuiltAnewByDateAndVault();
    void load_publishesOneTurnLaterInOrder();
    void load_unreadable_keepsTheNote_data();
    void load_unreadable_keepsTheNote();
    void watch_reloadsHalfASecondAfterEachEvent();
    void watch_isKeptWhenTheNoteIsGone();
    void watch_thatCannotOpenIsSaid();
    void watch_ofOurOwnWriteIsSilent();
    void realWatch_seesOtherPrograms();
    void obsidian_opensThePublishedNote();

    void edit_changesItsLinesOnly_data();
    void edit_changesItsLinesOnly();
    void edit_keepsEveryByte_data();
    void edit_keepsEveryByte();
    void focus_isPatchedAndSignalled();
    void focus_onNewLinesRenumbersTheTasks();
    void pomodoroEntry_countsOnFromTheLargestNumber();
    void editsInOneTurn_buildOnEachOther();
    void refusedEdits_writeAndSayNothing();
    void noTaskSection_isSaid();

    void stale_taskIsFoundByItsText();
    void stale_otherEditsAreMadeOnTheFreshText();
    void stale_taskGone_writesNothingAndShowsTheFreshNote();
    void vanishedNote_isNotMadeAgain();
    void unwritableNote_isSaid_data();
    void unwritableNote_isSaid();
    void link_attributesAndFolder_areKept();

private:
    QString path(const char* name = "2026-01-22.md") const
    {
        return m_vault + QStringLiteral("/Daily/2026/") + QString::fromUtf8(name);
    }
    /// Starts the manager on a note of this content and publishes it.
    void start(const QByteArray& content);
    void loadNow();
    QByteArray onDisk() const { return readTestFile(path()); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_vault;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<ManualRunLoop> m_loop;
    ManualFileEvents m_events;
    TestWorkspace m_workspace;
    std::unique_ptr<SignalManager> m_signals;
    std::unique_ptr<DailyNoteManager> m_manager;
    std::unique_ptr<OutputCapture> m_output;
};

void DailyNoteManagerTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_vault = m_folder->filePath(QStringLiteral("My Vault"));
    const Directories directories{.home = m_folder->filePath(QStringLiteral("home")),
                                  .applicationSupport = m_folder->filePath(QStringLiteral("support")),
                                  .cache = {}};
    m_output = std::make_unique<OutputCapture>();
    m_config = std::make_unique<ConfigManager>(directories);
    m_config->update([this](AppConfig& config) { config.vaultPath = m_vault; });
    m_loop = std::make_unique<ManualRunLoop>(QDateTime(QDate(2026, 1, 22), QTime(9, 30)));
    m_events.openings = 0;
    m_events.isBroken = false;
    m_workspace.opened.clear();
    m_signals = std::make_unique<SignalManager>(directories, *m_config, *m_loop, m_events);
    m_output.reset();
}

void DailyNoteManagerTest::cleanup()
{
    m_manager.reset();
    m_signals.reset();
}

void DailyNoteManagerTest::start(const QByteArray& content)
{
    if (!content.isNull()) {
        writeTestFile(path(), content);
    }
    m_manager = std::make_unique<DailyNoteManager>(
        DailyNoteManager::Services{*m_config, *m_signals, *m_loop, m_events, m_workspace});
    m_loop->runQueued();
}

void DailyNoteManagerTest::loadNow()
{
    m_manager->loadTodayNote();
    m_loop->runQueued();
}

void DailyNoteManagerTest::beforeTheFirstPublication_nothingCanBeEdited()
{
    writeTestFile(path(), note);
    DailyNoteManager manager({*m_config, *m_signals, *m_loop, m_events, m_workspace});
    QCOMPARE(manager.todayNote().path, QStringLiteral("/"));
    QVERIFY(!manager.todayNote().exists);
    QVERIFY(manager.isLoading());
    QVERIFY(!manager.updateFocus(QStringLiteral("x")) && !manager.addPomodoroEntry(QStringLiteral("x")));
    QVERIFY(!manager.toggleTask(3) && !manager.addNewTask(QStringLiteral("x")));
    QVERIFY(!manager.addPomodoroToTask(3) && !manager.removePomodoroFromTask(4));
    QCOMPARE(manager.pomodoroCountForTask(4), 0);
    QVERIFY(!manager.lastError());
    QCOMPARE(onDisk(), note);
}

void DailyNoteManagerTest::path_isBuiltAnewByDateAndVault()
{
    start({});
    QCOMPARE(m_manager->todayNote().path, path());
    m_loop->setWallClock(QDateTime(QDate(2026, 12, 31), QTime(23, 59, 59)));
    QCOMPARE(m_manager->getTodayNotePath(), m_vault + QStringLiteral("/Daily/2026/2026-12-31.md"));
    m_loop->setWallClock(QDateTime(QDate(2027, 1, 1), QTime(0, 0)));
    m_config->update([](AppConfig& config) { config.vaultPath = QStringLiteral("/v/"); });
    QCOMPARE(m_manager->getTodayNotePath(), QStringLiteral("/v/Daily/2027/2027-01-01.md"));
    QCOMPARE(m_manager->todayNote().path, path());
    loadNow();
    QCOMPARE(m_manager->todayNote().path, QStringLiteral("/v/Daily/2027/2027-01-01.md"));
}

void DailyNoteManagerTest::load_publishesOneTurnLaterInOrder()
{
    start({});
    QVERIFY(!m_manager->todayNote().exists);
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("No daily note for today"));
    QVERIFY(!m_manager->isLoading());
    QVERIFY(!m_manager->lastError());
    QCOMPARE(m_manager->watchedFileDescriptor(), -1);

    QStringList published;
    connect(m_manager.get(), &DailyNoteManager::todayNoteChanged, this,
            [&] { published.append(m_manager->todayNote().focus); });
    for (const char* focus : {"one", "two"}) {
        writeTestFile(path(), QByteArray("## Focus\n") + focus);
        m_manager->loadTodayNote();
    }
    QVERIFY(m_manager->isLoading());
    QVERIFY(m_manager->watchedFileDescriptor() >= 0);
    QCOMPARE(published, QStringList());
    m_loop->runQueued();
    QCOMPARE(published, QStringList({QStringLiteral("one"), QStringLiteral("two")}));
    QVERIFY(m_manager->todayNote().exists);
    QVERIFY(!m_manager->isLoading());
}

void DailyNoteManagerTest::load_unreadable_keepsTheNote_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto notUtf8 = QStringLiteral("The file is not valid UTF-8 text.");
    QTest::newRow("Latin-1") << QByteArray("## Focus\n\xE9t\xE9") << notUtf8;
    QTest::newRow("cut in a character") << QByteArray("## Focus\n\xF0\x9F\x8D") << notUtf8;
    QTest::newRow("a surrogate") << QByteArray("\xED\xA0\xBC") << notUtf8;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE#\0", 4) << notUtf8;
    QTest::newRow("a folder") << QByteArray() << QStringLiteral("Is a directory");
}

void DailyNoteManagerTest::load_unreadable_keepsTheNote()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    start(note);
    const int openings = m_events.openings;
    QVERIFY(QFile::remove(path()));
    if (bytes.isNull()) {
        QVERIFY(QDir().mkdir(path()));
    } else {
        writeTestFile(path(), bytes);
    }
    const int descriptor = m_manager->watchedFileDescriptor();
    m_manager->loadTodayNote();
    QVERIFY(!m_manager->lastError());
    m_loop->runQueued();
    QCOMPARE(m_manager->lastError(), QStringLiteral("Failed to load daily note: ") + reason);
    QVERIFY(!m_manager->isLoading());
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("Old"));
    QCOMPARE(m_manager->watchedFileDescriptor(), descriptor);
    QVERIFY(m_events.openings >= openings);

    // An edit now neither writes nor crashes.
    QVERIFY(!m_manager->toggleTask(3));
    m_loop->runQueued();
    QVERIFY(m_manager->lastError());
    QCOMPARE(onDisk(), bytes.isNull() ? QByteArray() : bytes);
}

void DailyNoteManagerTest::watch_reloadsHalfASecondAfterEachEvent()
{
    start(note);
    QCOMPARE(m_events.paths().count(path()), 1);
    QSignalSpy changes(m_manager.get(), &DailyNoteManager::todayNoteChanged);
    writeTestFile(path(), "## Focus\nNew");
    m_events.report(path(), Event::Written | Event::Grown);
    m_loop->advance(100ms);
    m_events.report(path(), Event::Written);
    m_loop->advance(399ms);
    QCOMPARE(changes.size(), 0);
    m_loop->advance(1ms);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("New"));
    m_loop->advance(100ms);
    QCOMPARE(changes.size(), 2);
    m_loop->advance(10s);
    QCOMPARE(changes.size(), 2);

    // A load that is due when the manager goes is dropped.
    m_events.report(path(), Event::Written);
    m_manager.reset();
    QCOMPARE(m_events.paths().count(path()), 0);
    m_loop->advance(1s);
}

void DailyNoteManagerTest::watch_isKeptWhenTheNoteIsGone()
{
    start(note);
    QVERIFY(QFile::rename(path(), path("gone.md")));
    m_events.report(path(), Event::Renamed);
    m_loop->advance(500ms);
    QVERIFY(!m_manager->todayNote().exists);
    QCOMPARE(m_events.paths().count(path()), 1);
    QVERIFY(!m_manager->lastError());

    // The next day's file is watched from its first load on.
    m_loop->setWallClock(QDateTime(QDate(2026, 1, 23), QTime(0, 0)));
    writeTestFile(path("2026-01-23.md"), note);
    loadNow();
    QCOMPARE(m_events.paths().count(path()), 0);
    QCOMPARE(m_events.paths().count(path("2026-01-23.md")), 1);
}

void DailyNoteManagerTest::watch_thatCannotOpenIsSaid()
{
    start(note);
    m_events.isBroken = true;
    const OutputCapture output;
    m_manager->loadTodayNote();
    m_loop->runQueued();
    const QStringList lines = const_cast<OutputCapture&>(output).lines();
    QCOMPARE(lines, QStringList({QStringLiteral("DailyNoteManager: Failed to open file for watching")}));
    QVERIFY(m_manager->todayNote().exists);
    QCOMPARE(m_manager->watchedFileDescriptor(), -1);
}

void DailyNoteManagerTest::watch_ofOurOwnWriteIsSilent()
{
    start(note);
    QSignalSpy changes(m_manager.get(), &DailyNoteManager::todayNoteChanged);
    // The event of the old file, which arrives while the edit is under way.
    m_events.report(path(), Event::Renamed);
    QVERIFY(m_manager->toggleTask(3));
    m_loop->advance(2s);
    QCOMPARE(changes.size(), 1);
    QVERIFY(m_manager->updateFocus(QStringLiteral("x")));
    QCOMPARE(m_events.paths().count(path()), 1);
    m_loop->advance(2s);
    QCOMPARE(changes.size(), 2);
}

void DailyNoteManagerTest::realWatch_seesOtherPrograms()
{
    writeTestFile(m_vault + QStringLiteral("/Daily/x"), "");
    m_config->update([this](AppConfig& config) { config.vaultPath = m_vault; });
    InotifyFileEventSources events;
    const QString today = m_vault + QStringLiteral("/Daily/") +
                          QDate::currentDate().toString(QStringLiteral("yyyy/yyyy-MM-dd")) + QStringLiteral(".md");
    writeTestFile(today, note);
    auto manager = std::make_unique<DailyNoteManager>(
        DailyNoteManager::Services{*m_config, *m_signals, RunLoop::shared(), events, m_workspace});
    QTRY_VERIFY(manager->todayNote().exists);
    QElapsedTimer sinceWrite;
    QFile file(today);
    QVERIFY(file.open(QIODevice::Append));
    file.write("## Coach\n- hello\n");
    file.close();
    sinceWrite.start();
    QTRY_COMPARE(manager->todayNote().coachNotes, QStringList({QStringLiteral("hello")}));
    QVERIFY(sinceWrite.elapsed() >= 490);

    // The watch follows the file that an edit wrote anew.
    QVERIFY(manager->toggleTask(3));
    QTRY_VERIFY(manager->todayNote().tasks.first().isCompleted);
    QVERIFY(file.open(QIODevice::Append));
    file.write("- again\n");
    file.close();
    QTRY_COMPARE(manager->todayNote().coachNotes.size(), 2);
    QVERIFY(manager->updateFocus(QStringLiteral("y")));
    QVERIFY(QFile::rename(today, today + u'x'));
    QTRY_VERIFY(!manager->todayNote().exists);
    const int descriptor = manager->watchedFileDescriptor();
    manager.reset();
    QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
}

void DailyNoteManagerTest::obsidian_opensThePublishedNote()
{
    start({});
    m_loop->setWallClock(QDateTime(QDate(2026, 1, 23), QTime(0, 0)));
    m_manager->openInObsidian();
    QCOMPARE(m_workspace.opened.size(), 1);
    QCOMPARE(m_workspace.opened.first().toEncoded(),
             QByteArray("obsidian://open?vault=My%20Vault&file=Daily/2026/2026-01-22"));
}

void DailyNoteManagerTest::edit_changesItsLinesOnly_data()
{
    QTest::addColumn<QByteArray>("edit");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* edit, const char* from, const char* to) {
        QTest::newRow(edit) << QByteArray(edit) << QByteArray(note).replace(from, to);
    };
    row("toggle", "- [ ] a\n", "- [x] a\n");
    row("add", "🍅\n", "🍅\n- [ ] new\n");
    row("tomato", "- [ ] a\n", "- [ ] a 🍅\n");
    row("remove", " b 🍅\n", " b\n");
    row("focus", "**Old**", "**Go**");
    QTest::newRow("pomodoro") << QByteArray("pomodoro")
                              << QByteArray(note).replace("3/8", "4/8") + "| 4 | 09:30 | Go |\n";
}

void DailyNoteManagerTest::edit_changesItsLinesOnly()
{
    QFETCH(QByteArray, edit);
    QFETCH(QByteArray, after);
    start(note);
    const QString go = QStringLiteral("Go");
    const bool isWritten = edit == "toggle"   ? m_manager->toggleTask(3)
                           : edit == "add"    ? m_manager->addNewTask(QStringLiteral("new"))
                           : edit == "tomato" ? m_manager->addPomodoroToTask(3)
                           : edit == "remove" ? m_manager->removePomodoroFromTask(4)
                           : edit == "focus"  ? m_manager->updateFocus(go)
                                              : m_manager->addPomodoroEntry(go);
    QVERIFY(isWritten);
    QCOMPARE(onDisk(), after);
    QCOMPARE(m_manager->isLoading(), edit != "focus");
    QCOMPARE(m_manager->todayNote().content.toUtf8(), note);
    m_loop->runQueued();
    QCOMPARE(m_manager->todayNote().content.toUtf8(), after);
    QVERIFY(!m_manager->lastError());
    QCOMPARE(m_manager->pomodoroCountForTask(4), edit == "remove" ? 0 : 1);
}

void DailyNoteManagerTest::edit_keepsEveryByte_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
        QTest::newRow(name) << before << after;
    };
    row("byte-order mark", "\xEF\xBB\xBF## Tasks\n- [ ] a", "\xEF\xBB\xBF## Tasks\n- [x] a");
    row("marks elsewhere",
        "## Tasks\n- [ ] \xEF\xBB\xBF"
        "a\n\xEF\xBB\xBF",
        "## Tasks\n- [x] \xEF\xBB\xBF"
        "a\n\xEF\xBB\xBF");
    row("two marks", "\xEF\xBB\xBF\xEF\xBB\xBF\n- [ ] a", "\xEF\xBB\xBF\xEF\xBB\xBF\n- [x] a");
    row("NULs", QByteArray("## Ta\0sks\n- [ ] a\0b\n\0", 20), QByteArray("## Ta\0sks\n- [x] a\0b\n\0", 20));
    row("noncharacters, unassigned, decomposed", "\xEF\xBF\xBF\xF4\x8F\xBF\xBF e\xCC\x81\n- [ ] a",
        "\xEF\xBF\xBF\xF4\x8F\xBF\xBF e\xCC\x81\n- [x] a");
    row("every break becomes LF", "x\r\n- [ ] a\ry\vz\f\xC2\x85\xE2\x80\xA8\xE2\x80\xA9", "x\n- [x] a\ny\nz\n\n\n\n");
    row("10 MB in one line", QByteArray(10'000'000, 'y') + "\n- [ ] a", QByteArray(10'000'000, 'y') + "\n- [x] a");
}

void DailyNoteManagerTest::edit_keepsEveryByte()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    start(before);
    QVERIFY(m_manager->toggleTask(1));
    QVERIFY(onDisk() == after);
    m_loop->runQueued();
    QVERIFY(m_manager->toggleTask(1));
    QVERIFY(onDisk() == after.replace("- [x]", "- [ ]"));
}

void DailyNoteManagerTest::focus_isPatchedAndSignalled()
{
    start(note);
    const QUuid task = m_manager->todayNote().tasks.first().id;
    const OutputCapture output;
    QVERIFY(m_manager->updateFocus(QStringLiteral("Ship it")));
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("Old"));
    const QByteArray sent = readTestFile(m_signals->dailyFocusURL());
    QVERIFY(sent.contains("\"focus\": \"Ship it\"") && sent.contains("\"status\": \"active\"") &&
            sent.contains("\"pomodoro_count\": 3"));
    m_loop->runQueued();
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("Ship it"));
    QCOMPARE(m_manager->todayNote().content.toUtf8(), onDisk());
    QCOMPARE(m_manager->todayNote().tasks.first().id, task);
    QVERIFY(m_manager->toggleTask(3));

    // A note without a place for the focus is no failure.
    writeTestFile(path(), "text");
    loadNow();
    QVERIFY(m_manager->updateFocus(QStringLiteral("Nowhere")));
    QCOMPARE(onDisk(), QByteArray("text"));
}

void DailyNoteManagerTest::focus_onNewLinesRenumbersTheTasks()
{
    start("## Focus\n## Tasks\n- [ ] a\n- [ ] b\n- [ ] c");
    const OutputCapture output;
    QVERIFY(m_manager->updateFocus(QStringLiteral("f")));
    m_loop->runQueued();
    QCOMPARE(m_manager->todayNote().tasks.first().lineNumber, 4);
    QVERIFY(m_manager->toggleTask(m_manager->todayNote().tasks.first().lineNumber));
    QCOMPARE(onDisk(), QByteArray("## Focus\n\nf\n## Tasks\n- [x] a\n- [ ] b\n- [ ] c"));
}

void DailyNoteManagerTest::pomodoroEntry_countsOnFromTheLargestNumber()
{
    start("## Pomodoro\nToday: 9223372036854775807/8\n");
    QVERIFY(m_manager->addPomodoroEntry(QString()));
    QCOMPARE(onDisk(), QByteArray("## Pomodoro\n**Today:** 9223372036854775807/8 completed\n"));
}

void DailyNoteManagerTest::editsInOneTurn_buildOnEachOther()
{
    start(note);
    QVERIFY(m_manager->addPomodoroToTask(3));
    QVERIFY(m_manager->addPomodoroToTask(3));
    QVERIFY(m_manager->toggleTask(3));
    QVERIFY(m_manager->addPomodoroEntry(QStringLiteral("x")));
    QVERIFY(m_manager->addPomodoroEntry(QStringLiteral("y")));
    QCOMPARE(onDisk(), QByteArray(note).replace("- [ ] a", "- [x] a 🍅 🍅").replace("3/8", "5/8") +
                           "| 4 | 09:30 | x |\n| 5 | 09:30 | y |\n");
}

void DailyNoteManagerTest::refusedEdits_writeAndSayNothing()
{
    start(note);
    const qint64 modified = QFileInfo(path()).lastModified().toMSecsSinceEpoch();
    for (const qint64 line : {qint64(-1), qint64(1000), std::numeric_limits<qint64>::max(), qint64(0)}) {
        QVERIFY(!m_manager->toggleTask(line) && !m_manager->addPomodoroToTask(line) &&
                !m_manager->removePomodoroFromTask(line));
        QCOMPARE(m_manager->pomodoroCountForTask(line), 0);
    }
    QVERIFY(!m_manager->removePomodoroFromTask(3));
    QVERIFY(!m_manager->isLoading());
    QVERIFY(!m_manager->lastError());
    QCOMPARE(QFileInfo(path()).lastModified().toMSecsSinceEpoch(), modified);
}

void DailyNoteManagerTest::noTaskSection_isSaid()
{
    const QByteArray carryover = "## Carryover\n- [ ] a";
    start(carryover);
    QVERIFY(!m_manager->addNewTask(QStringLiteral("x")));
    QCOMPARE(m_manager->lastError(), QStringLiteral("Could not find tasks section in daily note"));
    QCOMPARE(onDisk(), carryover);
    loadNow();
    QVERIFY(!m_manager->lastError());
}

void DailyNoteManagerTest::stale_taskIsFoundByItsText()
{
    start(note);
    const QByteArray changed = "- [ ] a\nnew\n" + note + "- [ ] a\n";
    writeTestFile(path(), changed);
    QVERIFY(m_manager->addPomodoroToTask(3));
    QCOMPARE(onDisk(), "- [ ] a\nnew\n" + QByteArray(note).replace("] a\n", "] a 🍅\n") + "- [ ] a\n");
    m_loop->runQueued();
    QVERIFY(!m_manager->lastError());
    QCOMPARE(m_manager->todayNote().content.toUtf8(), onDisk());
}

void DailyNoteManagerTest::stale_otherEditsAreMadeOnTheFreshText()
{
    start(note);
    QByteArray changed = "above\n" + QByteArray(note).replace("3/8", "6/8").replace("Old", "Other");
    writeTestFile(path(), changed);
    QVERIFY(m_manager->addPomodoroEntry(QStringLiteral("Go")));
    changed = changed.replace("6/8", "7/8") + "| 7 | 09:30 | Go |\n";
    QCOMPARE(onDisk(), changed);
    writeTestFile(path(), changed += "below\n");
    QVERIFY(m_manager->addNewTask(QStringLiteral("t")));
    QCOMPARE(onDisk(), changed.replace("🍅\n", "🍅\n- [ ] t\n"));
    m_loop->runQueued();

    const OutputCapture output;
    writeTestFile(path(), changed.prepend("- top\n"));
    QVERIFY(m_manager->updateFocus(QStringLiteral("F")));
    m_loop->runQueued();
    QCOMPARE(onDisk(), changed.replace("**Other**", "**F**"));
    QCOMPARE(m_manager->todayNote().content.toUtf8(), changed);
    QCOMPARE(m_manager->todayNote().focus, QStringLiteral("F"));
    QCOMPARE(m_manager->todayNote().tasks.first().lineNumber, 5);
}

void DailyNoteManagerTest::stale_taskGone_writesNothingAndShowsTheFreshNote()
{
    start(note);
    const QByteArray changed = QByteArray(note).replace("- [ ] a", "- [ ] a, but later");
    writeTestFile(path(), changed);
    QVERIFY(!m_manager->toggleTask(3));
    QVERIFY(m_manager->lastError());
    QVERIFY2(m_manager->lastError()->startsWith(
                 QStringLiteral("Failed to toggle task: The note was changed by another program")),
             qPrintable(*m_manager->lastError()));
    QCOMPARE(onDisk(), changed);
    m_loop->runQueued();
    QCOMPARE(m_manager->todayNote().tasks.first().text, QStringLiteral("a, but later"));
    QVERIFY(m_manager->lastError());
}

void DailyNoteManagerTest::vanishedNote_isNotMadeAgain()
{
    start(note);
    const bool isWholeFolder[] = {false, true};
    for (const bool all : isWholeFolder) {
        QVERIFY(all ? QDir(m_vault).removeRecursively() : QFile::remove(path()));
        QVERIFY(!m_manager->addNewTask(QStringLiteral("x")));
        QCOMPARE(m_manager->lastError(), QStringLiteral("Failed to add new task: No such file or directory"));
        QVERIFY(!QFile::exists(path()));
        m_loop->runQueued();
        QVERIFY(m_manager->todayNote().exists);
    }
}

void DailyNoteManagerTest::unwritableNote_isSaid_data()
{
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"update focus", "add pomodoro entry", "toggle task", "add pomodoro to task",
                                  "remove pomodoro from task", "add new task"}) {
        QTest::newRow(operation) << QString::fromUtf8(operation);
    }
}

void DailyNoteManagerTest::unwritableNote_isSaid()
{
    QFETCH(QString, operation);
    start(note);
    // A disk that takes no more than a few bytes, as far as this process can tell.
    struct rlimit old = {};
    ::getrlimit(RLIMIT_FSIZE, &old);
    struct rlimit small = old;
    small.rlim_cur = 16;
    ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    const QString x = QStringLiteral("x");
    const bool isWritten = operation == u"update focus"           ? m_manager->updateFocus(x)
                           : operation == u"add pomodoro entry"   ? m_manager->addPomodoroEntry(x)
                           : operation == u"toggle task"          ? m_manager->toggleTask(3)
                           : operation == u"add pomodoro to task" ? m_manager->addPomodoroToTask(3)
                           : operation == u"add new task"         ? m_manager->addNewTask(x)
                                                                  : m_manager->removePomodoroFromTask(4);
    ::setrlimit(RLIMIT_FSIZE, &old);
    QVERIFY(!isWritten);
    QCOMPARE(m_manager->lastError(), QStringLiteral("Failed to ") + operation + QStringLiteral(": File too large"));
    QCOMPARE(onDisk(), note);
    QCOMPARE(m_manager->todayNote().content.toUtf8(), note);
    QCOMPARE(QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral("2026-01-22.md")}));
}

void DailyNoteManagerTest::link_attributesAndFolder_areKept()
{
    const QString target = m_folder->filePath(QStringLiteral("elsewhere.md"));
    writeTestFile(target, note);
    QVERIFY(QDir().mkpath(QFileInfo(path()).path()));
    QVERIFY(QFile::link(target, path()));
    QCOMPARE(::chmod(qPrintable(target), 0640), 0);
    const bool hasAttributes = ::setxattr(qPrintable(target), "user.colour", "red", 3, 0) == 0;
    if (isSuperuser()) {
        QCOMPARE(::chown(qPrintable(target), 12, 34), 0);
    }
    start({});
    QVERIFY(m_manager->toggleTask(3));
    QVERIFY(QFileInfo(path()).isSymLink());
    QVERIFY(readTestFile(target).contains("- [x] a"));
    struct stat info = {};
    QCOMPARE(::stat(qPrintable(target), &info), 0);
    QCOMPARE(info.st_mode & 07777U, 0640U);
    QCOMPARE(info.st_nlink, nlink_t(1));
    if (isSuperuser()) {
        QCOMPARE(info.st_uid, uid_t(12));
        QCOMPARE(info.st_gid, gid_t(34));
    }
    if (hasAttributes) {
        char value[8] = {};
        QCOMPARE(::getxattr(qPrintable(target), "user.colour", value, sizeof(value)), 3);
        QCOMPARE(value, "red");
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
             QStringList({QStringLiteral("elsewhere.md")}));
    QCOMPARE(QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden | QDir::System).size(), 1);
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::DailyNoteManagerTest)
#include "DailyNoteManagerTest.moc"
