// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/ChipButton.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/ScrollArea.h>
#include <ui/SegmentedTabs.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest/QTest>

using namespace flitmark;

namespace {

RowContent rowContent(const QString& title, const QString& second = {})
{
    RowContent content;
    content.symbol = QStringLiteral("folder.fill");
    content.title = title;
    content.second = second;
    return content;
}

/// A window with `widgets` in a column, shown and active.
std::unique_ptr<QWidget> windowOf(const QList<QWidget*>& widgets)
{
    auto window = std::make_unique<Ground>();
    auto* column = new QVBoxLayout(window.get());
    for (QWidget* widget : widgets) {
        column->addWidget(widget);
    }
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) {
        qWarning("The window did not become active.");
    }
    return window;
}

bool showsColor(QWidget& widget, const QColor& color)
{
    const QImage image = widget.grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).rgb() == color.rgb()) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class ComponentsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { motion::set(motion::Setting::Never); }
    void cleanup() { QApplication::setFont(m_font); }
    void speaksToScreenReaders_data();
    void speaksToScreenReaders();
    void keysPressButtons_data();
    void keysPressButtons();
    void ringIsForTheKeyboard();
    void answersToThePointer();
    void glidesBetweenStates();
    void tabsCheckOneAtATime();
    void arrowsWalkRowsAndTabs();
    void clickAnywhereChooses();
    void labelKeepsRows_data();
    void labelKeepsRows();
    void labelCutsWhatIsTooWide();
    void controlsGrowWithTexts();
    void fieldFollowsItsTheme();
    void scrollBarAppearsWithOverflow();
    void focusScrollsIntoView();

private:
    const QFont m_font = QApplication::font();
};

void ComponentsTest::speaksToScreenReaders_data()
{
    QTest::addColumn<QWidget*>("widget");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("description");
    const auto row = [](const char* what, QWidget* widget, QAccessible::Role role, const char* name,
                        const char* description = "") {
        QTest::newRow(what) << widget << int(role) << QString::fromUtf8(name) << QString::fromUtf8(description);
    };
    row("button", new Button(QStringLiteral("Save")), QAccessible::Button, "Save");
    row("ampersand", new Button(QStringLiteral("R&D & more")), QAccessible::Button, "R&D & more");
    row("icon button", new IconButton(QStringLiteral("Settings")), QAccessible::Button, "Settings");
    row("quick tag", new ChipButton(QStringLiteral("🔥"), QStringLiteral("#a & b")), QAccessible::CheckBox, "#a & b");
    row("check box", new CheckBox(QStringLiteral("Use it")), QAccessible::CheckBox, "Use it");
    row("list row", new ListRow(rowContent(QStringLiteral("Q&A"), QStringLiteral("/home/mara/Q&A"))),
        QAccessible::RadioButton, "Q&A", "/home/mara/Q&A");
    row("action row", new ActionRow(rowContent(QStringLiteral("On track"), QStringLiteral("+1 pomodoro"))),
        QAccessible::Button, "On track", "+1 pomodoro");
    row("field", new TextField(QStringLiteral("Vault path")), QAccessible::EditableText, "Vault path");
    row("label", new Label(QStringLiteral("4 words & a tag")), QAccessible::StaticText, "4 words & a tag");
    row("badge", new Badge(QStringLiteral("Default")), QAccessible::StaticText, "Default");
}

void ComponentsTest::speaksToScreenReaders()
{
    QFETCH(QWidget*, widget);
    QFETCH(const int, role);
    QFETCH(const QString, name);
    QFETCH(const QString, description);
    const std::unique_ptr<QWidget> owner(widget);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(interface != nullptr);
    QCOMPARE(int(interface->role()), role);
    QCOMPARE(interface->text(QAccessible::Name), name);
    // Where nothing else is said the tooltip is, which repeats the name.
    QCOMPARE(interface->text(QAccessible::Description), description.isEmpty() ? widget->toolTip() : description);
}

