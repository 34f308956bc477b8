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
    void note_titleAndPreview_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("preview");
        const auto row = [](const char* name, const QByteArray& text, const char* title, const QByteArray& preview) {
            QTest::newRow(name) << text << QString::fromUtf8(title) << QString::fromUtf8(preview);
        };
        row("empty", "", "note", "");
        row("behind front matter", "---\ntype: x\n---\n\n text \n", "note", " text ");
        row("with CR LF", "---\r\ntype: x\r\n---\r\n# T\r\nbody\r\n", "T", "body");
        row("title in front matter counts", "---\n# comment\n---\n\nbody", "comment", "body");
        row("front matter never closed", "---\ntype: x\nbody", "note", "");
        row("rule in the text hides what follows", "# T\n---\nhidden\n---\nseen", "T", "seen");
        row("title below the text", "body\n#tag\n## Two\n# One ", "One ", "body");
        row("spaces are a text", "# T\n \nbody", "T", " ");
        row("hundred characters", QByteArray(99, 'x') + "\U0001F468\u200d\U0001F469yy", "note",
            QByteArray(99, 'x') + "\U0001F468\u200d\U0001F469");
        row("title far below", "body\n" + QByteArray("filler\n").repeated(20'000) + "# Far\n", "Far", "body");
        row("a heading cut by the first read", QByteArray(16 * 1024 - 5, 'x') + "\n# Heading that goes on",
            "Heading that goes on", QByteArray(100, 'x'));
        row("half a character", "a\xC3\n# T\xFF", "T\uFFFD", "a\uFFFD");
    }
    void note_titleAndPreview()
    {
        QFETCH(const QByteArray, text);
        writeTestFile(path("note.md"), text);
        const QList<NoteFile> notes = listRecentNotes(m_folder->path());
        QCOMPARE(notes[0].id, path("note.md"));
        QTEST(notes[0].title, "title");
        QTEST(notes[0].preview, "preview");
    }
    void list_newestTwentyFirst()
    {
        const QDateTime start(QDate(2026, 1, 1), QTime(0, 0));
        for (int i = 0; i < 30; ++i) {
            // The order of the names is not the order of the times.
            QFile file(m_folder->filePath(QStringLiteral("%1.md").arg(i * 7 % 30)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QVERIFY(file.setFileTime(start.addMSecs(i), QFile::FileModificationTime));
        }
        const QList<NoteFile> notes = listRecentNotes(m_folder->path());
        QCOMPARE(notes.size(), 20);
        for (int i = 0; i < 20; ++i) {
            QCOMPARE(notes[i].title, QString::number((29 - i) * 7 % 30));
            QCOMPARE(notes[i].modificationDate, start.addMSecs(29 - i));
        }
    }
    void list_onlyNotes()
    {
        for (const char* name : {"a.md", ".hidden.md", "b.MD", "c.txt", "d.md.txt", "md", "sub/e.md", "folder.md/f"}) {
            writeTestFile(path(name), "");
        }
        // Reading this one would wait without end.
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.md")).constData(), 0600), 0);
        makeTestLink(QStringLiteral("missing"), path("dangling.md"));
        QStringList titles;
        for (const NoteFile& note : listRecentNotes(m_folder->path())) {
            titles.append(note.title + note.preview);
        }
        titles.sort();
        QCOMPARE(titles.join(u','), QStringLiteral("a,folder,pipe"));
        OutputCapture output;
        for (const QString& none : {path("missing"), QString(), path("c.txt")}) {
            QVERIFY(listRecentNotes(none).isEmpty());
        }
        QCOMPARE(output.lines().join(u'|'), QStringLiteral("Failed to load notes: Not a directory"));
    }

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(NoteFileTest)
#include "NoteFileTest.moc"
