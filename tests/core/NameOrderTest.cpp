// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/NameOrder.h>

#include <QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>

using namespace flitmark;

class NameOrderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void order_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("ascending");
        const auto row = [](const char* name, const QLocale& locale, const char* ascending) {
            QTest::newRow(name) << locale << QString::fromUtf8(ascending);
        };
        row("case ignored", QLocale::English, "apple|Apple-b|apple-C|banana|Cherry");
        row("equal but for the case", QLocale::English, "NOTE.md|Note.md|note.md");
        row("prefix first", QLocale::English, "|note|note 1|notebook");
        row("eight characters and more", QLocale::English,
            "12345678|123456781234567|1234567812345678|12345678123456780|123456789");
        row("umlauts among their letters", QLocale::English, "Ahorn|Äpfel|Birne|Öl|Zaun");
        row("umlauts after z", QLocale::Swedish, "Ahorn|Birne|Zaun|Äpfel");
        row("a letter written as two", QLocale::Czech, "cizi|hora|chata|ihned");
        row("no language", QLocale::c(), "Apple|banana|Cherry|Äpfel|äpfel-2");
    }
    void order()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, ascending);
        const NameOrder order(locale);
        QStringList names = ascending.split(u'|');
        do {
            QCOMPARE(sorted(names, order).join(u'|'), ascending);
        } while (std::next_permutation(names.begin(), names.end()));
    }
    void sameOrderAsTheCollator()
    {
        const QString letters = QStringLiteral("aAbBcCdDhHlLnNvVwWyYzZ019 -_.,'#(~äÄéØчЧ漢💡\t");
        QRandomGenerator random(20260122);
        QStringList all;
        for (int i = 0; i < 3000; ++i) {
            QString name = i % 3 == 0 ? QStringLiteral("2026-01-22--") : QString();
            for (int length = random.bounded(8); length >= 0; --length) {
                // Three of four names are plain.
                name += letters[random.bounded(i % 4 == 0 ? letters.size() : 34)];
            }
            all.append(name);
        }
        const QList<QLocale> withRanks = {QLocale::English, QLocale::German, QLocale::Japanese, QLocale::c()};
        for (const QLocale& locale : withRanks + QList<QLocale>{QLocale::Czech, QLocale::Danish}) {
            QCOMPARE(NameOrder(locale).hasRanks(), withRanks.contains(locale));
            QCollator collator(locale);
            collator.setCaseSensitivity(Qt::CaseInsensitive);
            const QStringList names = sorted(all, NameOrder(locale));
            QCOMPARE(names.size(), all.size());
            for (qsizetype i = 1; i < names.size(); ++i) {
                const int order = collator.compare(names[i - 1], names[i]);
                QVERIFY2(order < 0 || (order == 0 && names[i - 1] <= names[i]), qPrintable(names[i]));
            }
        }
    }

private:
    static QStringList sorted(const QStringList& names, const NameOrder& order)
    {
        QStringList result;
        for (const qsizetype position : order.sorted({names.begin(), names.end()})) {
            result.append(names[position]);
        }
        return result;
    }
};

QTEST_APPLESS_MAIN(NameOrderTest)
#include "NameOrderTest.moc"
