// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteFile.h>
#include <capture/NoteText.h>
#include <platform/Directories.h>
#include <support/TestFiles.h>

#include <sys/stat.h>

using namespace flitmark;

class NoteTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void titleSource_isTitleOrFirstTextLine()
    {
        for (const auto& [title, content, source] : {
                 std::tuple(" A title\n", "text", "A title"),
                 {"#1", "text", "#1"},
                 {" \n", "# Heading\n\n\t Buy milk \nmore", "Buy milk"},
                 {"", "  #tag line\r\nBuy milk", "Buy milk"},
                 {"", "# A\n \n## B\n", ""},
                 {"", "# A\u2028text\u0085more", "text"},
             }) {
            QCOMPARE(noteTitleSource(title, content), source);
        }
    }
    void slug_keepsWhatMakesAName()
    {
        for (const auto& [source, slug] : {
                 std::pair(QStringLiteral("Hello, World! Uber-cool_idea"),
                           QStringLiteral("hello-world-uber-cool_idea")),
                 {QStringLiteral("--a - b  c--"), QStringLiteral("a-b-c")},
                 {QStringLiteral("../../etc/passwd"), QStringLiteral("etcpasswd")},
                 // A tab and a no-break space are no spaces.
                 {QStringLiteral(u"a\tb\u00a0c"), QStringLiteral("abc")},
                 {QStringLiteral(u"Ärger 日本 \u0967\u00b2"), QStringLiteral(u"ärger-日本-\u0967\u00b2")},
                 {QStringLiteral(u"Cafe\u0301 \u0928\u093f"), QStringLiteral(u"cafe\u0301-\u0928\u093f")},
                 {QStringLiteral(u"\U0001F4A1 idea \U0001F468\u200d\U0001F469!?"), QStringLiteral("idea")},
                 {QStringLiteral(u"\U00020000 \U00010400"), QStringLiteral(u"\U00020000-\U00010428")},
                 {QStringLiteral("a") + QChar(0xD83D) + u'b' + QChar(0xDCA1), QStringLiteral("ab")},
                 {QStringLiteral("1 2 3 4 5 6 7 8 9 10"), QStringLiteral("1-2-3-4-5-6-7-8")},
                 {QString(49, u'x') + QStringLiteral(" yy"), QString(49, u'x') + u'-'},
                 {u'e' + QString(500, QChar(0x301)), u'e' + QString(114, QChar(0x301))},
             }) {
            QCOMPARE(noteSlug(source), slug);
        }
        // 230 bytes are left for the slug in a file's name. It is cut between characters, unless one alone is longer.
        for (const auto& [character, kept] : {
                 std::pair(QStringLiteral(u"e\u0301"), 50),
                 {QStringLiteral(u"\U00020000"), 50},
                 {QStringLiteral(u"e\u0301\u0323"), 46},
                 {u'e' + QString(50, QChar(0x301)), 2},
             }) {
            QCOMPARE(noteSlug(character.repeated(60)), character.repeated(kept));
        }
    }
    void fileName_isByLocalTime()
    {
        const QDateTime time(QDate(2026, 7, 1), QTime(22, 30, 5), Qt::UTC);
        for (const auto& [title, rest] : {std::pair("", ".md"), {"A b", "--a-b.md"}, {"!", "--.md"}}) {
            QCOMPARE(noteFileName(time, title), time.toLocalTime().toString(u"yyyy-MM-dd--HHmmss") + rest);
        }
    }
    void composeNote_lines()
    {
        const auto check = [](const char* title, const char* noteType, const char* tags, const char* rest) {
            AppConfig config = AppConfig::makeDefault({});
            config.defaultTags = QString::fromUtf8(tags).split(u',', Qt::SkipEmptyParts);
            const QDateTime time = QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5, 7), Qt::UTC).toLocalTime();
            const QString note = composeNote(config, time, title, " body\n", noteType);
            QCOMPARE(note, QStringLiteral("---\ncreated: 2026-01-22T14:03:05.007Z\ntype: %1 body\n").arg(rest));
        };
        check("", "Fleeting", "", "fleeting\ntags: [fleeting]\n---\n\n");
        check("", "Fleeting", "b,fleeting,a,b", "fleeting\ntags: [b, fleeting, a]\n---\n\n");
        check("", "Other", "x", "other\ntags: [x]\n---\n\n");
        check("", "Task", "", "task\ntags: [task]\n---\n\n# TODO\n\n");
        check("Plan", "Idea", "", "idea\ntags: [idea]\n---\n\n# \U0001F4A1 Plan\n\n");
        check("  Plan ", "Other", "", "other\n---\n\n#   Plan \n\n");
        check(" \n", "Other", "", "other\n---\n\n");
    }
    void list_isOfTheNewestTwentyNotes()
    {
        const QDateTime start(QDate(2026, 1, 1), QTime(0, 0));
        for (int i = 0; i < 30; ++i) {
            // The order of the names is not the order of the times.
            QFile file(m_folder->filePath(QStringLiteral("%1.md").arg(i * 7 % 30)));
            QVERIFY(file.open(QFile::WriteOnly | QFile::Unbuffered));
            QVERIFY(file.write("---\ntype: x\n---\n\n body \n# Title\xFF\n") > 0);
            QVERIFY(file.setFileTime(start.addMSecs(i), QFile::FileModificationTime));
        }
        // Newer than all of them: no note, and one that reading would wait for without end.
        writeTestFile(path("b.txt"), "");
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.md")).constData(), 0600), 0);
        const QList<NoteFile> notes = listRecentNotes(m_folder->path());
        QCOMPARE(notes.size(), 20);
        QCOMPARE(notes[0].title + notes[0].preview, "pipe");
        QCOMPARE(notes[19].title + notes[19].preview, "Title\uFFFD body ");
        QCOMPARE(notes[19].modificationDate, start.addMSecs(11));
        QVERIFY(listRecentNotes(path("missing")).isEmpty());
    }

private:
    QString path(const char* name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(NoteTextTest)
#include "NoteTextTest.moc"
