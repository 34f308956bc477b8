// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteText.h>
#include <platform/Directories.h>
#include <support/TestFiles.h>

using namespace flitmark;

class NoteTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleSource_isTitleOrFirstTextLine()
    {
        const auto check = [](const char* title, const char* content, const char* source) {
            QCOMPARE(noteTitleSource(QString::fromUtf8(title), QString::fromUtf8(content)), QString::fromUtf8(source));
        };
        check(" A title\n", "text", "A title");
        check("#1", "text", "#1");
        check(" \n", "# Heading\n\n\t Buy milk \nmore", "Buy milk");
        check("", "  #tag line\r\nBuy milk", "Buy milk");
        check("", "# A\n \n## B\n", "");
        check("", "# A\u2028text\u0085more", "text");
    }
    void slug_keepsWhatMakesAName_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("slug");
        const auto row = [](const char* name, const QString& source, const QString& slug) {
            QTest::newRow(name) << source << slug;
        };
        row("words", QStringLiteral("Hello, World! Uber-cool_idea"), QStringLiteral("hello-world-uber-cool_idea"));
        row("dashes in a row", QStringLiteral("--a - b  c--"), QStringLiteral("a-b-c"));
        row("path separators", QStringLiteral("../../etc/passwd"), QStringLiteral("etcpasswd"));
        row("tab and no-break space are no spaces", QStringLiteral(u"a\tb\u00a0c"), QStringLiteral("abc"));
        row("other scripts and digits", QStringLiteral(u"Ärger 日本 \u0967\u00b2"),
            QStringLiteral(u"ärger-日本-\u0967\u00b2"));
        row("marks stay", QStringLiteral(u"Cafe\u0301 \u0928\u093f"), QStringLiteral(u"cafe\u0301-\u0928\u093f"));
        row("emoji go", QStringLiteral(u"\U0001F4A1 idea \U0001F468\u200d\U0001F469!?"), QStringLiteral("idea"));
        row("beyond the basic plane", QStringLiteral(u"\U00020000 \U00010400"),
            QStringLiteral(u"\U00020000-\U00010428"));
        row("half a character goes", QStringLiteral("a") + QChar(0xD83D) + u'b' + QChar(0xDCA1), QStringLiteral("ab"));
        row("eight words", QStringLiteral("1 2 3 4 5 6 7 8 9 10"), QStringLiteral("1-2-3-4-5-6-7-8"));
        row("fifty characters", QString(51, u'x'), QString(50, u'x'));
        row("cut behind a dash", QString(49, u'x') + QStringLiteral(" yy"), QString(49, u'x') + u'-');
        // 230 bytes are left for the slug in a file's name. It is cut between characters, unless one alone is longer.
        const auto cut = [&row](const char* name, const QString& character, int kept) {
            row(name, character.repeated(60), character.repeated(kept));
        };
        cut("letter and mark", QStringLiteral(u"e\u0301"), 50);
        cut("four bytes each", QStringLiteral(u"\U00020000"), 50);
        cut("five bytes each", QStringLiteral(u"e\u0301\u0323"), 46);
        cut("101 bytes each", u'e' + QString(50, QChar(0x301)), 2);
        row("too long alone", u'e' + QString(500, QChar(0x301)), u'e' + QString(114, QChar(0x301)));
    }
    void slug_keepsWhatMakesAName()
    {
        QFETCH(const QString, source);
        QTEST(noteSlug(source), "slug");
    }
    void fileName_isByLocalTime()
    {
        const QDateTime time(QDate(2026, 7, 1), QTime(22, 30, 5), Qt::UTC);
        const QString local = time.toLocalTime().toString(u"yyyy-MM-dd--HHmmss");
        QCOMPARE(noteFileName(time, QString()), local + QStringLiteral(".md"));
        QCOMPARE(noteFileName(time, QStringLiteral("A b")), local + QStringLiteral("--a-b.md"));
        QCOMPARE(noteFileName(time, QStringLiteral("!")), local + QStringLiteral("--.md"));
        const QString longest = noteFileName(time, QString(60, QChar(0x0939)) + QString(500, QChar(0x0301)));
        QVERIFY(QFile::encodeName(longest).size() <= 255);
    }
    void composeNote_lines()
    {
        const auto check = [](const char* title, const char* noteType, const char* tags, const char* rest) {
            AppConfig config = AppConfig::makeDefault({});
            config.defaultTags = QString::fromUtf8(tags).split(u',', Qt::SkipEmptyParts);
            const QDateTime time = QDateTime(QDate(2026, 1, 22), QTime(14, 3, 5, 7), Qt::UTC).toLocalTime();
            const QString note = composeNote(config, time, QString::fromUtf8(title), QStringLiteral(" body\n"),
                                             QString::fromUtf8(noteType));
            QCOMPARE(
                note,
                QStringLiteral("---\ncreated: 2026-01-22T14:03:05.007Z\ntype: %1 body\n").arg(QString::fromUtf8(rest)));
        };
        check("", "Fleeting", "", "fleeting\ntags: [fleeting]\n---\n\n");
        check("", "Fleeting", "b,fleeting,a,b", "fleeting\ntags: [b, fleeting, a]\n---\n\n");
        check("", "Other", "x", "other\ntags: [x]\n---\n\n");
        check("", "Task", "", "task\ntags: [task]\n---\n\n# TODO\n\n");
        check("Plan", "Idea", "", "idea\ntags: [idea]\n---\n\n# \U0001F4A1 Plan\n\n");
        check("  Plan ", "Other", "", "other\n---\n\n#   Plan \n\n");
        check(" \n", "Other", "", "other\n---\n\n");
    }
    void firstCharacters_countsWhatReadersCount()
    {
        QCOMPARE(firstCharacters(QStringLiteral("a"), 2).toString(), QStringLiteral("a"));
        for (const QString& character :
             {QStringLiteral("x"), QStringLiteral(u"e\u0301"), u'e' + QString(1000, QChar(0x301)),
              QStringLiteral(u"\U0001F468\u200d\U0001F469\u200d\U0001F467")}) {
            QCOMPARE(firstCharacters(character.repeated(30'000), 2).toString(), character.repeated(2));
        }
    }
};

QTEST_GUILESS_MAIN(NoteTextTest)
#include "NoteTextTest.moc"