void ComponentsTest::keysPressButtons_data()
{
    QTest::addColumn<QAbstractButton*>("button");
    QTest::addColumn<QList<int>>("keys");
    const QList<int> allKeys{Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter};
    QTest::newRow("button") << static_cast<QAbstractButton*>(new Button(QStringLiteral("Save"))) << allKeys;
    QTest::newRow("icon button") << static_cast<QAbstractButton*>(new IconButton(QStringLiteral("Close"))) << allKeys;
    QTest::newRow("action row") << static_cast<QAbstractButton*>(new ActionRow(rowContent(QStringLiteral("Snooze"))))
                                << allKeys;
    // Return belongs to the view a check box stands in.
    QTest::newRow("quick tag") << static_cast<QAbstractButton*>(
                                      new ChipButton(QStringLiteral("🔥"), QStringLiteral("#tag")))
                               << QList<int>{Qt::Key_Space};
    QTest::newRow("check box") << static_cast<QAbstractButton*>(new CheckBox(QStringLiteral("Use it")))
                               << QList<int>{Qt::Key_Space};
}

void ComponentsTest::keysPressButtons()
{
    QFETCH(QAbstractButton*, button);
    QFETCH(const QList<int>, keys);
    const auto window = windowOf({button});
    button->setFocus();
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        clicks.clear();
        QTest::keyClick(button, Qt::Key(key));
        QCOMPARE(clicks.count(), keys.contains(key) ? 1 : 0);
    }
    button->setEnabled(false);
    clicks.clear();
    QTest::keyClick(button, Qt::Key_Space);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks.count(), 0);
}

void ComponentsTest::ringIsForTheKeyboard()
{
    auto* first = new Button(QStringLiteral("Back"));
    auto* second = new IconButton(QStringLiteral("Settings"));
    const auto window = windowOf({first, second});
    const QColor ring = ThemeScope::of(*first).mark;

    QTest::mouseClick(first, Qt::LeftButton);
    first->setFocus(Qt::MouseFocusReason);
    QVERIFY(!showsColor(*first, ring));
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    QVERIFY(showsColor(*second, ring));
    QTest::keyClick(second, Qt::Key_Backtab);
    QVERIFY(showsColor(*first, ring));
    QVERIFY(!showsColor(*second, ring));

    // The first key after a click says where the keyboard is.
    second->setFocus(Qt::MouseFocusReason);
    QVERIFY(!showsColor(*second, ring));
    QTest::keyClick(second, Qt::Key_Space);
    QVERIFY(showsColor(*second, ring));
}

void ComponentsTest::answersToThePointer()
{
    auto* button = new Button(QStringLiteral("Save"), ButtonKind::Filled);
    const auto window = windowOf({button});
    const Theme theme = ThemeScope::of(*button);
    QVERIFY(showsColor(*button, theme.fill));

    QEnterEvent enter(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QApplication::sendEvent(button, &enter);
    QVERIFY(showsColor(*button, theme.fillHover));
    QTest::mousePress(button, Qt::LeftButton);
    QVERIFY(showsColor(*button, theme.fillPress));
    QTest::mouseRelease(button, Qt::LeftButton);
    QVERIFY(showsColor(*button, theme.fillHover));

    button->setEnabled(false);
    QVERIFY(showsColor(*button, theme.offFill));
    button->setEnabled(true);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(button, &leave);
    QVERIFY(showsColor(*button, theme.fill));
}

void ComponentsTest::glidesBetweenStates()
{
    motion::set(motion::Setting::AsDesktop);
    int changes = 0;
    Glide glide([&changes] { ++changes; });
    glide.moveTo(1, 60);
    QVERIFY(glide.value() < 1);
    QTRY_COMPARE(glide.value(), 1.0);
    QVERIFY2(changes > 1, qPrintable(QString::number(changes)));

    motion::set(motion::Setting::Never);
    changes = 0;
    glide.moveTo(0, 60);
    QCOMPARE(glide.value(), 0.0);
    QCOMPARE(changes, 1);
}

void ComponentsTest::tabsCheckOneAtATime()
{
    auto* tabs = new SegmentedTabs;
    QCOMPARE(tabs->currentIndex(), -1);
    for (const char* text : {"New", "Browse", "Daily"}) {
        tabs->add(QLatin1String(text), QStringLiteral("calendar"));
    }
    const auto window = windowOf({tabs});
    QCOMPARE(tabs->currentIndex(), 0);
    QSignalSpy changes(tabs, &SegmentedTabs::currentChanged);

    const QList<QPushButton*> segments = tabs->findChildren<QPushButton*>();
    QTest::mouseClick(segments[2], Qt::LeftButton);
    QCOMPARE(tabs->currentIndex(), 2);
    QTest::mouseClick(segments[2], Qt::LeftButton);
    QCOMPARE(tabs->currentIndex(), 2);
    tabs->setCurrentIndex(1);
    tabs->setCurrentIndex(1);
    tabs->setCurrentIndex(7);
    QCOMPARE(tabs->currentIndex(), 1);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.last().first().toInt(), 1);

    for (QPushButton* segment : segments) {
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(segment);
        QCOMPARE(interface->text(QAccessible::Name), segment->text());
        QVERIFY(interface->state().checkable);
        QCOMPARE(bool(interface->state().checked), segment == segments[1]);
    }
}

