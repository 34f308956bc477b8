// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Theme.h>
#include <ui/ThemeScope.h>

#include <QWidget>
#include <QtTest/QTest>

using namespace flitmark;

class ThemeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void derivesSettledColors_data()
    {
        QTest::addColumn<Theme>("theme");
        QTest::addColumn<QString>("colors");
        const auto row = [](const char* name, const Theme& theme, const char* colors) {
            QTest::newRow(name) << theme << QString::fromLatin1(colors);
        };
        row("obsidian", themeOfPalette(ColorPalette::obsidianNative),
            "#2d2d2d #7c3aed #a78bfa #eeeeee #b7b7b7 #373737 #575757 #818181 #9864f1 #534173 #ab90fa #7c3aed #8c52ef "
            "#ab80f3");
        row("calm", themeOfPalette(ColorPalette::calmProductivity),
            "#ffffff #37352f #9b9a97 #141414 #616161 #f6f6f6 #cccccc #8c8c8c #37352f #dfdfde #37352f #37352f #4f4d48 "
            "#37352f");
        row("warm", themeOfPalette(ColorPalette::warmMinimal),
            "#1c1917 #78716c #d97706 #ededec #a9a8a7 #272423 #494745 #777574 #78716c #3d3936 #d97706 #78716c #6a635f "
            "#88807b");
        row("window dark", themeOfWindow(ColorPalette::obsidianNative, Scheme::Dark),
            "#1f1f21 #7c3aed #7c3aed #ededed #aaaaab #2a2a2c #4c4c4e #79797a #8b51ef #46316b #a77bf3 #7c3aed #8c52ef");
    }
    void derivesSettledColors()
    {
        QFETCH(const Theme, theme);
        QFETCH(const QString, colors);
        QStringList found;
        for (const ColorToken token : {&Theme::background, &Theme::primary, &Theme::accent, &Theme::text, &Theme::text2,
                                       &Theme::card, &Theme::edge, &Theme::outline, &Theme::line, &Theme::sel,
                                       &Theme::mark, &Theme::fill, &Theme::fillHover, &Theme::success}) {
            found.append((theme.*token).name());
        }
        const QStringList expected = colors.split(u' ');
        QCOMPARE(found.first(expected.size()), expected);
    }

    void keepsContrast_data()
    {
        QTest::addColumn<Theme>("theme");
        for (const ColorPalette palette : allColorPalettes()) {
            const QByteArray name = rawValue(palette).toUtf8();
            QTest::newRow(name) << themeOfPalette(palette);
            QTest::newRow(name + " light") << themeOfWindow(palette, Scheme::Light);
            QTest::newRow(name + " dark") << themeOfWindow(palette, Scheme::Dark);
        }
        // Nothing can be darker than black: the search for more contrast ends there.
        QTest::newRow("black") << deriveTheme({0, 0, 0}, {0, 0, 0}, {0, 0, 0});
    }
    void keepsContrast()
    {
        QFETCH(const Theme, theme);
        const auto check = [](const char* what, const QColor& color, const QColor& ground, double least = 4.5) {
            QVERIFY2(contrast(color, ground) >= least,
                     qPrintable(QLatin1String(what) + u' ' + color.name() + u' ' + ground.name()));
        };
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
    void primaryMarksWhereBothSayAsMuch()
    {
        const Theme even = deriveTheme({1, 1, 1}, {0, 0, 0.5}, {0, 0, 0.5});
        QCOMPARE(even.mark, even.primary);
        QCOMPARE(mix(QColor(0, 0, 0, 0), QColor(0, 0, 0, 100), 0.25).alpha(), 25);
    }

    void scopeIsInherited()
    {
        const Theme forest = themeOfPalette(ColorPalette::forestFocus);
        const Theme calm = themeOfPalette(ColorPalette::calmProductivity);
        auto panel = std::make_unique<QWidget>();
        QWidget row(panel.get());
        QWidget sheet(panel.get());
        QWidget button(&sheet);
        QCOMPARE(ThemeScope::of(button), themeOfPalette(ColorPalette::obsidianNative));

        ThemeScope::set(*panel, forest);
        ThemeScope::set(sheet, calm);
        QCOMPARE(ThemeScope::of(row), forest);
        QCOMPARE(ThemeScope::of(button), calm);

        // A widget made where a scoped one was must not find the old theme.
        row.setParent(nullptr);
        sheet.setParent(nullptr);
        panel.reset();
        QCOMPARE(ThemeScope::of(row), themeOfPalette(ColorPalette::obsidianNative));
    }
};

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
