// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Theme.h>
#include <ui/ThemeScope.h>

#include <QWidget>
#include <QtTest/QTest>

using namespace flitmark;

namespace {

/// The colours a theme is settled by, in the order of the table below.
constexpr std::pair<const char*, ColorToken> tokens[] = {
    {"background", &Theme::background},
    {"primary", &Theme::primary},
    {"accent", &Theme::accent},
    {"text", &Theme::text},
    {"text2", &Theme::text2},
    {"card", &Theme::card},
    {"edge", &Theme::edge},
    {"outline", &Theme::outline},
    {"line", &Theme::line},
    {"sel", &Theme::sel},
    {"mark", &Theme::mark},
    {"fill", &Theme::fill},
    {"fillHover", &Theme::fillHover},
    {"success", &Theme::success},
};

struct Named
{
    QString name;
    Theme theme;
};

QList<Named> allThemes()
{
    QList<Named> result;
    for (const ColorPalette palette : allColorPalettes()) {
        result.append({rawValue(palette), themeOfPalette(palette)});
        result.append({rawValue(palette) + QStringLiteral(" light"), themeOfWindow(palette, Scheme::Light)});
        result.append({rawValue(palette) + QStringLiteral(" dark"), themeOfWindow(palette, Scheme::Dark)});
    }
    return result;
}

} // namespace

class ThemeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void derivesSettledColors_data();
    void derivesSettledColors();
    void keepsContrast_data();
    void keepsContrast();
    void keepsBestColorForMarks();
    void laysColorsOver();
    void scopeIsInheritedAndAnnounced();
};

void ThemeTest::derivesSettledColors_data()
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
    row("forest", themeOfPalette(ColorPalette::forestFocus),
        "#1a1f1c #2d5a3d #8fbc8f #ededed #a8aaa9 #252a27 #484c49 #767977 #407f56 #284231 #8fbc8f #2d5a3d #466e54 "
        "#4a9464");
    row("midnight", themeOfPalette(ColorPalette::midnightClarity),
        "#0f172a #6366f1 #818cf8 #ececee #a4a7ae #1b2335 #3f4555 #6f747f #6366f1 #2d3372 #818cf8 #5e61f1 #5356d4 "
        "#7174f2");
    row("warm", themeOfPalette(ColorPalette::warmMinimal),
        "#1c1917 #78716c #d97706 #ededec #a9a8a7 #272423 #494745 #777574 #78716c #3d3936 #d97706 #78716c #6a635f "
        "#88807b");
    row("window light", themeOfWindow(ColorPalette::obsidianNative, Scheme::Light),
        "#ffffff #7c3aed #7c3aed #141414 #616161 #f6f6f6 #cccccc #8c8c8c #7c3aed #eadffc #7c3aed #7c3aed #8c52ef");
    row("window dark", themeOfWindow(ColorPalette::obsidianNative, Scheme::Dark),
        "#1f1f21 #7c3aed #7c3aed #ededed #aaaaab #2a2a2c #4c4c4e #79797a #8b51ef #46316b #a77bf3 #7c3aed #8c52ef");
}

void ThemeTest::derivesSettledColors()
{
    QFETCH(const Theme, theme);
    QFETCH(const QString, colors);
    const QStringList expected = colors.split(u' ');
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const auto& [name, token] = tokens[i];
        QVERIFY2((theme.*token).name() == expected[i],
                 qPrintable(
                     QStringLiteral("%1 is %2, not %3").arg(QLatin1String(name), (theme.*token).name(), expected[i])));
    }
}

void ThemeTest::keepsContrast_data()
{
    QTest::addColumn<Theme>("theme");
    for (const Named& named : allThemes()) {
        QTest::newRow(qPrintable(named.name)) << named.theme;
    }
}

