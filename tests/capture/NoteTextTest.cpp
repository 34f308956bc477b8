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
    void titleSource_isTitleOrFirstTextLine_data();
    void titleSource_isTitleOrFirstTextLine();
    void slug_keepsWhatMakesAName_data();
    void slug_keepsWhatMakesAName();
    void slug_isCutBetweenCharacters_data();
    void slug_isCutBetweenCharacters();
    void fileName_isByLocalTime();
    void composeNote_lines_data();
    void composeNote_lines();
    void firstCharacters_countsWhatReadersCount_data();
    void firstCharacters_countsWhatReadersCount();
};

void NoteTextTest::titleSource_isTitleOrFirstTextLine_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("source");
    const auto row = [](const char* name, const QString& title, const QString& content, const QString& source) {
        QTest::newRow(name) << title << content << source;
    };
    row("title", QStringLiteral(" A title\n"), QStringLiteral("text"), QStringLiteral("A title"));
    row("blank title", QStringLiteral(" \n"), QStringLiteral("text"), QStringLiteral("text"));
    row("below a heading", {}, QStringLiteral("# Heading\n\n\t Buy milk \nmore"), QStringLiteral("Buy milk"));
    row("below an indented tag", {}, QStringLiteral("  #tag line\r\nBuy milk"), QStringLiteral("Buy milk"));
    row("headings and blanks only", {}, QStringLiteral("# A\n \n## B\n"), {});
    row("other line breaks", {}, QStringLiteral(u"# A\u2028text\u0085more"), QStringLiteral("text"));
    row("a title may begin with a hash", QStringLiteral("#1"), QStringLiteral("text"), QStringLiteral("#1"));
}

void NoteTextTest::titleSource_isTitleOrFirstTextLine()
{
    QFETCH(const QString, title);
    QFETCH(const QString, content);
    QFETCH(const QString, source);
    QCOMPARE(noteTitleSource(title, content), source);
}

void NoteTextTest::slug_keepsWhatMakesAName_data()
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
    row("other scripts and digits", QStringLiteral(u"\u00c4rger \u65e5\u672c \u0967\u00b2"),
        QStringLiteral(u"\u00e4rger-\u65e5\u672c-\u0967\u00b2"));
    row("marks stay", QStringLiteral(u"Cafe\u0301 \u0928\u093f"), QStringLiteral(u"cafe\u0301-\u0928\u093f"));
    row("emoji go", QStringLiteral(u"\U0001F4A1 idea \U0001F468\u200d\U0001F469"), QStringLiteral("idea"));
    row("letters beyond the basic plane stay", QStringLiteral(u"\U00020000 \U00010400"),
        QStringLiteral(u"\U00020000-\U00010428"));
    row("half a character goes", QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDCA1),
        QStringLiteral("ab"));
    row("nothing left", QStringLiteral("!?\U0001F4A1"), QString());
    row("eight words", QStringLiteral("1 2 3 4 5 6 7 8 9 10 11 12"), QStringLiteral("1-2-3-4-5-6-7-8"));
    row("exactly fifty", QString(50, u'x'), QString(50, u'x'));
    row("one more", QString(51, u'x'), QString(50, u'x'));
    row("cut behind a dash", QString(49, u'x') + QStringLiteral(" yy"), QString(49, u'x') + u'-');
}

void NoteTextTest::slug_keepsWhatMakesAName()
{
    QFETCH(const QString, source);
    QFETCH(const QString, slug);
    QCOMPARE(noteSlug(source), slug);
}

void NoteTextTest::slug_isCutBetweenCharacters_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<int>("kept");
    // 230 bytes are left for the slug in a file's name.
    QTest::newRow("one byte each") << QStringLiteral("e") << 50;
    QTest::newRow("letter and mark") << QStringLiteral(u"e\u0301") << 50;
    QTest::newRow("four bytes each") << QStringLiteral(u"\U00020000") << 50;
    QTest::newRow("letter and two marks, five bytes") << QStringLiteral(u"e\u0301\u0323") << 46;
    QTest::newRow("letter and many marks, 101 bytes") << (QStringLiteral("e") + QString(50, QChar(0x301))) << 2;
}

void NoteTextTest::slug_isCutBetweenCharacters()
{
    QFETCH(const QString, character);
    QFETCH(const int, kept);
    QCOMPARE(noteSlug(character.repeated(60)), character.repeated(kept));

    // Where one character alone is too long, its letter stays with as many marks as there is room for.
    const QString endless = QStringLiteral("e") + QString(500, QChar(0x301));
    QCOMPARE(noteSlug(endless), endless.first(115));
}

