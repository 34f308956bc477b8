// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/TestServices.h>

using namespace flitmark;

class NotesAndDraftsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_services = std::make_unique<TestServices>(); }
    void cleanup() { m_services.reset(); }
    void save_writesOneFile()
    {
        const QString inbox = m_services->vault + "/Inbox";
        const auto saved = save("# Shopping\n\nBuy milk today");
        QCOMPARE(saved.value(), inbox + "/2026-01-22--093000--buy-milk-today.md");
        QCOMPARE(m_services->sound.played, QStringList{"Pop"});
        m_services->config.update([](AppConfig& config) { config.playSoundOnSave = false; });
        // Within the same second a title replaces its note.
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QCOMPARE(save("Buy milk today\ntwo").value(), *saved);
        QVERIFY(readTestFile(*saved).endsWith("two"));
        m_services->loop.setWallClock(m_services->loop.now().addMSecs(500));
        QVERIFY(save("Buy milk today").value() != *saved);
        QCOMPARE(filesIn(inbox).count(u','), 1);
        QCOMPARE(m_services->sound.played.size(), 1);
    }
    void save_strangeText_losesNothing()
    {
        const auto saved = save(QStringLiteral("be") + QChar(0xD83D) + QStringLiteral("fore\n") + QChar(0xDCA1));
        QVERIFY(saved.value().endsWith("--before.md"));
        const QByteArray bytes = readTestFile(*saved);
        QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes);
        QVERIFY(!QString::fromUtf8(bytes).contains(QChar::ReplacementCharacter));
        const QString title = (QString(1, QChar(0x0939)) + QString(200, QChar(0x0301))).repeated(50);
        QVERIFY(QString::fromUtf8(readTestFile(save(title).value())).endsWith(title));
    }
    void save_badVault_failsAndWritesNothing()
    {
        const QString folder = m_services->folder.path();
        writeTestFile(folder + "/plain", "a file");
        makeTestLink("missing", folder + "/dangling");
        QVERIFY(QDir::setCurrent(folder));
        const QStringList before = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
        for (const auto& [vault, message] : {
                 std::pair(QString(), "The vault path is not an absolute path: \"\""),
                 {"notes", "The vault path is not an absolute path: \"notes\""},
                 {folder + "/plain/vault", "Not a directory"},
                 {folder + QStringLiteral("/n") + QChar::Null + u'x', "Invalid argument"},
                 {folder + "/dangling", "No such file or directory"},
             }) {
            m_services->config.update([&path = vault](AppConfig& config) { config.vaultPath = path; });
            QCOMPARE(save("precious").error().message, message);
            QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System), before);
        }
        QVERIFY(QDir::setCurrent("/") && m_services->sound.played.isEmpty());
    }
    void save_links_theUsersInboxAloneLeadsOut()
    {
        const QString shared = m_services->folder.filePath("shared");
        QVERIFY(QDir().mkpath(shared));
        makeTestLink("../shared", m_services->vault + "/Inbox");
        makeTestLink("../outside", m_services->vault + "/Away");
        m_services->config.update([](AppConfig& config) { config.saveSubfolder = "Away/Sub"; });
        const auto saved = save("text", "Other");
        QCOMPARE(QFileInfo(saved.value()).path(), m_services->vault + "/Inbox");
        QCOMPARE(filesIn(shared), QFileInfo(*saved).fileName());
        QVERIFY(!QFileInfo::exists(m_services->folder.filePath("outside")));
    }

    void draft_isRestored_andBlankTextClears()
    {
        DraftManager& drafts = m_services->drafts;
        const QString text = " a/\"b\"\\\r\n\t\U0001F4A1\u2028\u0001 ";
        for (const char16_t* blank : {u"", u"  \t", u"\r\n\u2028 \u00a0\n"}) {
            drafts.save(text, {}, {});
            QCOMPARE(filesIn(m_services->directories.ownFolder()), ".draft.json,config.json");
            QCOMPARE(storedDraft().content, text);
            drafts.save(QString::fromUtf16(blank), {}, {});
            QVERIFY(!drafts.currentDraft());
            QCOMPARE(filesIn(m_services->directories.ownFolder()), "config.json");
        }
        drafts.save({}, "title alone", {});
        QCOMPARE(storedDraft().title, "title alone");
    }
    void draft_badFile_isNoneAndIsKept()
    {
        for (const auto& [bytes, hint] : {
                 std::pair("", "empty"),
                 {"{\"content\": \"a\n\", \"title\": \"\", \"noteType\": \"F\"}", "not valid JSON"},
                 {R"({"content": "an hour of work")", "not valid JSON"},
                 {R"(["a"])", "not an object"},
                 {R"({"content": "a", "title": "", "timestamp": "2026-01-22T14:03:05Z"})", "\"noteType\" is missing"},
                 {R"({"content": null, "title": "", "noteType": "F"})", "\"content\" is not a string"},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": 7})", "\"timestamp\""},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-13-22T14:03:05Z"})", "is not"},
                 {R"({"content": "a", "title": "", "noteType": "F", "timestamp": "2026-01-22T14:03:05"})", "is not"},
             }) {
            for (const QString& typed : {QStringLiteral("new text"), QString()}) {
                writeTestFile(draftPath(), bytes);
                OutputCapture output;
                DraftManager manager(m_services->directories, m_services->loop);
                QVERIFY2(!manager.currentDraft(), bytes);
                const QString line = output.lines().join(u'|');
                QVERIFY2(line.startsWith("Failed to load draft: "), bytes);
                QVERIFY2(line.contains(hint), qPrintable(line));
                QCOMPARE(readTestFile(draftPath()), QByteArray(bytes));
                manager.save(typed, {}, {});
                manager.save(typed, {}, {});
                QCOMPARE(readTestFile(draftPath() + ".unreadable"), QByteArray(bytes));
                QCOMPARE(storedDraft().content, typed);
            }
        }
    }
    void draft_foreignTimestamps_areRead()
    {
        for (const char* time : {"2026-01-22T14:03:05Z", "2026-01-22T14:03:05.000Z", "2026-01-22T15:03:05+01:00"}) {
            const QByteArray file = R"({"content": "a", "title": "", "noteType": "F", "timestamp": "@"})";
            writeTestFile(draftPath(), QByteArray(file).replace("@", time));
            QCOMPARE(storedDraft().timestamp, QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5), Qt::UTC));
        }
    }

private:
    QString draftPath() const { return m_services->directories.ownFolder() + "/.draft.json"; }
    static QString filesIn(const QString& folder)
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden).join(u',');
    }
    Draft storedDraft() const
    {
        return DraftManager(m_services->directories, m_services->loop).currentDraft().value_or(Draft());
    }
    tl::expected<QString, FileError> save(const QString& content, const char* noteType = "Fleeting")
    {
        return m_services->notes.save({}, content, noteType);
    }

    std::unique_ptr<TestServices> m_services;
};

QTEST_GUILESS_MAIN(NotesAndDraftsTest)
#include "NotesAndDraftsTest.moc"
