// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <platform/Directories.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

using namespace flitmark;

class DraftManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_home = std::make_unique<QTemporaryDir>(); }
    void save_writesAtOnceAndIsRestored();
    void blankText_clears_data();
    void blankText_clears();
    void titleAlone_isKept();
    void clear_dropsFileAndDraft();
    void file_hasFourKeys();
    void badFile_isNoDraftAndStays_data();
    void badFile_isNoDraftAndStays();
    void badFile_isKeptWhenOverwrittenOrCleared_data();
    void badFile_isKeptWhenOverwrittenOrCleared();
    void foreignTimestamps_areRead_data();
    void foreignTimestamps_areRead();
    void save_failure_keepsTheTextInMemory();
    void changes_areAnnouncedOnce();

private:
    QString path() const { return m_home->filePath(QStringLiteral("Flitmark/.draft.json")); }
    std::unique_ptr<DraftManager> make()
    {
        return std::make_unique<DraftManager>(
            Directories{.home = {}, .applicationSupport = m_home->path(), .cache = {}}, m_loop);
    }
    QStringList folder() const
    {
        return QDir(QFileInfo(path()).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    ManualRunLoop m_loop;
};

void DraftManagerTest::save_writesAtOnceAndIsRestored()
{
    const QString text = QStringLiteral(u" a/\"b\"\\\r\n\t\U0001F4A1\u2028\u0001 ");
    {
        const auto manager = make();
        QVERIFY(!manager->currentDraft());
        manager->save(QStringLiteral("first"), {}, QStringLiteral("Fleeting"));
        manager->save(text, QStringLiteral(" title "), QStringLiteral("Fleeting"));
        QCOMPARE(folder(), QStringList{QStringLiteral(".draft.json")});
    }
    const auto again = make();
    QVERIFY(again->currentDraft());
    QCOMPARE(again->currentDraft()->content, text);
    QCOMPARE(again->currentDraft()->title, QStringLiteral(" title "));
    QCOMPARE(again->currentDraft()->noteType, QStringLiteral("Fleeting"));
    QCOMPARE(again->currentDraft()->timestamp.toSecsSinceEpoch(), m_loop.now().toSecsSinceEpoch());
}

void DraftManagerTest::blankText_clears_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("empty") << QString();
    QTest::newRow("spaces") << QStringLiteral("  \t");
    QTest::newRow("line breaks") << QStringLiteral(u"\r\n\u2028 \u00a0\n");
}

void DraftManagerTest::blankText_clears()
{
    QFETCH(const QString, content);
    const auto manager = make();
    manager->save(QStringLiteral("a"), {}, QStringLiteral("Fleeting"));
    manager->save(content, QStringLiteral(" "), QStringLiteral("Fleeting"));
    QVERIFY(!manager->currentDraft());
    QVERIFY(folder().isEmpty());
}

void DraftManagerTest::titleAlone_isKept()
{
    make()->save({}, QStringLiteral("title"), QStringLiteral("Fleeting"));
    QCOMPARE(make()->currentDraft()->title, QStringLiteral("title"));
}

void DraftManagerTest::clear_dropsFileAndDraft()
{
    const auto manager = make();
    manager->clear();
    manager->save(QStringLiteral("a"), {}, QStringLiteral("Fleeting"));
    manager->clear();
    QVERIFY(!manager->currentDraft());
    QVERIFY(folder().isEmpty());
    QVERIFY(!make()->currentDraft());
}

void DraftManagerTest::file_hasFourKeys()
{
    make()->save(QStringLiteral("a"), {}, QStringLiteral("Fleeting"));
    const QByteArray bytes = readTestFile(path());
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    QCOMPARE(object.keys(), QStringLiteral("content,noteType,timestamp,title").split(u','));
    QCOMPARE(object[u"timestamp"].toString(), m_loop.now().toUTC().toString(u"yyyy-MM-ddTHH:mm:ss") + u'Z');
    QCOMPARE(bytes.count('\n'), 6);
}