void ComponentsTest::arrowsWalkRowsAndTabs()
{
    auto* tabs = new SegmentedTabs;
    tabs->add(QStringLiteral("New"));
    tabs->add(QStringLiteral("Browse"));
    auto* rows = new QWidget;
    auto* column = new QVBoxLayout(rows);
    QList<ListRow*> list;
    for (const char* title : {"Garden", "Notes", "Work"}) {
        list.append(new ListRow(rowContent(QLatin1String(title))));
        column->addWidget(list.last());
    }
    list[0]->setChecked(true);
    const auto window = windowOf({tabs, rows});
    const QList<QPushButton*> segments = tabs->findChildren<QPushButton*>();

    segments[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(segments[0], Qt::Key_Right);
    QCOMPARE(tabs->currentIndex(), 1);
    QVERIFY(segments[1]->hasFocus());
    // The row of segments is one stop on the way through the window, and so is the list.
    QTest::keyClick(segments[1], Qt::Key_Tab);
    QVERIFY(list[0]->hasFocus());
    QTest::keyClick(list[0], Qt::Key_Down);
    QVERIFY(list[1]->hasFocus());
    QVERIFY(list[1]->isChecked());
    QVERIFY(!list[0]->isChecked());
    QTest::keyClick(list[1], Qt::Key_Tab);
    QVERIFY(!list[2]->hasFocus());
}

void ComponentsTest::clickAnywhereChooses()
{
    auto* chip = new ChipButton(QStringLiteral("🔥"), QStringLiteral("#tag"));
    auto* box = new CheckBox(QStringLiteral("Use custom folder path"));
    auto* row = new ListRow(rowContent(QStringLiteral("Notes"), QStringLiteral("/home/mara/Notes")));
    const auto window = windowOf({chip, box, row});
    for (QAbstractButton* button : QList<QAbstractButton*>{chip, box, row}) {
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 3, button->height() - 3));
        QVERIFY2(button->isChecked(), button->metaObject()->className());
    }
    QVERIFY(showsColor(*row, ThemeScope::of(*row).sel));
}

void ComponentsTest::labelKeepsRows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("rows");
    const QString sentence = QStringLiteral("Notes are saved as markdown files to your Obsidian vault.");
    QTest::newRow("empty") << QString() << 200 << 1;
    QTest::newRow("fits") << sentence << 1000 << 1;
    QTest::newRow("wraps") << sentence << 200 << 2;
    QTest::newRow("line breaks") << QStringLiteral("1. one\n2. two\n\n3. three") << 200 << 4;
    QTest::newRow("emoji are no higher") << QStringLiteral("🍅🍅❤️") << 200 << 1;
    QTest::newRow("a word wider than the line") << QString(60, u'w') << 200 << 4;
}

void ComponentsTest::labelKeepsRows()
{
    QFETCH(const QString, text);
    QFETCH(const int, width);
    QFETCH(const int, rows);
    Label label(text);
    label.setWordWrap(true);
    QCOMPARE(label.heightForWidth(width), rows * 20);
    label.setRole(TextRole::Note);
    QCOMPARE(label.heightForWidth(width) % 24, 0);
}

void ComponentsTest::labelCutsWhatIsTooWide()
{
    const QString path = QStringLiteral("/home/mara/Documents/Some folder with a long name/Notes");
    Label label(path, TextRole::Caption);
    QCOMPARE(label.minimumSizeHint(), label.sizeHint());
    label.setElideMode(Qt::ElideMiddle);
    QVERIFY(label.minimumSizeHint().width() < 60);
    QCOMPARE(label.sizeHint().height(), 16);

    // Cut in the middle, a path shows both its ends: the picture begins like the whole one.
    label.resize(label.sizeHint());
    const QImage whole = label.grab(QRect(0, 0, 40, 16)).toImage();
    label.resize(120, 16);
    QCOMPARE(label.grab(QRect(0, 0, 40, 16)).toImage(), whole);
    const QImage end = label.grab(QRect(60, 0, 60, 16)).toImage();
    label.setElideMode(Qt::ElideRight);
    QVERIFY(label.grab(QRect(60, 0, 60, 16)).toImage() != end);
    QCOMPARE(label.text(), path);
}

