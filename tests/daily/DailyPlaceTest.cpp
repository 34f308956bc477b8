// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/DailyNoteLocator.h>
#include <daily/MomentFormat.h>
#include <support/OutputCapture.h>

#include <sys/stat.h>

using namespace flitmark;

namespace {

using Text = const char*;

/// A language, a date, a format, and what Moment itself makes of them.
const std::tuple<Text, Text, Text, Text> momentRows[] = {
    {"en", "2026-01-22", R"(dddd, MMMM Do YYYY)", "Thursday, January 22nd 2026"},
    {"en", "2026-01-22", R"(YYYY/MM-MMMM/YYYY-MM-DD-dddd)", "2026/01-January/2026-01-22-Thursday"},
    {"en", "2027-01-01", R"(Y YYYYYY YYYYY YY Q Qo M Mo MM MMM D DD DDD DDDo DDDD)",
     "2027 +002027 02027 27 1 1st 1 1st 01 Jan 1 01 1 1st 001"},
    {"en", "2027-01-01", R"(d do dd ddd dddd e E w wo ww gg gggg ggggg W Wo WW GG GGGG GGGGG)",
     "5 5th Fr Fri Friday 5 5 1 1st 01 27 2027 02027 53 53rd 53 26 2026 02026"},
    {"en", "2026-11-12", R"(Do [Do] Mo \Do [] [[]] ][ [a]b] [open YYYY)", "12th Do 11th Do  []] [ a]b [op4n 2026"},
    {"en", "2026-01-23", R"(y yo yyyy N NNNN L LL l ll \L \\LL YYY ggg)",
     "2026 2026th 2026 AD Anno Domini 01/23/2026 January 23, 2026 1/23/2026 Jan 23, 2026 L LL 262026 26g"},
    {"en", "2026-02-03", R"(Do)", "3rd"},
    {"en", "2026-03-21", R"(Do DDDDD ddddd MMMMM)", "21st 08021 Saturday6 March3"},
    {"en-gb", "2027-01-01", R"(L gggg-ww)", "01/01/2027 2026-53"},
    {"de", "2026-03-22", R"(dddd, D. MMMM YYYY ddd dd MMM Do LL)",
     "Sonntag, 22. März 2026 So. So März 22. 22. März 2026"},
    {"fr", "2026-01-01", R"(Do Mo wo DDDo dddd MMM)", "1er 1er 1re 1er jeudi janv."},
    {"fr", "2026-08-02", R"(Do Mo wo LL)", "2 8e 31e 2 août 2026"},
    {"es", "2026-01-22", R"(DD-MMM-YYYY)", "22-ene-2026"},
    {"es", "2026-01-22", R"(D MMM YYYY LL Do)", "22 ene. 2026 22 de enero de 2026 22º"},
    {"it", "2026-01-19", R"(dddd ll)", "lunedì 19 gen 2026"},
    {"pt", "2026-02-17", R"(dddd dd LL)", "Terça-feira 3ª 17 de fevereiro de 2026"},
    {"pt-br", "2027-01-01", R"(dddd gggg-ww ll)", "sexta-feira 2027-01 1 de jan de 2027"},
    {"nl", "2026-03-08", R"(YYYY-MMM-DD MMM)", "2026-mrt-08 mrt"},
    {"nl", "2026-03-08", R"(MMM Do wo L)", "mrt. 8ste 10de 08-03-2026"},
    {"pl", "2026-05-05", R"(D MMMM)", "5 maja"},
    {"pl", "2026-05-05", R"(YYYY MMMM DD)", "2026 maj 05"},
    {"cs", "2026-05-05", R"(MMMM YYYY)", "května 2026"},
    {"cs", "2026-05-05", R"(D MMMM l)", "5 květen 5. 5. 2026"},
    {"ru", "2026-03-06", R"(DD MMMM YYYY MMM)", "06 марта 2026 мар."},
    {"ru", "2026-03-06", R"(MMMM MMM dddd Do Mo wo Qo)", "март март пятница 6-го 3-й 10-я 1"},
    {"ru", "2026-03-06", R"([в] dddd)", "в пятницу"},
    {"uk", "2026-03-06", R"(D[ ]MMMM dddd gggg-w Do wo)", "6 березня п’ятниця 2026-10 6-го 10-й"},
    {"uk", "2026-03-06", R"([У] dddd)", "У п’ятницю"},
    {"uk", "2026-03-06", R"([x] dddd)", "x п’ятниці"},
    {"tr", "2026-04-09", R"(dddd D MMMM wo Mo DDDo)", "Perşembe 9 Nisan 15'inci 4'üncü 99'uncu"},
    {"tr", "2026-12-30", R"(DDDo Wo Qo)", "364'üncü 53'üncü 4'üncü"},
    {"sv", "2026-04-09", R"(ddd Do L)", "tor 9:e 2026-04-09"},
    {"sv", "2026-04-21", R"(Do wo)", "21:a 17:e"},
    {"da", "2026-04-12", R"(dddd LL)", "søndag 12. april 2026"},
    {"nb", "2026-04-12", R"(ddd ll)", "sø. 12. apr. 2026"},
    {"fi", "2026-04-09", R"(LL dddd)", "9. huhtikuuta 2026 torstai"},
    {"ja", "2026-04-09", R"(LL dddd (dd) Do yo NNNN)", "2026年4月9日 木曜日 (木) 9日 8年 令和"},
    {"zh-cn", "2026-04-09", R"(LL dddd ddd Mo wo l)", "2026年4月9日 星期四 周四 4月 15周 2026/4/9"},
    {"zh-tw", "2026-04-09", R"(LL ddd wo)", "2026年4月9日 週四 15週"},
    {"ko", "2026-04-09", R"(LL dddd Mo L)", "2026년 4월 9일 목요일 4월 2026.04.09."},
};

const MomentLanguage& language(const QString& name)
{
    const auto& all = momentLanguages();
    return *std::find_if(all.begin(), all.end(), [&](const auto& table) { return table.name == name; });
}

/// The files of a vault: each a path, a colon and the content; "|" between two.
void makeVault(const QString& vault, const QString& files)
{
    for (const QString& file : files.split(u'|', Qt::SkipEmptyParts)) {
        writeTestFile(vault + u'/' + file.section(u':', 0, 0), file.section(u':', 1).toUtf8());
    }
}

const Text listed = ".obsidian/community-plugins.json:[\"a\",\"periodic-notes\"]|";
const Text daily = ".obsidian/daily-notes.json:";
const Text periodic = ".obsidian/plugins/periodic-notes/data.json:";

/// What settings there are, the note, the desktop's languages, and where the note of 22 January 2026 is found: rule 0,
/// 1 or 2, and the path where one is expected.
const std::tuple<QString, Text, Text, Text> placeRows[] = {
    {"", "Daily/2026/2026-01-22.md", "", "0 Daily/2026/2026-01-22.md"},
    {"", "2026-01-22.md", "", "2 2026-01-22.md"},
    {"", "", "", "2 (2026-01-22.md)"},
    {daily + QString(R"({"folder":" /Täglich//Notes/ ","format":"YYYY/MM-MMMM/YYYY-MM-DD-dddd[.md]","template":5})"),
     "Täglich/Notes/2026/01-January/2026-01-22-Thursday.md", "",
     "2 Täglich/Notes/2026/01-January/2026-01-22-Thursday.md"},
    {daily + QString(R"({"folder":"/","format":"  "})"), "2026-01-22.md", "", "2 2026-01-22.md"},
    {daily + QString(R"({"folder":"日誌","format":"dddd"})"), "日誌/Donnerstag.md", "fr-FR,de_AT",
     "2 日誌/Donnerstag.md"},
    {daily + QString(R"({"format":"dddd"})"), "Thursday.md", "de", "2 Thursday.md"},
    {daily + QString(R"({"format":"dddd"})"), "jeudi.md", "de", "2 jeudi.md"},
    {daily + QString(R"({"format":"dddd"})"), "jeudi.md|torsdag.md", "de", "2 (Donnerstag.md)"},
    {daily + QString(R"({"folder":"Ü"})"), "U\u0308/2026-01-22.md", "", "2 U\u0308/2026-01-22.md"},
    {daily + QString(R"({"folder":"J"})"), "2026-01-22.md", "", "2 (J/2026-01-22.md)"},
    {".obsidian/core-plugins.json:[\"graph\"]", "2026-01-22.md", "", "0 (Daily/2026/2026-01-22.md)"},
    {".obsidian/core-plugins.json:{\"daily-notes\":false}", "2026-01-22.md", "", "0 (Daily/2026/2026-01-22.md)"},
    {".obsidian/core-plugins.json:{\"graph\":false}", "2026-01-22.md", "", "2 2026-01-22.md"},
    {listed + QString(periodic) + R"({"daily":{"enabled":true,"folder":"P","format":""}})", "P/2026-01-22.md", "",
     "1 P/2026-01-22.md"},
    {listed + QString(periodic) + R"({"daily":{"enabled":true,"folder":"P"}})", "2026-01-22.md", "",
     "1 (P/2026-01-22.md)"},
    {listed + QString(periodic) + R"({"daily":{"folder":"P"}})", "2026-01-22.md", "", "2 2026-01-22.md"},
    {periodic + QString(R"({"daily":{"enabled":true,"folder":"P"}})"), "2026-01-22.md", "", "2 2026-01-22.md"},
};

/// Settings that can't be used, and the end of the line that says why.
const std::tuple<QString, Text> brokenRows[] = {
    {daily + QString("{"), "daily-notes.json: The data is not valid JSON: it makes no sense at byte 2."},
    {daily + QString("[]"), "daily-notes.json: not an object"},
    {daily + QString(R"({"folder":1})"), "daily-notes.json: \"folder\" has the wrong type"},
    {daily + QString(R"({"format":"YYYY-MM-DD HH"})"),
     "daily-notes.json: its format can't be used: it asks for a time (HH)"},
    {daily + QString(R"({"format":"../YYYY"})"), "daily-notes.json: its folder and format name no note in the vault"},
    {daily + QString(R"({"folder":"a/./b"})"), "daily-notes.json: its folder and format name no note in the vault"},
    {daily + QString(R"({"format":"[]"})"), "daily-notes.json: its folder and format name no note in the vault"},
    {daily + QString(R"({"format":"[\u0000]"})"), "daily-notes.json: its folder and format are no name of a file"},
    {daily + QString(R"({"format":")") + QString(10'000, 'd') + "\"}",
     "daily-notes.json: its folder and format are too long"},
    {daily + QString(1 << 20, ' ') + "{}", "daily-notes.json: larger than 1 MB"},
    {".obsidian/daily-notes.json/a:", "daily-notes.json: not an ordinary file"},
    {".obsidian/core-plugins.json:5", "core-plugins.json: not an object"},
    {".obsidian/core-plugins.json:{\"daily-notes\":1}", "core-plugins.json: \"daily-notes\" has the wrong type"},
    {".obsidian/community-plugins.json:[1]", "community-plugins.json: not a list of names"},
    {listed + QString(periodic) + "{\"daily\":1}", "data.json: \"daily\" has the wrong type"},
    {listed + QString(periodic) + "{\"daily\":{\"enabled\":1}}", "data.json: \"enabled\" has the wrong type"},
};

const QDate today(2026, 1, 22);

} // namespace

class DailyPlaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void moment()
    {
        for (const auto& [name, date, format, expected] : momentRows) {
            QCOMPARE(formatMoment(format, QDate::fromString(date, Qt::ISODate), language(name)).value(), expected);
        }
        QStringList newer;
        for (qsizetype i = 22; i < momentLanguages().size(); ++i) {
            newer += *formatMoment("D. MMMM MMMM ddd", QDate(2026, 5, 7), momentLanguages()[i]);
        }
        QCOMPARE(newer.join(u','), "7. maja maja czw,7. května května čt,7. травень травень чт,7. maj maj tors");
        for (const char* time : {"H", "hh:mm", "A", "SSS", "X", "x", "Z", "LT", "LLL", "llll", "[a] kk"}) {
            QVERIFY2(!formatMoment(time, today, language("de")), time);
        }
        const QString hostile =
            QString("[").repeated(10'000) + QString("\\").repeated(10'001) + QString("D[ ]").repeated(10'000);
        QVERIFY(formatMoment(hostile, today, language("ru")).has_value());
    }

