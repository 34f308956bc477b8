// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteFile.h>
#include <support/OutputCapture.h>
#include <support/TestFiles.h>

#include <sys/stat.h>

using namespace flitmark;

class NoteFileTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void note_titleAndPreview_data();
    void note_titleAndPreview();
    void list_newestTwentyFirst();
    void list_onlyNotes();
    void unreadableEntries_haveNoText();
    void missingFolder_isEmptyAndSilent();
    void unlistableFolder_printsALine();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void NoteFileTest::note_titleAndPreview_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("preview");
    const auto row = [](const char* name, const QByteArray& text, const QString& title, const QString& preview) {
        QTest::newRow(name) << text << title << preview;
    };
    const QString none = QStringLiteral("note");
    const QByteArray frontMatter = "---\ncreated: now\n# comment\n---\n\n";
    row("empty", "", none, {});
    row("plain", "text\n", none, QStringLiteral("text"));
    row("behind front matter", "---\ntype: x\n---\n\n text \n", none, QStringLiteral(" text "));
    row("with CR LF", "---\r\ntype: x\r\n---\r\n# T\r\nbody\r\n", QStringLiteral("T"), QStringLiteral("body"));
    row("title in front matter counts", frontMatter + "body", QStringLiteral("comment"), QStringLiteral("body"));
    row("front matter never closed", "---\ntype: x\nbody", none, {});
    row("rule in the text hides what follows", "# T\n---\nhidden\n---\nseen", QStringLiteral("T"),
        QStringLiteral("seen"));
    row("title below the text", "body\n#tag\n## Two\n# One ", QStringLiteral("One "), QStringLiteral("body"));
    row("spaces are a text", "# T\n \nbody", QStringLiteral("T"), QStringLiteral(" "));
    row("hundred characters", QByteArray(99, 'x') + "\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9yy", none,
        QString(99, u'x') + QStringLiteral(u"\U0001F468\u200d\U0001F469"));
    row("title far below", "body\n" + QByteArray("filler\n").repeated(20'000) + "# Far\n", QStringLiteral("Far"),
        QStringLiteral("body"));
    row("a heading cut by the first read", QByteArray(16 * 1024 - 5, 'x') + "\n# Heading that goes on",
        QStringLiteral("Heading that goes on"), QString(100, u'x'));
    row("one endless line", QByteArray(100'000, 'x'), none, QString(100, u'x'));
    row("half a character", "a\xC3\n# T\xFF", QStringLiteral(u"T\uFFFD"), QStringLiteral(u"a\uFFFD"));
}

void NoteFileTest::note_titleAndPreview()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, title);
    QFETCH(const QString, preview);
    writeTestFile(path(QStringLiteral("note.md")), text);
    const QList<NoteFile> notes = listRecentNotes(m_folder->path());
    QCOMPARE(notes.size(), 1);
    QCOMPARE(notes[0].id, path(QStringLiteral("note.md")));
    QCOMPARE(notes[0].title, title);
    QCOMPARE(notes[0].preview, preview);
}

void NoteFileTest::list_newestTwentyFirst()
{
    const QDateTime start(QDate(2026, 1, 1), QTime(0, 0));
    for (int i = 0; i < 30; ++i) {
        // The order of the names is not the order of the times.
        QFile file(path(QStringLiteral("%1.md").arg(i * 7 % 30)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setFileTime(start.addMSecs(i), QFile::FileModificationTime));
    }
    QStringList titles;
    QStringList expected;
    const QList<NoteFile> notes = listRecentNotes(m_folder->path());
    for (int i = 0; i < notes.size(); ++i) {
        titles.append(notes[i].title);
        expected.append(QString::number((29 - i) * 7 % 30));
    }
    QCOMPARE(titles.size(), 20);
    QCOMPARE(titles, expected);
    QCOMPARE(notes[0].modificationDate, start.addMSecs(29));
}

void NoteFileTest::list_onlyNotes()
{
    for (const char* name : {"a.md", ".hidden.md", "b.MD", "c.txt", "d.md.txt", "md", "sub/e.md"}) {
        writeTestFile(path(QString::fromLatin1(name)), "text");
    }
    const QList<NoteFile> notes = listRecentNotes(m_folder->path());
    QCOMPARE(notes.size(), 1);
    QCOMPARE(notes[0].title, QStringLiteral("a"));
}

void NoteFileTest::unreadableEntries_haveNoText()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("folder.md"))));
    QCOMPARE(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe.md"))).constData(), 0600), 0);
    makeTestLink(QStringLiteral("missing"), path(QStringLiteral("dangling.md")));
    QStringList titles;
    const QList<NoteFile> notes = listRecentNotes(m_folder->path());
    for (const NoteFile& note : notes) {
        QVERIFY(note.preview.isEmpty());
        titles.append(note.title);
    }
    titles.sort();
    QCOMPARE(titles, QStringLiteral("folder,pipe").split(u','));
}

void NoteFileTest::missingFolder_isEmptyAndSilent()
{
    OutputCapture output;
    QVERIFY(listRecentNotes(path(QStringLiteral("missing"))).isEmpty());
    QVERIFY(listRecentNotes(QString()).isEmpty());
    QVERIFY(output.lines().isEmpty());
}

void NoteFileTest::unlistableFolder_printsALine()
{
    writeTestFile(path(QStringLiteral("file")), "text");
    OutputCapture output;
    QVERIFY(listRecentNotes(path(QStringLiteral("file"))).isEmpty());
    QCOMPARE(output.lines(), QStringList{QStringLiteral("Failed to load notes: Not a directory")});
}

QTEST_GUILESS_MAIN(NoteFileTest)
#include "NoteFileTest.moc"
