// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Links.h>
#include <core/NameOrder.h>
#include <core/ObsidianLink.h>
#include <core/Text.h>
#include <core/VaultPathResolver.h>
#include <support/TestFiles.h>

#include <QRandomGenerator>

#include <cerrno>
#include <limits>

using namespace flitmark;

class CoreTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_root = QFileInfo(m_folder->path()).canonicalFilePath();
        QVERIFY(QDir(m_root).mkpath("vault/Real/Deep"));
        QVERIFY(QDir(m_root).mkpath("outside/Deep"));
    }
    void nameOrder_isThatOfTheCollator()
    {
        const QString letters = "aAbBcCdDhHlLnNvVwWyYzZ019 -_.,'#(~eosSäÄéØчЧёйß½œÅĿłλ–漢日かガー한ไก💡🍅♥א\t\u0301";
        QRandomGenerator random(20260122);
        QStringList all;
        for (int i = 0; i < 3000; ++i) {
            QString name = i % 3 == 0 ? "2026-01-22--" : QString();
            for (int length = random.bounded(8); length >= 0; --length) {
                // Three of four names are plain.
                name += letters[random.bounded(i % 4 == 0 ? letters.size() : 34)];
            }
            all.append(name);
        }
        for (const QLocale& locale : {QLocale(QLocale::English), QLocale(QLocale::Japanese), QLocale(QLocale::Swedish),
                                      QLocale(QLocale::Czech), QLocale::c()}) {
            const NameOrder names(locale);
            QCollator collator(locale);
            collator.setCaseSensitivity(Qt::CaseInsensitive);
            QString last;
            const QList<qsizetype> positions = names.sorted({all.begin(), all.end()});
            QCOMPARE(positions.size(), all.size());
            for (const qsizetype position : positions) {
                const QString& name = all[position];
                const int order = collator.compare(last, name);
                QVERIFY2(order < 0 || (order == 0 && last <= name), qPrintable(name));
                last = name;
            }
        }
    }
    void obsidianLink_encodesWhatMustBe()
    {
        for (const auto& [vault, note, query] : {
                 std::tuple("/u/Notes Vault", "/u/Notes Vault/D/2026-01-22.md", "Notes%20Vault&file=D/2026-01-22"),
                 {"/v/R&D #1?", "/v/R&D #1?/a+b=c/100% (x).md", "R%26D%20%231%3F&file=a%2Bb%3Dc/100%25%20%28x%29"},
                 {"/v/A-b.c_d~e", "/v/A-b.c_d~e/f.md.md", "A-b.c_d~e&file=f.md"},
                 {"/v/Bücher", "/v/Bücher/漢/🍅.md", "B%C3%BCcher&file=%E6%BC%A2/%F0%9F%8D%85"},
                 {"/v/Notes/", "/v/Notes/md", "Notes&file=md"},
                 {"/v//Notes/.", "/v/Notes/a.md", "Notes&file=a"},
                 {"/v/x/../Notes", "/v/x/../Notes/Daily/a.md", "Notes&file=Daily/a"},
                 {"/", "/a.md", "&file=a"},
                 {"/v/Notes", "/v/Notes2/a.md", "Notes&file=/v/Notes2/a"},
             }) {
            QCOMPARE(obsidianLink(vault, note).value().toEncoded(), QByteArray("obsidian://open?vault=") + query);
        }
        QVERIFY(!obsidianLink("/v/N", QStringLiteral("/v/N/") + QChar(0xD83C)));
    }
    void splitLines_cutsAtEveryBreak()
    {
        const auto joined = [](const QString& whole) {
            QStringList lines;
            for (const QStringView line : splitLines(whole)) {
                lines.append(line.toString());
            }
            return lines.join(u'|');
        };
        QCOMPARE(joined({}), QString());
        QCOMPARE(joined("a\r\nb\n\rc\n"), "a|b||c|");
        const QString none = "\t\u00a0\u200b\u2027\u202a\u0084\u001f";
        QCOMPARE(joined(none), none);
        // Long lines are searched in blocks: a break must be found anywhere in one, and in what is left after the last.
        for (const QChar lineBreak : QString("\n\v\f\r\u0085\u2028\u2029")) {
            for (qsizetype before = 0; before < 70; ++before) {
                const QString text = QString(before, u'\0') + lineBreak + QString(70 - before, u'b');
                const QList<QStringView> lines = splitLines(text);
                QVERIFY(lines.size() == 2 && lines[0].size() == before && lines[1].size() == 70 - before);
            }
        }
    }
    void trim_takesWhatItShould()
    {
        const QString inner = "\u200b\ufeffa \tb\u200b";
        QCOMPARE(trimSpaces(QStringLiteral(u" \t\u00a0\u2003\u3000") + inner + "\u202f\u205f "), inner);
        QCOMPARE(trimSpaces(u" \n a\r\n"), QStringView(u"\n a\r\n"));
        QCOMPARE(trimSpacesAndNewlines(u" \n\u2028 a\r\n"), QStringView(u"a"));
    }
    void shortened_cutsNoCharacterInTwo()
    {
        const QString long499 = QString(499, u'a');
        const std::pair<QString, QString> cases[] = {{long499 + "a", long499 + "a"},
                                                     {long499 + "aa", long499 + "a…"},
                                                     {long499 + "🍅", long499 + "…"},
                                                     {long499 + "e\u0301x", long499 + "…"}};
        for (const auto& [text, shown] : cases) {
            QCOMPARE(shortened(text), shown);
        }
    }
    void parseInteger_isStrict()
    {
        const QList<qint64> edges = {0, -12, std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()};
        for (const qint64 value : edges) {
            QCOMPARE(parseInteger(QString::number(value)), std::optional(value));
        }
        QCOMPARE(parseInteger(u"+007"), std::optional<qint64>(7));
        for (const char* text : {"", "+", "-", "--1", "+-1", " 1", "1 ", "1.0", "1e2", "0x1", "1,000", "٣", "1a",
                                 "9223372036854775808", "-9223372036854775809", "99999999999999999999999999"}) {
            QVERIFY2(!parseInteger(QString(text)), text);
        }
    }
    void subfolder_isCleanedOrReplaced()
    {
        const auto resolve = [](const QString& subfolder, const QString& fallback = "F") {
            return VaultPathResolver::saveDirectory("/x/..//V/", subfolder, fallback);
        };
        QCOMPARE(resolve(" \u2003\tProjects//Work/\n\u2028"), "/V/Projects/Work");
        for (const char* kept : {"Inbox/ Sub", ".obsidian", "...", "a/~notes", "..\\x", "\U0001F4A1/\u00e4"}) {
            QCOMPARE(resolve(kept), QStringLiteral("/V/") + kept);
        }
        for (const char* bad :
             {"../x", "a/../b", "a/..", "./a", "/etc", " /etc", "~/x", "~root", "a:b", "", " \t\n "}) {
            QCOMPARE(resolve(bad), "/V/F");
        }
        QCOMPARE(resolve(QStringLiteral("a") + QChar::Null + "b"), "/V/F");
        for (const char* fallback : {"", "//", "a/..", "/Inbox"}) {
            QVERIFY(!resolve("fine", fallback));
        }
    }
    void links_neverLeadOutOfTheVault()
    {
        QVERIFY(QDir(m_root).mkdir("vault2"));
        makeTestLink("../outside", path("vault/Second"));
        makeTestLink("Real", path("vault/Third"));
        makeTestLink("vault", path("way"));
        // %1 stands for the folder that holds both the vault and the world outside it.
        for (const auto& [target, subfolder, isAllowed] : {
                 std::tuple("%1/outside", "Link", false),
                 {"%1/outside", "Link/Deep", false},
                 {"../outside", "Link/Sub/More", false},
                 {"../outside/../vault/Real", "Link/Sub", true},
                 {"..", "Link/Sub", false},
                 {"%1/missing/more", "Link/Sub", false},
                 {"missing/../../outside", "Link/Sub", false},
                 {"../vault2", "Link", false},
                 {"Link", "Link/Sub", false},
                 {"%1/vault/missing", "Link/Sub", true},
                 {"Second/x", "Link", false},
                 {"Third/x", "Link", true},
             }) {
            QFile::remove(path("vault/Link"));
            makeTestLink(QString::fromLatin1(target).replace("%1", m_root), path("vault/Link"));
            // An accepted folder keeps the names of links, those of the vault itself too; nothing is created.
            for (const QString& vault : {path("vault"), path("way")}) {
                const QString wanted = subfolder;
                QCOMPARE(VaultPathResolver::saveDirectory(vault, wanted, "Inbox").value(),
                         vault + u'/' + (isAllowed ? wanted : "Inbox"));
            }
            QVERIFY(!QFileInfo::exists(path("vault/Inbox")) && !QFileInfo::exists(path("vault/Real/Sub")));
        }
    }
    void resolveLinks_followsWhatIsThere()
    {
        // Taking ".." away by its letters would end in the vault; the system goes to the link's target first.
        makeTestLink("../outside/Deep", path("vault/Link"));
        QCOMPARE(resolveLinks(path("vault/Link/../x")), path("outside/x"));
        makeTestLink("b", path("a"));
        makeTestLink("a", path("b"));
        QCOMPARE(resolveLinks(path("a/x")).error(), ELOOP);
        QCOMPARE(resolveLinks(path("vault/") + QString(256, u'x')).error(), ENAMETOOLONG);
        // A target that is no UTF-8, and is a link itself: what its replacement names is not there, and looks harmless.
        const QByteArray odd = QFile::encodeName(path("vault/")) + '\xFF';
        QCOMPARE(::symlink("../outside", odd.constData()), 0);
        QCOMPARE(::symlink("\xFF", qPrintable(path("vault/Odd"))), 0);
        QCOMPARE(resolveLinks(path("vault/Odd")).error(), EILSEQ);
        QCOMPARE(VaultPathResolver::saveDirectory(path("vault"), "Odd", "Inbox").value(), path("vault/Inbox"));
    }

private:
    QString path(const char* name) const { return m_root + u'/' + QString::fromUtf8(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_root;
};

QTEST_GUILESS_MAIN(CoreTest)
#include "CoreTest.moc"