    void languages()
    {
        for (const auto& [desktop, name] : {std::pair("de-AT", "de"),
                                            {"en_GB.UTF-8", "en-gb"},
                                            {"en-US", "en"},
                                            {"C", ""},
                                            {"zh-Hans-CN", "zh-cn"},
                                            {"zh_HK", "zh-tw"},
                                            {"pt-Latn-BR", "pt-br"},
                                            {"nn-NO", "nb"},
                                            {"", ""},
                                            {"-", ""}}) {
            QCOMPARE(momentLanguageName(desktop).toString(), name);
        }
    }

    void place()
    {
        for (const auto& [settings, notes, languages, expected] : placeRows) {
            const QTemporaryDir vault;
            makeVault(vault.path(), settings);
            makeVault(vault.path(), notes);
            OutputCapture output;
            const auto place = DailyNoteLocator().locate(vault.path() + '/', today, QString(languages).split(','));
            const QString shown = place.exists ? " " + place.pathInVault : " (" + place.newNote + ')';
            QCOMPARE(QString::number(int(place.rule)) + shown, expected);
            QCOMPARE(place.path, vault.path() + '/' + place.pathInVault);
            QCOMPARE(output.lines(), QStringList());
            QCOMPARE(place.places.first(), "Daily/2026/2026-01-22.md");
        }
    }

