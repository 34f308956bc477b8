// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/NameOrder.h>

#include <QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>

namespace flitmark {

namespace {

QStringList sorted(const QStringList& names, const NameOrder& order)
{
    QStringList result;
    for (const qsizetype position : order.sorted({names.begin(), names.end()})) {
        result.append(names[position]);
    }
    return result;
}

/// Names of up to 20 characters, many with a common beginning, some with letters beyond ASCII.
QStringList randomNames(qsizetype count)
{
    QRandomGenerator random(20260122);
    const QString plain = QStringLiteral("aAbBcCdDhHlLnNvVwWyYzZ019 -_.,'#(~");
    const QString beyond = plain + QStringLiteral("äÄéØчЧ漢💡\t");
    QStringList names;
    for (qsizetype i = 0; i < count; ++i) {
        const QString& letters = i % 4 == 0 ? beyond : plain;
        QString name = i % 3 == 0 ? QStringLiteral("2026-01-22--") : QString();
        for (int length = random.bounded(8); length >= 0; --length) {
            name += letters[random.bounded(letters.size())];
        }
        names.append(name);
    }
    return names;
}

} // namespace

class NameOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
    void sameOrderAsTheCollator_data();
    void sameOrderAsTheCollator();
};

void NameOrderTest::order_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("ascending");

    const QLocale english(QLocale::English);
    QTest::newRow("case ignored") << english
                                  << QStringList{QStringLiteral("apple"), QStringLiteral("Apple-b"),
                                                 QStringLiteral("apple-C"), QStringLiteral("banana"),
                                                 QStringLiteral("Cherry")};
    QTest::newRow("equal but for the case")
        << english << QStringList{QStringLiteral("NOTE.md"), QStringLiteral("Note.md"), QStringLiteral("note.md")};
    QTest::newRow("prefix first") << english
                                  << QStringList{QStringLiteral(""), QStringLiteral("note"), QStringLiteral("note 1"),
                                                 QStringLiteral("notebook")};
    QTest::newRow("eight characters and more")
        << english
        << QStringList{QStringLiteral("12345678"), QStringLiteral("123456781234567"),
                       QStringLiteral("1234567812345678"), QStringLiteral("12345678123456780"),
                       QStringLiteral("123456789")};
    QTest::newRow("umlauts among their letters")
        << english
        << QStringList{QStringLiteral("Ahorn"), QStringLiteral("Äpfel"), QStringLiteral("Birne"), QStringLiteral("Öl"),
                       QStringLiteral("Zaun")};
    QTest::newRow("umlauts after z") << QLocale(QLocale::Swedish)
                                     << QStringList{QStringLiteral("Ahorn"), QStringLiteral("Birne"),
                                                    QStringLiteral("Zaun"), QStringLiteral("Äpfel")};
    QTest::newRow("a letter written as two") << QLocale(QLocale::Czech)
                                             << QStringList{QStringLiteral("cizi"), QStringLiteral("hora"),
                                                            QStringLiteral("chata"), QStringLiteral("ihned")};
    QTest::newRow("no language") << QLocale::c()
                                 << QStringList{QStringLiteral("Apple"), QStringLiteral("banana"),
                                                QStringLiteral("Cherry"), QStringLiteral("Äpfel"),
                                                QStringLiteral("äpfel-2")};
}

void NameOrderTest::order()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, ascending);
    const NameOrder order(locale);
    QStringList names = ascending;
    do {
        QCOMPARE(sorted(names, order), ascending);
    } while (std::next_permutation(names.begin(), names.end()));
}

void NameOrderTest::sameOrderAsTheCollator_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("hasRanks");

    QTest::newRow("English") << QLocale(QLocale::English) << true;
    QTest::newRow("German") << QLocale(QLocale::German) << true;
    QTest::newRow("Czech") << QLocale(QLocale::Czech) << false;
    QTest::newRow("Danish") << QLocale(QLocale::Danish) << false;
    QTest::newRow("Hungarian") << QLocale(QLocale::Hungarian) << false;
    QTest::newRow("Estonian") << QLocale(QLocale::Estonian) << true;
    QTest::newRow("Japanese") << QLocale(QLocale::Japanese) << true;
    QTest::newRow("none") << QLocale::c() << true;
}

void NameOrderTest::sameOrderAsTheCollator()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, hasRanks);
    const NameOrder nameOrder(locale);
    QCOMPARE(nameOrder.hasRanks(), hasRanks);
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const QStringList names = sorted(randomNames(3000), nameOrder);
    QCOMPARE(names.size(), 3000);
    for (qsizetype i = 1; i < names.size(); ++i) {
        const int order = collator.compare(names[i - 1], names[i]);
        QVERIFY2(order < 0 || (order == 0 && names[i - 1] <= names[i]),
                 qPrintable(names[i - 1] + QStringLiteral(" | ") + names[i]));
    }
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::NameOrderTest)
#include "NameOrderTest.moc"