void DraftManagerTest::badFile_isNoDraftAndStays_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("hint");
    const auto row = [](const char* name, const char* file, const char* hint) {
        QTest::newRow(name) << QByteArray(file) << QString::fromLatin1(hint);
    };
    row("empty", "", "not valid JSON");
    row("half written", R"({"content": "my long te)", "not valid JSON");
    row("list", R"(["a"])", "not an object");
    row("no note type", R"({"content": "a", "title": "", "timestamp": "2026-01-22T14:03:05Z"})",
        "\"noteType\" is missing");
    row("content null", R"({"content": null, "title": "", "noteType": "F", "timestamp": "2026-01-22T14:03:05Z"})",
        "\"content\" is not a string");
    row("timestamp a number", R"({"content": "a", "title": "", "noteType": "F", "timestamp": 7})", "\"timestamp\"");
    row("timestamp malformed", R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-13-22T14:03:05Z"})",
        "\"timestamp\" is not");
    row("timestamp without zone",
        R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-01-22T14:03:05"})",
        "\"timestamp\" is not");
}

void DraftManagerTest::badFile_isNoDraftAndStays()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, hint);
    writeTestFile(path(), file);
    QStringList lines;
    bool hasDraft = true;
    {
        OutputCapture output;
        hasDraft = make()->currentDraft().has_value();
        lines = output.lines();
    }
    QVERIFY(!hasDraft);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines[0].startsWith(QStringLiteral("Failed to load draft: ")) && lines[0].contains(hint),
             qPrintable(lines[0]));
    QCOMPARE(readTestFile(path()), file);
    QCOMPARE(folder().size(), 1);
}

void DraftManagerTest::badFile_isKeptWhenOverwrittenOrCleared_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("overwritten") << QStringLiteral("new text");
    QTest::newRow("cleared") << QString();
}

void DraftManagerTest::badFile_isKeptWhenOverwrittenOrCleared()
{
    QFETCH(const QString, typed);
    const QByteArray file = R"({"content": "an hour of work)";
    writeTestFile(path(), file);
    {
        const OutputCapture output;
        const auto manager = make();
        manager->save(typed, {}, QStringLiteral("Fleeting"));
        manager->save(typed, {}, QStringLiteral("Fleeting"));
    }
    QCOMPARE(readTestFile(path() + QStringLiteral(".unreadable")), file);
    const auto draft = make()->currentDraft();
    QCOMPARE(draft ? draft->content : QString(), typed);
}

void DraftManagerTest::foreignTimestamps_areRead_data()
{
    QTest::addColumn<QByteArray>("timestamp");
    QTest::newRow("UTC") << QByteArray("2026-01-22T14:03:05Z");
    QTest::newRow("with a fraction") << QByteArray("2026-01-22T14:03:05.000Z");
    QTest::newRow("another zone") << QByteArray("2026-01-22T15:03:05+01:00");
}

void DraftManagerTest::foreignTimestamps_areRead()
{
    QFETCH(const QByteArray, timestamp);
    writeTestFile(path(), R"({"timestamp": ")" + timestamp + R"(", "content": "a", "title": "", "noteType": "F"})");
    const auto manager = make();
    QVERIFY(manager->currentDraft());
    QCOMPARE(manager->currentDraft()->timestamp, QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5), Qt::UTC));
}

void DraftManagerTest::save_failure_keepsTheTextInMemory()
{
    QVERIFY(QDir().mkpath(path() + QStringLiteral("/x")));
    OutputCapture output;
    const auto manager = make();
    manager->save(QStringLiteral("kept"), {}, QStringLiteral("Fleeting"));
    QCOMPARE(output.lines(), (QStringList{QStringLiteral("Failed to load draft: Is a directory"),
                                          QStringLiteral("Failed to save draft: Is a directory")}));
    QCOMPARE(manager->currentDraft()->content, QStringLiteral("kept"));
    manager->clear();
    QVERIFY(!manager->currentDraft());
}

void DraftManagerTest::changes_areAnnouncedOnce()
{
    const auto manager = make();
    QSignalSpy changed(manager.get(), &DraftManager::currentDraftChanged);
    manager->clear();
    QCOMPARE(changed.count(), 0);
    manager->save(QStringLiteral("a"), {}, QStringLiteral("Fleeting"));
    QCOMPARE(changed.count(), 1);
    manager->clear();
    QCOMPARE(changed.count(), 2);
}

QTEST_GUILESS_MAIN(DraftManagerTest)
#include "DraftManagerTest.moc"