    void brokenSettings_areSaidOnce()
    {
        for (const auto& [settings, problem] : brokenRows) {
            const QTemporaryDir vault;
            makeVault(vault.path(), settings + QString("|2026-01-22.md:"));
            OutputCapture output;
            DailyNoteLocator locator;
            for (int i = 0; i < 3; ++i) {
                const auto place = locator.locate(vault.path(), today, {});
                QVERIFY(!place.exists && place.path.endsWith("/Daily/2026/2026-01-22.md"));
            }
            QCOMPARE(output.lines().size(), 1);
            QVERIFY2(output.lines().first().startsWith("DailyNoteLocator: ") &&
                         output.lines().first().endsWith(problem),
                     qPrintable(output.lines().first()));
            if (settings.startsWith(daily)) {
                makeVault(vault.path(), daily + QString("{\"format\":true}"));
                locator.locate(vault.path(), today, {});
                QCOMPARE(output.lines().size(), 2);
            }
        }
    }

    void pipesAndLinks()
    {
        const QTemporaryDir folder;
        const QString vault = folder.filePath("vault");
        const QString file = vault + "/.obsidian/daily-notes.json";
        QVERIFY(QDir().mkpath(vault + "/.obsidian"));
        QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
        OutputCapture output;
        DailyNoteLocator locator;
        QVERIFY(!locator.locate(vault, today, {}).exists);
        QVERIFY(output.lines().value(0).endsWith("not an ordinary file"));
        QVERIFY(QFile::remove(file));

        // The settings may be linked in; the note must lie in the vault.
        writeTestFile(folder.filePath("settings.json"), R"({"folder":"out"})");
        writeTestFile(folder.filePath("out/2026-01-22.md"), "");
        makeTestLink("../../settings.json", file);
        makeTestLink("../out", vault + "/out");
        QVERIFY(!locator.locate(vault, today, {}).exists);
        QVERIFY(output.lines().value(1).endsWith("it names a note outside the vault"));
        QVERIFY(QFile::remove(vault + "/out"));
        writeTestFile(vault + "/in/2026-01-22.md", "");
        makeTestLink("in", vault + "/out");
        QVERIFY(locator.locate(vault, today, {}).exists);
        QCOMPARE(::mkfifo(QFile::encodeName(folder.filePath("pipe")).constData(), 0600), 0);
        QVERIFY(QFile::remove(vault + "/out"));
        makeTestLink("../pipe", vault + "/out/2026-01-22.md");
        QVERIFY(!locator.locate(vault, today, {}).exists);
    }
};

QTEST_APPLESS_MAIN(DailyPlaceTest)
#include "DailyPlaceTest.moc"
