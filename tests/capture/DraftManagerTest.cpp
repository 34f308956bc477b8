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
    void save_writesAtOnceAndIsRestored()
    {
        const QString text = QStringLiteral(u" a/\"b\"\\\r\n\t\U0001F4A1\u2028\u0001 ");
        {
            const auto manager = make();
            QVERIFY(!manager->currentDraft());
            manager->save(QStringLiteral("first"), {}, m_type);
            manager->save(text, QStringLiteral(" title "), m_type);
        }
        const auto draft = make()->currentDraft();
        QCOMPARE(draft->content, text);
        QCOMPARE(draft->title, QStringLiteral(" title "));
        QCOMPARE(draft->noteType, m_type);
        QCOMPARE(draft->timestamp.toSecsSinceEpoch(), m_loop.now().toSecsSinceEpoch());
        const QJsonObject object = QJsonDocument::fromJson(readTestFile(path())).object();
        QCOMPARE(object.keys().join(u','), QStringLiteral("content,noteType,timestamp,title"));
        QCOMPARE(object[u"timestamp"].toString(), m_loop.now().toUTC().toString(u"yyyy-MM-ddTHH:mm:ss") + u'Z');
        QCOMPARE(names(), QStringLiteral(".draft.json"));
    }
    void blankText_clears()
    {
        const auto manager = make();
        QSignalSpy changed(manager.get(), &DraftManager::currentDraftChanged);
        manager->clear();
        QCOMPARE(changed.count(), 0);
        for (const char16_t* blank : {u"", u"  \t", u"\r\n\u2028 \u00a0\n"}) {
            manager->save(QStringLiteral("a"), {}, m_type);
            QCOMPARE(names(), QStringLiteral(".draft.json"));
            manager->save(QString::fromUtf16(blank), {}, m_type);
            QVERIFY(!manager->currentDraft());
            QCOMPARE(names(), QString());
        }
        QCOMPARE(changed.count(), 6);
        manager->save({}, QStringLiteral("title alone"), m_type);
        QCOMPARE(make()->currentDraft()->title, QStringLiteral("title alone"));
    }
    void badFile_isNoDraftAndIsKept_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("hint");
        const auto row = [](const char* file, const char* hint) {
            QTest::newRow(file) << QByteArray(file) << QString::fromLatin1(hint);
        };
        row("", "not valid JSON");
        row(R"({"content": "an hour of work")", "not valid JSON");
        row(R"(["a"])", "not an object");
        row(R"({"content": "a", "title": "", "timestamp": "2026-01-22T14:03:05Z"})", "\"noteType\" is missing");
        row(R"({"content": null, "title": "", "noteType": "F"})", "\"content\" is not a string");
        row(R"({"content": "a", "title": "", "noteType": "F", "timestamp": 7})", "\"timestamp\"");
        row(R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-13-22T14:03:05Z"})", "p\" is not");
        row(R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-01-22T14:03:05"})", "p\" is not");
    }
    void badFile_isNoDraftAndIsKept()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const QString, hint);
        for (const QString& typed : {QStringLiteral("new text"), QString()}) {
            writeTestFile(path(), file);
            OutputCapture output;
            const auto manager = make();
            QVERIFY(!manager->currentDraft());
            const QString line = output.lines().join(u'|');
            QVERIFY2(line.startsWith(QStringLiteral("Failed to load draft: ")) && line.contains(hint),
                     qPrintable(line));
            QCOMPARE(readTestFile(path()), file);
            manager->save(typed, {}, m_type);
            manager->save(typed, {}, m_type);
            QCOMPARE(readTestFile(path() + QStringLiteral(".unreadable")), file);
            QCOMPARE(make()->currentDraft().value_or(Draft()).content, typed);
        }
    }
    void foreignTimestamps_areRead()
    {
        for (const char* time : {"2026-01-22T14:03:05Z", "2026-01-22T14:03:05.000Z", "2026-01-22T15:03:05+01:00"}) {
            const QByteArray file = R"({"content": "a", "title": "", "noteType": "F", "timestamp": "@"})";
            writeTestFile(path(), QByteArray(file).replace("@", time));
            QCOMPARE(make()->currentDraft()->timestamp, QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5), Qt::UTC));
        }
    }
    void save_failure_keepsTheTextInMemory()
    {
        QVERIFY(QDir().mkpath(path() + QStringLiteral("/x")));
        OutputCapture output;
        const auto manager = make();
        manager->save(QStringLiteral("kept"), {}, m_type);
        QCOMPARE(output.lines(), (QStringList{QStringLiteral("Failed to load draft: Is a directory"),
                                              QStringLiteral("Failed to save draft: Is a directory")}));
        QCOMPARE(manager->currentDraft()->content, QStringLiteral("kept"));
    }

private:
    QString path() const { return m_home->filePath(QStringLiteral("Flitmark/.draft.json")); }
    std::unique_ptr<DraftManager> make()
    {
        const Directories directories{.home = {}, .applicationSupport = m_home->path(), .cache = {}};
        return std::make_unique<DraftManager>(directories, m_loop);
    }
    QString names() const
    {
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
        return QDir(QFileInfo(path()).path()).entryList(all).join(u',');
    }

    const QString m_type = QStringLiteral("Fleeting");
    std::unique_ptr<QTemporaryDir> m_home;
    ManualRunLoop m_loop;
};

QTEST_GUILESS_MAIN(DraftManagerTest)
#include "DraftManagerTest.moc"