void NoteTextTest::fileName_isByLocalTime()
{
    const QDateTime time(QDate(2026, 7, 1), QTime(22, 30, 5), Qt::UTC);
    const QString local = time.toLocalTime().toString(u"yyyy-MM-dd--HHmmss");
    QCOMPARE(noteFileName(time, QString()), local + QStringLiteral(".md"));
    QCOMPARE(noteFileName(time, QStringLiteral("A b")), local + QStringLiteral("--a-b.md"));
    QCOMPARE(noteFileName(time, QStringLiteral("!")), local + QStringLiteral("--.md"));
    const QString longest = noteFileName(time, QString(60, QChar(0x0939)) + QString(500, QChar(0x0301)));
    QVERIFY(QFile::encodeName(longest).size() <= 255);
}

void NoteTextTest::composeNote_lines_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("noteType");
    QTest::addColumn<QStringList>("defaultTags");
    QTest::addColumn<QString>("text");
    const QString start = QStringLiteral("---\ncreated: 2026-01-22T14:03:05.007Z\n");
    const auto row = [&start](const char* name, const QString& title, const char* noteType, const QStringList& tags,
                              const QString& rest) {
        QTest::newRow(name) << title << QString::fromLatin1(noteType) << tags << start + rest;
    };
    row("plain", {}, "Fleeting", {}, QStringLiteral("type: fleeting\ntags: [fleeting]\n---\n\n body\n"));
    row("tags once, the user's first", {}, "Fleeting", QStringLiteral("b,fleeting,a,b").split(u','),
        QStringLiteral("type: fleeting\ntags: [b, fleeting, a]\n---\n\n body\n"));
    row("no tags", {}, "Other", {}, QStringLiteral("type: other\n---\n\n body\n"));
    row("unknown type has the default tags", {}, "Other", {QStringLiteral("x")},
        QStringLiteral("type: other\ntags: [x]\n---\n\n body\n"));
    row("prefix alone", {}, "Task", {}, QStringLiteral("type: task\ntags: [task]\n---\n\n# TODO\n\n body\n"));
    row("prefix and title", QStringLiteral("Plan"), "Idea", {},
        QStringLiteral(u"type: idea\ntags: [idea]\n---\n\n# \U0001F4A1 Plan\n\n body\n"));
    row("title as given", QStringLiteral("  Plan "), "Other", {},
        QStringLiteral("type: other\n---\n\n#   Plan \n\n body\n"));
    row("blank title", QStringLiteral(" \n"), "Other", {}, QStringLiteral("type: other\n---\n\n body\n"));
}

void NoteTextTest::composeNote_lines()
{
    QFETCH(const QString, title);
    QFETCH(const QString, noteType);
    QFETCH(const QStringList, defaultTags);
    QFETCH(const QString, text);
    AppConfig config = AppConfig::makeDefault({});
    config.defaultTags = defaultTags;
    const QDateTime time(QDate(2026, 1, 22), QTime(14, 3, 5, 7), Qt::UTC);
    QCOMPARE(composeNote(config, time.toLocalTime(), title, QStringLiteral(" body\n"), noteType), text);
}

void NoteTextTest::firstCharacters_countsWhatReadersCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("firstTwo");
    const QString family = QStringLiteral(u"\U0001F468\u200d\U0001F469\u200d\U0001F467");
    const QString manyMarks = QStringLiteral("e") + QString(1000, QChar(0x301));
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("short") << QStringLiteral("a") << QStringLiteral("a");
    QTest::newRow("letters") << QStringLiteral("abc") << QStringLiteral("ab");
    QTest::newRow("marks") << QStringLiteral(u"e\u0301e\u0301e\u0301") << QStringLiteral(u"e\u0301e\u0301");
    QTest::newRow("family") << family.repeated(3) << family.repeated(2);
    QTest::newRow("many marks") << manyMarks.repeated(3) << manyMarks.repeated(2);
    QTest::newRow("long") << QString(1'000'000, u'x') << QStringLiteral("xx");
}

void NoteTextTest::firstCharacters_countsWhatReadersCount()
{
    QFETCH(const QString, text);
    QFETCH(const QString, firstTwo);
    QCOMPARE(firstCharacters(text, 2).toString(), firstTwo);
}

QTEST_GUILESS_MAIN(NoteTextTest)
#include "NoteTextTest.moc"
