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
    for (int pixel = 0; pixel < image.width() * image.height(); ++pixel) {
        if (image.pixelColor(pixel % image.width(), pixel / image.width()).rgb() == color.rgb()) {
            return true;
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

    void speaksAndIsPressed_data()
    {
        QTest::addColumn<QWidget*>("widget");
        QTest::addColumn<int>("role");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("description");
        QTest::addColumn<int>("pressingKeys");
        const auto row = [](QWidget* widget, QAccessible::Role role, const QString& name, int pressingKeys = 0,
                            const QString& description = {}) {
            QTest::newRow(qPrintable(name)) << widget << int(role) << name << description << pressingKeys;
        };
        const QString name = QStringLiteral("R&D & more");
        const QString second = QStringLiteral("/home/mara/Q&A");
        row(new Button(name), QAccessible::Button, name, 3);
        row(new IconButton(name), QAccessible::Button, name, 3);
        row(new ActionRow(rowContent(name, second)), QAccessible::Button, name, 3, second);
        // Return belongs to the view in which a thing to check stands.
        row(new ChipButton(QStringLiteral("🔥"), name), QAccessible::CheckBox, name, 1);
        row(new CheckBox(name), QAccessible::CheckBox, name, 1);
        row(new ListRow(rowContent(name, second)), QAccessible::RadioButton, name, -1, second);
        row(new TextField(name), QAccessible::EditableText, name);
        row(new Label(name), QAccessible::StaticText, name);
        row(new Badge(name), QAccessible::StaticText, name);
    }
    void speaksAndIsPressed()
    {
        QFETCH(QWidget*, widget);
        QFETCH(const QString, description);
        QFETCH(const int, pressingKeys);
        const auto window = windowOf({widget});
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        QTEST(int(interface->role()), "role");
        QTEST(interface->text(QAccessible::Name), "name");
        // Where nothing else is said the tooltip is, which repeats the name.
        QCOMPARE(interface->text(QAccessible::Description), description.isEmpty() ? widget->toolTip() : description);

        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (button == nullptr) {
            return;
        }
        QSignalSpy clicks(button, &QAbstractButton::clicked);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 3, button->height() - 3));
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(button->isChecked(), button->isCheckable());
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(button, key);
        }
        if (pressingKeys >= 0) {
            QCOMPARE(clicks.count(), 1 + pressingKeys);
        }
        button->setEnabled(false);
        clicks.clear();
        QTest::keyClick(button, Qt::Key_Space);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
    }

    void ringIsForTheKeyboard()
    {
        auto* first = new Button(QStringLiteral("Back"));
        auto* second = new IconButton(QStringLiteral("Settings"));
        const auto window = windowOf({first, second});
        const QColor ring = ThemeScope::of(*first).mark;
        first->setFocus(Qt::MouseFocusReason);
        QVERIFY(!showsColor(*first, ring));
        QTest::keyClick(first, Qt::Key_Tab);
        QVERIFY(second->hasFocus() && showsColor(*second, ring));
        // The first key after a click says where the keyboard is.
        first->setFocus(Qt::MouseFocusReason);
        QVERIFY(!showsColor(*first, ring) && !showsColor(*second, ring));
        QTest::keyClick(first, Qt::Key_Space);
        QVERIFY(showsColor(*first, ring));
    }
    void answersToThePointer()
    {
        auto* button = new Button(QStringLiteral("Save"), ButtonKind::Filled);
        const auto window = windowOf({button});
        const Theme theme = ThemeScope::of(*button);
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
    void glidesBetweenStates()
    {
        motion::set(motion::Setting::AsDesktop);
        int changes = 0;
        Glide glide([&changes] { ++changes; });
        glide.moveTo(1, 60);
        QVERIFY(glide.value() < 1);
        QTRY_COMPARE(glide.value(), 1.0);
        QVERIFY(changes > 1);
        motion::set(motion::Setting::Never);
        glide.moveTo(0, 60);
        QCOMPARE(glide.value(), 0.0);
    }

    void tabsAndRowsAreOneStopEach()
    {
        auto* tabs = new SegmentedTabs;
        tabs->add(QStringLiteral("New"));
        tabs->add(QStringLiteral("Browse"));
        QList<QWidget*> rows;
        for (const char* title : {"Garden", "Notes", "Work"}) {
            rows.append(new ListRow(rowContent(QLatin1String(title))));
        }
        const auto window = windowOf({tabs, windowOf(rows).release()});
        QSignalSpy changes(tabs, &SegmentedTabs::currentChanged);
        tabs->setCurrentIndex(1);
        tabs->setCurrentIndex(1);
        tabs->setCurrentIndex(7);
        QCOMPARE(changes, QList<QVariantList>{{1}});
        const QList<QPushButton*> segments = tabs->findChildren<QPushButton*>();
        QVERIFY(QAccessible::queryAccessibleInterface(segments[1])->state().checked);

        segments[1]->setFocus(Qt::TabFocusReason);
        QTest::keyClick(segments[1], Qt::Key_Left);
        QVERIFY(segments[0]->hasFocus());
        QCOMPARE(tabs->currentIndex(), 0);
        QTest::mouseClick(rows[0], Qt::LeftButton);
        QVERIFY(showsColor(*rows[0], ThemeScope::of(*rows[0]).sel));
        segments[0]->setFocus();
        QTest::keyClick(segments[0], Qt::Key_Tab);
        QVERIFY(rows[0]->hasFocus());
        QTest::keyClick(rows[0], Qt::Key_Down);
        QVERIFY(rows[1]->hasFocus());
        QVERIFY(static_cast<ListRow*>(rows[1])->isChecked());
        QTest::keyClick(rows[1], Qt::Key_Tab);
        QVERIFY(!rows[2]->hasFocus());
    }

    void labelKeepsRows_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rows");
        QTest::newRow("empty") << QString() << 1;
        QTest::newRow("wraps") << QStringLiteral("Notes are saved as markdown files to your vault.") << 2;
        QTest::newRow("line breaks") << QStringLiteral("1. one\n2. two\n\n3. three") << 4;
        QTest::newRow("emoji are no higher") << QStringLiteral("🍅🍅❤️") << 1;
        QTest::newRow("a word wider than the line") << QString(60, u'w') << 4;
    }
    void labelKeepsRows()
    {
        QFETCH(const QString, text);
        QFETCH(const int, rows);
        Label label(text);
        label.setWordWrap(true);
        QCOMPARE(label.heightForWidth(200), rows * 20);
        label.setRole(TextRole::Note);
        QCOMPARE(label.heightForWidth(200) % 24, 0);
    }
    void labelCutsWhatIsTooWide()
    {
        Label label(QStringLiteral("/home/mara/Documents/Some folder with a long name/Notes"), TextRole::Caption);
        QCOMPARE(label.minimumSizeHint(), label.sizeHint());
        label.setElideMode(Qt::ElideMiddle);
        QVERIFY(label.minimumSizeHint().width() < 60);
        // Cut in the middle, a path shows both its ends: the picture begins like the whole one.
        label.resize(label.sizeHint());
        const QImage whole = label.grab(QRect(0, 0, 40, 16)).toImage();
        label.resize(120, 16);
        QCOMPARE(label.grab(QRect(0, 0, 40, 16)).toImage(), whole);
        const QImage end = label.grab(QRect(60, 0, 60, 16)).toImage();
        label.setElideMode(Qt::ElideRight);
        QVERIFY(label.grab(QRect(60, 0, 60, 16)).toImage() != end);
    }
    void controlsGrowWithTexts()
    {
        auto* field = new TextField(QStringLiteral("Subfolder"));
        const QList<QWidget*> widgets{field,
                                      new Label(QStringLiteral("Subfolder")),
                                      new Button(QStringLiteral("Start")),
                                      new CheckBox(QStringLiteral("Use it")),
                                      new ListRow(rowContent(QStringLiteral("Notes"), QStringLiteral("/Notes"))),
                                      new ChipButton(QStringLiteral("🔥"), QStringLiteral("#tag")),
                                      new Badge(QStringLiteral("Default"))};
        const auto window = windowOf(widgets);
        const Theme calm = themeOfPalette(ColorPalette::calmProductivity);
        ThemeScope::set(*window, calm);
        QCOMPARE(field->palette().color(QPalette::Text), calm.text);
        QCOMPARE(field->palette().color(QPalette::PlaceholderText), calm.text2);
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
    }

    void scrollBarAppearsWithOverflow()
    {
        auto* area = new ScrollArea;
        auto* content = new QWidget;
        auto* lowest = new Button(QStringLiteral("Next"), ButtonKind::Soft, content);
        area->setWidget(content);
        const auto window = windowOf({area});
        window->resize(200, 200);
        const QColor thumb = ThemeScope::of(*area).thumb;
        QVERIFY(!showsColor(*area, thumb));
        content->setMinimumHeight(1000);
        QTRY_VERIFY(showsColor(*area, thumb));
        // Dragging the thumb from top to bottom walks the whole content; a click beside it turns a page.
        const QScrollBar* position = area->verticalScrollBar();
        QWidget* bar = area->childAt(area->width() - 2, 4);
        const int x = bar->width() - 6;
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(x, 8));
        QMouseEvent move(QEvent::MouseMove, QPointF(x, bar->height() + 40), {}, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(bar, &move);
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(x, bar->height()));
        QCOMPARE(position->value(), position->maximum());
        QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(x, 6));
        QCOMPARE(position->value(), position->maximum() - position->pageStep());

        lowest->move(0, 900);
        area->verticalScrollBar()->setValue(0);
        lowest->clearFocus();
        lowest->setFocus(Qt::TabFocusReason);
        const QRect place(lowest->mapTo(area->viewport(), QPoint()), lowest->size());
        QVERIFY(area->viewport()->rect().contains(place));
    }

private:
    const QFont m_font = QApplication::font();
};

QTEST_MAIN(ComponentsTest)
#include "ComponentsTest.moc"