void ComponentsTest::controlsGrowWithTexts()
{
    auto* field = new TextField(QStringLiteral("Subfolder"));
    auto* label = new Label(QStringLiteral("Save notes to subfolder:"), TextRole::Strong);
    const QList<QWidget*> widgets{field,
                                  label,
                                  new Button(QStringLiteral("Start Using Flitmark"), ButtonKind::Filled),
                                  new CheckBox(QStringLiteral("Use custom folder path")),
                                  new ListRow(rowContent(QStringLiteral("Notes"), QStringLiteral("/home/mara/Notes"))),
                                  new ChipButton(QStringLiteral("🔥"), QStringLiteral("#tag")),
                                  new Badge(QStringLiteral("Default"))};
    const auto window = windowOf(widgets);
    ThemeScope::set(*window, themeOfPalette(ColorPalette::obsidianNative));
    QList<QSize> before;
    for (const QWidget* widget : widgets) {
        before.append(widget->sizeHint());
    }
    QFont font = m_font;
    font.setPointSizeF(16.5);
    QApplication::setFont(font);
    QTRY_COMPARE(field->font().pixelSize(), 20);
    for (qsizetype i = 0; i < widgets.size(); ++i) {
        const QSize after = widgets[i]->sizeHint();
        QVERIFY2(after.height() > before[i].height() && after.width() > before[i].width(),
                 widgets[i]->metaObject()->className());
    }
    QCOMPARE(label->sizeHint().height(), 30);
    QTRY_VERIFY(label->height() >= 30);
}

void ComponentsTest::fieldFollowsItsTheme()
{
    auto* field = new TextField(QStringLiteral("Subfolder"));
    const auto window = windowOf({field});
    for (const ColorPalette palette : {ColorPalette::calmProductivity, ColorPalette::forestFocus}) {
        const Theme theme = themeOfPalette(palette);
        ThemeScope::set(*window, theme);
        QCOMPARE(field->palette().color(QPalette::Text), theme.text);
        QCOMPARE(field->palette().color(QPalette::PlaceholderText), theme.text2);
    }
    field->setFocus();
    QVERIFY(showsColor(*field, ThemeScope::of(*field).mark));
}

void ComponentsTest::scrollBarAppearsWithOverflow()
{
    auto* area = new ScrollArea;
    auto* content = new QWidget;
    content->setMinimumHeight(100);
    area->setWidget(content);
    const auto window = windowOf({area});
    window->resize(200, 200);
    const Theme theme = ThemeScope::of(*area);
    QVERIFY(!showsColor(*area, theme.thumb));

    content->setMinimumHeight(1000);
    QTRY_VERIFY(showsColor(*area, theme.thumb));
    // Dragging the thumb from top to bottom walks the whole content; a click beside it turns a page.
    QWidget* bar = area->childAt(area->width() - 2, 4);
    const int x = bar->width() - 6;
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(x, 8));
    QMouseEvent move(QEvent::MouseMove, QPointF(x, bar->height() + 40), QPointF(), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(bar, &move);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(x, bar->height()));
    QCOMPARE(area->verticalScrollBar()->value(), area->verticalScrollBar()->maximum());
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(x, 6));
    QCOMPARE(area->verticalScrollBar()->value(),
             area->verticalScrollBar()->maximum() - area->verticalScrollBar()->pageStep());
}

void ComponentsTest::focusScrollsIntoView()
{
    auto* area = new ScrollArea;
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    QList<Button*> buttons;
    for (int i = 0; i < 20; ++i) {
        buttons.append(new Button(QString::number(i)));
        column->addWidget(buttons.last());
    }
    area->setWidget(content);
    const auto window = windowOf({area});
    window->resize(200, 200);
    const auto isVisible = [&](const Button* button) {
        const QRect place(button->mapTo(area->viewport(), QPoint()), button->size());
        return area->viewport()->rect().contains(place);
    };
    QVERIFY(!isVisible(buttons[15]));
    buttons[15]->setFocus(Qt::TabFocusReason);
    QVERIFY(isVisible(buttons[15]));
    buttons[0]->setFocus(Qt::TabFocusReason);
    QVERIFY(isVisible(buttons[0]));
}

QTEST_MAIN(ComponentsTest)
#include "ComponentsTest.moc"