void ThemeTest::keepsContrast()
{
    QFETCH(const Theme, theme);
    const auto check = [](const char* what, const QColor& color, const QColor& ground, double least) {
        const double found = contrast(color, ground);
        QVERIFY2(found >= least,
                 qPrintable(QStringLiteral("%1: %2 on %3 has %4")
                                .arg(QLatin1String(what), color.name(), ground.name(), QString::number(found))));
    };
    for (const QColor& ground : {theme.background, theme.card}) {
        for (const ColorToken token : {&Theme::text, &Theme::text2, &Theme::mark, &Theme::red}) {
            check("text", theme.*token, ground, 4.5);
        }
        for (const ColorToken token : {&Theme::line, &Theme::outline, &Theme::green, &Theme::orange}) {
            check("line", theme.*token, ground, 3);
        }
        for (const QColor& layer : {theme.hover, theme.press}) {
            check("text on a soft control", theme.text, over(over(ground, theme.soft), layer), 4.5);
        }
    }
    for (const QColor& layer : {QColor(Qt::transparent), theme.hover, theme.press}) {
        check("text on a selection", theme.text, over(theme.sel, layer), 4.5);
        check("second line on a selection", theme.selText2, over(theme.sel, layer), 4.5);
    }
    check("icon on a selection", theme.selMark, theme.sel, 4.5);
    check("badge", theme.badgeText, theme.badge, 4.5);
    for (const ColorToken token : {&Theme::fill, &Theme::fillHover, &Theme::fillPress, &Theme::offFill}) {
        check("white label", Qt::white, theme.*token, 4.5);
    }
    for (const ColorToken token : {&Theme::info, &Theme::success}) {
        check("status", theme.*token, theme.background, 4.5);
    }
}

void ThemeTest::keepsBestColorForMarks()
{
    // A grey primary says nothing: the accent speaks. Where both say as much, the primary does.
    const Theme warm = themeOfPalette(ColorPalette::warmMinimal);
    QCOMPARE(warm.mark, warm.accent);
    const Theme even = deriveTheme({1, 1, 1}, {0, 0, 0.5}, {0, 0, 0.5});
    QCOMPARE(even.mark, even.primary);
    // The ends of the scale: nothing can be darker than black, and the search for more contrast ends there.
    const Theme black = deriveTheme({0, 0, 0}, {0, 0, 0}, {0, 0, 0});
    QVERIFY(black.isDark);
    QVERIFY(contrast(black.mark, black.card) >= 4.5);
}

void ThemeTest::laysColorsOver()
{
    QCOMPARE(over(Qt::white, QColor(0, 0, 0, 51)).name(), QStringLiteral("#cccccc"));
    QCOMPARE(mix(Qt::black, Qt::white, 0.5).name(), QStringLiteral("#808080"));
    QCOMPARE(mix(QColor(0, 0, 0, 0), QColor(0, 0, 0, 100), 0.25).alpha(), 25);
    QVERIFY(qFuzzyCompare(contrast(Qt::black, Qt::white), 21.0));
}

namespace {

class Listener final : public QWidget
{
public:
    using QWidget::QWidget;
    int changes = 0;

protected:
    bool event(QEvent* event) override
    {
        changes += event->type() == ThemeScope::changeEvent() ? 1 : 0;
        return QWidget::event(event);
    }
};

} // namespace

void ThemeTest::scopeIsInheritedAndAnnounced()
{
    const Theme forest = themeOfPalette(ColorPalette::forestFocus);
    const Theme calm = themeOfPalette(ColorPalette::calmProductivity);
    auto panel = std::make_unique<Listener>();
    Listener row(panel.get());
    Listener sheet(panel.get());
    Listener button(&sheet);
    QCOMPARE(ThemeScope::of(button), themeOfPalette(ColorPalette::obsidianNative));

    ThemeScope::set(*panel, forest);
    ThemeScope::set(sheet, calm);
    QCOMPARE(ThemeScope::of(row), forest);
    QCOMPARE(ThemeScope::of(button), calm);
    QCOMPARE(row.changes, 1);
    QCOMPARE(button.changes, 2);

    ThemeScope::set(*panel, forest);
    QCOMPARE(row.changes, 1);

    // A widget made where a scoped one was must not find the old theme.
    row.setParent(nullptr);
    sheet.setParent(nullptr);
    panel.reset();
    QCOMPARE(ThemeScope::of(row), themeOfPalette(ColorPalette::obsidianNative));
}

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
