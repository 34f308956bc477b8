// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/DraftManager.h>
#include <platform/Directories.h>
#include <support/ManualRunLoop.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

using namespace flitmark;

class DraftManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_home = std::make_unique<QTemporaryDir>(); }
    void save_isRestored_andBlankTextClears()
    {
        const auto manager = make();
        const QString text = QStringLiteral(u" a/\"b\"\\\r\n\t\U0001F4A1\u2028\u0001 ");
        for (const char16_t* blank : {u"", u"  \t", u"\r\n\u2028 \u00a0\n"}) {
            manager->save(text, {}, m_type);
            QCOMPARE(names(), QStringLiteral(".draft.json"));
            QCOMPARE(make()->currentDraft()->content, text);
            manager->save(QString::fromUtf16(blank), {}, m_type);
            QVERIFY(!manager->currentDraft() && names().isEmpty());
        }
        manager->save({}, QStringLiteral("title alone"), m_type);
        QCOMPARE(make()->currentDraft()->title, QStringLiteral("title alone"));
    }
    void badFile_isNoDraftAndIsKept()
    {
        for (const auto& [bytes, hint] : {
                 std::pair("", "not valid JSON"),
                 {R"({"content": "an hour of work")", "not valid JSON"},
                 {R"(["a"])", "not an object"},
                 {R"({"content": "a", "title": "", "timestamp": "2026-01-22T14:03:05Z"})", "\"noteType\" is missing"},
                 {R"({"content": null, "title": "", "noteType": "F"})", "\"content\" is not a string"},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": 7})", "\"timestamp\""},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-13-22T14:03:05Z"})", "is not"},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-01-22T14:03:05"})", "is not"},
             }) {
            for (const QString& typed : {QStringLiteral("new text"), QString()}) {
                writeTestFile(path(), bytes);
                OutputCapture output;
                const auto manager = make();
                QVERIFY2(!manager->currentDraft(), bytes);
                const QString line = output.lines().join(u'|');
                QVERIFY2(line.startsWith(QStringLiteral("Failed to load draft: ")), bytes);
                QVERIFY2(line.contains(QString::fromLatin1(hint)), qPrintable(line));
                QCOMPARE(readTestFile(path()), QByteArray(bytes));
                manager->save(typed, {}, m_type);
                manager->save(typed, {}, m_type);
                QCOMPARE(readTestFile(path() + QStringLiteral(".unreadable")), QByteArray(bytes));
                QCOMPARE(make()->currentDraft().value_or(Draft()).content, typed);
            }
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
