// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Fonts.h>
#include <ui/Symbols.h>
#include <ui/Theme.h>
#include <ui/ThemeScope.h>

#include <QPainter>
#include <QWidget>
#include <QtTest/QTest>

using namespace flitmark;

class LookTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QGuiApplication::setFont(m_font); }

    void scalesWithDesktop()
    {
        // Usual sizes, half as large again, and absurd ones.
        for (const auto& [points, scale] : {std::pair(9.0, 1.0), {11.0, 1.0}, {16.5, 1.5}, {200.0, 3.0}, {1.0, 0.75}}) {
            QFont font = m_font;
            font.setPointSizeF(points);
            QGuiApplication::setFont(font);
            QCOMPARE(fontOf(TextRole::Body).pixelSize(), qRound(13 * scale));
            font.setPixelSize(qRound(points * 96 / 72));
            QGuiApplication::setFont(font);
            QVERIFY(qAbs(textScale() - scale) < 0.06);
        }
    }

    void spacesAndDigits_areTheTextFontsOwn()
    {
        const QFontMetricsF metrics(fontOf(TextRole::Body));
        QVERIFY(metrics.horizontalAdvance(u' ') < metrics.horizontalAdvance(u'n'));
        QVERIFY(metrics.horizontalAdvance(u'0') < metrics.horizontalAdvance(u'm'));
    }

    void findsEmoji()
    {
        for (const auto& [text, expected, preferred] : {
                 std::tuple("Plain #1 text*", "", 0),
                 {"Write 🍅🍅", "6+2 8+2", 2},
                 // Key signs are text, and so is a heart unless it is told to be an emoji, or the contrary.
                 {"⌥N ✓ →", "", 3},
                 {"❤ ❤️", "2+2", 2},
                 {"☔︎", "", 0},
                 {"🇩🇪 👍🏽 1️⃣", "0+2 2+2 5+4 10+3", 4},
                 // A family joined; a joiner at the end.
                 {"👩‍👧x", "0+5", 1},
                 {"🍅‍", "0+2", 1},
             }) {
            const QFont font = fontOf(TextRole::Body);
            QStringList found;
            for (const QTextLayout::FormatRange& format : emojiFormats(text, font)) {
                found.append(QStringLiteral("%1+%2").arg(format.start).arg(format.length));
            }
            QCOMPARE(found.join(u' '), expected);
            QCOMPARE(emojiFormats(text, font, EmojiStyle::Preferred).size(), preferred);
        }
    }
    void drawsEmojiInColor()
    {
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        QTextLayout layout("❤️", fontOf(TextRole::Display));
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
        QVERIFY(Symbols::path("no.such.symbol").isEmpty());
    }

    void keepsContrast()
    {
        // Nothing can be darker than black: the search for more contrast ends there.
        QList<Theme> themes{deriveTheme({0, 0, 0}, {0, 0, 0}, {0, 0, 0})};
        for (const ColorPalette palette : allColorPalettes()) {
            themes << themeOfPalette(palette) << themeOfWindow(palette, Scheme::Light)
                   << themeOfWindow(palette, Scheme::Dark);
        }
        const auto check = [](const char* what, const QColor& color, const QColor& ground, double least = 4.5) {
            QVERIFY2(contrast(color, ground) >= least,
                     qPrintable(QLatin1String(what) + u' ' + color.name() + u' ' + ground.name()));
        };
        for (const Theme& theme : themes) {
            for (const QColor& ground : {theme.background, theme.card}) {
                for (const ColorToken token : {&Theme::text, &Theme::text2, &Theme::mark, &Theme::red}) {
                    check("text", theme.*token, ground);
                }
                for (const ColorToken token : {&Theme::line, &Theme::outline, &Theme::green, &Theme::orange}) {
                    check("line", theme.*token, ground, 3);
                }
            }
            for (const QColor& layer : {QColor(Qt::transparent), theme.hover, theme.press}) {
                check("on a selection", theme.text, over(theme.sel, layer));
                check("second line on a selection", theme.selText2, over(theme.sel, layer));
                check("on a soft control", theme.text, over(over(theme.background, theme.soft), layer));
                check("on a soft control of a card", theme.text, over(over(theme.card, theme.soft), layer));
            }
            check("icon on a selection", theme.selMark, theme.sel);
            check("badge", theme.badgeText, theme.badge);
            for (const ColorToken token : {&Theme::fill, &Theme::fillHover, &Theme::fillPress, &Theme::offFill}) {
                check("white label", Qt::white, theme.*token);
            }
            check("info", theme.info, theme.background);
            check("success", theme.success, theme.background);
        }
    }
    void scopeIsInherited()
    {
        const Theme usual = themeOfPalette(ColorPalette::obsidianNative);
        const Theme calm = themeOfPalette(ColorPalette::calmProductivity);
        auto panel = std::make_unique<QWidget>();
        QWidget row(panel.get());
        QWidget button(&row);
        QCOMPARE(ThemeScope::of(button), usual);
        ThemeScope::set(*panel, calm);
        QCOMPARE(ThemeScope::of(button), calm);
        // A widget made where a scoped one was must not find the old theme.
        row.setParent(nullptr);
        panel.reset();
        QCOMPARE(ThemeScope::of(button), usual);
    }

private:
    const QFont m_font = QGuiApplication::font();
};

QTEST_MAIN(LookTest)
#include "LookTest.moc"
