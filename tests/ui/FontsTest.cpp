// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Fonts.h>
#include <ui/Symbols.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QtTest/QTest>

using namespace flitmark;

class FontsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QGuiApplication::setFont(m_font); }

    void scalesWithDesktop_data()
    {
        QTest::addColumn<double>("points");
        QTest::addColumn<double>("scale");
        QTest::newRow("smallest usual font") << 9.0 << 1.0;
        QTest::newRow("largest usual font") << 11.0 << 1.0;
        QTest::newRow("half as large again") << 16.5 << 1.5;
        QTest::newRow("absurdly large") << 200.0 << 3.0;
        QTest::newRow("absurdly small") << 1.0 << 0.75;
    }
    void scalesWithDesktop()
    {
        QFETCH(const double, points);
        QFETCH(const double, scale);
        QFont font = m_font;
        font.setPointSizeF(points);
        QGuiApplication::setFont(font);
        QCOMPARE(textScale(), scale);
        QCOMPARE(fontOf(TextRole::Body).pixelSize(), qRound(13 * scale));
        QCOMPARE(controlHeight(), qRound(20 * scale) + 12);
        font.setPixelSize(qRound(points * 96 / 72));
        QGuiApplication::setFont(font);
        QVERIFY(qAbs(textScale() - scale) < 0.06);
    }

    void findsEmoji_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("found");
        QTest::addColumn<int>("preferred");
        QTest::newRow("none") << QStringLiteral("Plain #1 text*") << QString() << 0;
        QTest::newRow("tomatoes") << QStringLiteral("Write 🍅🍅") << QStringLiteral("6+2 8+2") << 2;
        QTest::newRow("key signs are text") << QStringLiteral("⌥N ✓ →") << QString() << 3;
        QTest::newRow("heart as text and as emoji") << QStringLiteral("❤ ❤️") << QStringLiteral("2+2") << 2;
        QTest::newRow("emoji told to be text") << QStringLiteral("☔︎") << QString() << 0;
        QTest::newRow("flag, skin tone, keycap")
            << QStringLiteral("🇩🇪 👍🏽 1️⃣") << QStringLiteral("0+2 2+2 5+4 10+3") << 4;
        QTest::newRow("family joined") << QStringLiteral("👩‍👧x") << QStringLiteral("0+5") << 1;
        QTest::newRow("joiner at the end") << QStringLiteral("🍅‍") << QStringLiteral("0+2") << 1;
    }
    void findsEmoji()
    {
        QFETCH(const QString, text);
        const QFont font = fontOf(TextRole::Body);
        QStringList found;
        for (const QTextLayout::FormatRange& format : emojiFormats(text, font)) {
            found.append(QStringLiteral("%1+%2").arg(format.start).arg(format.length));
        }
        QTEST(found.join(u' '), "found");
        QTEST(int(emojiFormats(text, font, EmojiStyle::Preferred).size()), "preferred");
    }
    void drawsEmojiInColor()
    {
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        QTextLayout layout(QStringLiteral("❤️"), fontOf(TextRole::Display));
        layout.setFormats(emojiFormats(layout.text(), layout.font()));
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        layout.draw(&painter, QPointF(4, 4));
        float saturation = 0;
        for (int pixel = 0; pixel < 1600; ++pixel) {
            saturation = std::max(saturation, image.pixelColor(pixel % 40, pixel / 40).saturationF());
        }
        QVERIFY(saturation > 0.4F);
    }

    void hasEverySymbol()
    {
        for (const QString& name : Symbols::names()) {
            const QRectF bounds = Symbols::path(name).boundingRect();
            QVERIFY2(QRectF(0, 0, 1, 1).contains(bounds), qPrintable(name));
            QVERIFY2(bounds.width() > 0.2 && bounds.height() > 0.1, qPrintable(name));
        }
        QVERIFY(Symbols::path(QStringLiteral("no.such.symbol")).isEmpty());
        // The arrow points to the right; the ring is hollow, and the pencil lies inside it.
        const auto isInked = [](const char* name, double x, double y) {
            return Symbols::path(QLatin1String(name)).contains(QPointF(x, y));
        };
        QVERIFY(isInked("arrow.right.circle", 0.64, 0.51) && !isInked("arrow.right.circle", 0.25, 0.51));
        QVERIFY(isInked("pencil.circle", 0.5, 0.5) && !isInked("circle", 0.5, 0.5));
    }

private:
    const QFont m_font = QGuiApplication::font();
};

QTEST_MAIN(FontsTest)
#include "FontsTest.moc"
