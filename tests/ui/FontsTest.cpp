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
    void scalesWithDesktop_data();
    void scalesWithDesktop();
    void findsEmoji_data();
    void findsEmoji();
    void drawsEmojiInColor();
    void hasEverySymbol();
    void composesSymbols();
    void drawsSymbolsWhereAsked();

private:
    const QFont m_font = QGuiApplication::font();
};

void FontsTest::scalesWithDesktop_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<double>("scale");
    QTest::newRow("smallest usual font") << 9.0 << 1.0;
    QTest::newRow("largest usual font") << 11.0 << 1.0;
    QTest::newRow("half as large again") << 16.5 << 1.5;
    QTest::newRow("smaller") << 7.2 << 0.8;
    QTest::newRow("absurdly large") << 200.0 << 3.0;
    QTest::newRow("absurdly small") << 1.0 << 0.75;
}

void FontsTest::scalesWithDesktop()
{
    QFETCH(const double, points);
    QFETCH(const double, scale);
    QFont font = m_font;
    font.setPointSizeF(points);
    QGuiApplication::setFont(font);
    QVERIFY2(qFuzzyCompare(textScale(), scale), qPrintable(QString::number(textScale())));
    QCOMPARE(fontOf(TextRole::Body).pixelSize(), qRound(13 * scale));
    QCOMPARE(rowHeight(TextRole::Note), qRound(24 * scale));
    QCOMPARE(controlHeight(), qRound(20 * scale) + 12);

    font.setPixelSize(qRound(points * 96 / 72));
    QGuiApplication::setFont(font);
    QVERIFY(qAbs(textScale() - scale) < 0.06);
}

void FontsTest::findsEmoji_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("starts");
    QTest::addColumn<QList<int>>("lengths");
    QTest::addColumn<int>("preferred");
    QTest::newRow("none") << QStringLiteral("Plain #1 text*") << QList<int>{} << QList<int>{} << 0;
    QTest::newRow("tomatoes") << QStringLiteral("Write 🍅🍅") << QList<int>{6, 8} << QList<int>{2, 2} << 2;
    QTest::newRow("key signs are text") << QStringLiteral("⌥N ✓ →") << QList<int>{} << QList<int>{} << 3;
    QTest::newRow("heart as text and as emoji") << QStringLiteral("❤ ❤️") << QList<int>{2} << QList<int>{2} << 2;
    QTest::newRow("emoji told to be text") << QStringLiteral("☔︎") << QList<int>{} << QList<int>{} << 0;
    QTest::newRow("flag, skin tone, keycap")
        << QStringLiteral("🇩🇪 👍🏽 1️⃣") << QList<int>{0, 2, 5, 10} << QList<int>{2, 2, 4, 3} << 4;
    QTest::newRow("family joined") << QStringLiteral("👩‍👧x") << QList<int>{0} << QList<int>{5} << 1;
    QTest::newRow("joiner at the end") << QStringLiteral("🍅‍") << QList<int>{0} << QList<int>{2} << 1;
}

void FontsTest::findsEmoji()
{
    QFETCH(const QString, text);
    QFETCH(const QList<int>, starts);
    QFETCH(const QList<int>, lengths);
    QFETCH(const int, preferred);
    QList<int> foundStarts;
    QList<int> foundLengths;
    for (const QTextLayout::FormatRange& format : emojiFormats(text, fontOf(TextRole::Body))) {
        foundStarts.append(format.start);
        foundLengths.append(format.length);
    }
    QCOMPARE(foundStarts, starts);
    QCOMPARE(foundLengths, lengths);
    QCOMPARE(emojiFormats(text, fontOf(TextRole::Body), EmojiStyle::Preferred).size(), preferred);
}

void FontsTest::hasEverySymbol()
{
    for (const QString& name : Symbols::names()) {
        QVERIFY2(Symbols::contains(name), qPrintable(name));
        const QRectF bounds = Symbols::path(name).boundingRect();
        QVERIFY2(QRectF(0, 0, 1, 1).contains(bounds), qPrintable(name));
        QVERIFY2(bounds.width() > 0.2 && bounds.height() > 0.1, qPrintable(name));
    }
    QVERIFY(!Symbols::contains(QStringLiteral("no.such.symbol")));
    QVERIFY(Symbols::path(QStringLiteral("no.such.symbol")).isEmpty());
}

void FontsTest::composesSymbols()
{
    // The arrow points up in the one and to the right in the other; the ring's pencil lies inside the ring.
    const QPointF up = Symbols::path(QStringLiteral("arrow.up.circle.fill")).boundingRect().center();
    const QPointF right = Symbols::path(QStringLiteral("arrow.right.circle")).boundingRect().center();
    QVERIFY((up - right).manhattanLength() < 0.01);
    const auto isInked = [](const char* name, double x, double y) {
        return Symbols::path(QLatin1String(name)).contains(QPointF(x, y));
    };
    for (const QPointF point : {QPointF(0.51, 0.36), QPointF(0.51, 0.62), QPointF(0.63, 0.52), QPointF(0.38, 0.53)}) {
        QCOMPARE(isInked("arrow.right.circle", 1 - point.y(), point.x()),
                 isInked("arrow.up.circle.fill", point.x(), point.y()));
    }
    QVERIFY(isInked("arrow.right.circle", 0.64, 0.51));
    QVERIFY(!isInked("arrow.right.circle", 0.25, 0.51));
    QVERIFY(!isInked("circle", 0.5, 0.5));
    QVERIFY(isInked("pencil.circle", 0.5, 0.5));
}

namespace {

QImage paint(const std::function<void(QPainter&)>& draw)
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    return image;
}

QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != Qt::white) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

} // namespace

void FontsTest::drawsSymbolsWhereAsked()
{
    const QRect square(8, 4, 24, 24);
    const QImage image = paint([&](QPainter& painter) {
        Symbols::draw(painter, QStringLiteral("checkmark.circle.fill"), square, QColor(200, 0, 0));
    });
    const QRect ink = inkOf(image);
    QVERIFY(square.contains(ink));
    QVERIFY(ink.width() >= 19 && ink.height() >= 19);
    QCOMPARE(image.pixelColor(12, 14), QColor(200, 0, 0));
}

void FontsTest::drawsEmojiInColor()
{
    for (const char* emoji : {"🍅", "❤️", "☑️"}) {
        const QImage image = paint([&](QPainter& painter) {
            QTextLayout layout(QString::fromUtf8(emoji), fontOf(TextRole::Display));
            layout.setFormats(emojiFormats(layout.text(), layout.font()));
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
            layout.draw(&painter, QPointF(4, 4));
        });
        double saturation = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                saturation = std::max(saturation, double(image.pixelColor(x, y).saturationF()));
            }
        }
        QVERIFY2(saturation > 0.4, emoji);
    }
}

QTEST_MAIN(FontsTest)
#include "FontsTest.moc"
