// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/Accessible.h>
#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/ChipButton.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/SegmentedTabs.h>
#include <ui/Slider.h>
#include <ui/Surfaces.h>
#include <ui/Switch.h>
#include <ui/TextArea.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace flitmark;

namespace {

/// A window with `widgets` in a column, shown and active.
std::unique_ptr<QWidget> windowOf(const QList<QWidget*>& widgets)
{
    auto window = std::make_unique<Ground>();
    auto* column = new QVBoxLayout(window.get());
    for (QWidget* widget : widgets) {
        column->addWidget(widget);
    }
    showActive(*window);
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

    void speaksAndIsPressed()
    {
        const QString name = "R&D & more";
        const QString second = "/home/mara/Q&A";
        RowContent row;
        row.title = name;
        row.second = second;
        // Return belongs to the view in which a thing to check stands.
        const std::tuple<QWidget*, QAccessible::Role, QString, int> rows[] = {
            {new Button(name), QAccessible::Button, {}, 3},
            {new IconButton(name), QAccessible::Button, {}, 3},
            {new ActionRow(row), QAccessible::Button, second, 3},
            {new ChipButton("🔥", name), QAccessible::CheckBox, {}, 1},
            {new CheckBox(name), QAccessible::CheckBox, {}, 1},
            {new Switch(name), QAccessible::CheckBox, {}, 1},
            {new Slider(name, 0, 10, 1), QAccessible::Slider, {}, 0},
            {new TextArea(name, 96), QAccessible::EditableText, {}, 0},
            {new ListRow(row), QAccessible::RadioButton, second, -1},
            {new TextField(name), QAccessible::EditableText, {}, 0},
            {new Label(name), QAccessible::StaticText, {}, 0},
            {new Badge(name), QAccessible::StaticText, {}, 0},
        };
        for (const auto& [widget, role, description, pressingKeys] : rows) {
            const auto window = windowOf({widget});
            QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
            QCOMPARE(interface->role(), role);
            QCOMPARE(spoken(widget), name);
            // To screen readers a chip is as large as it is, not only its box.
            QVERIFY(!qobject_cast<ChipButton*>(widget) || interface->rect().size() == widget->size());
            // Where nothing else is said the tooltip is, which repeats the name.
            QCOMPARE(interface->text(QAccessible::Description),
                     description.isEmpty() ? widget->toolTip() : description);
            auto* button = qobject_cast<QAbstractButton*>(widget);
            if (button == nullptr) {
                continue;
            }
            QSignalSpy clicks(button, &QAbstractButton::clicked);
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 3, button->height() - 3));
            QCOMPARE(clicks.count(), 1);
            QCOMPARE(button->isChecked(), button->isCheckable());
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
                QTest::keyClick(button, key);
            }
            QVERIFY(pressingKeys < 0 || clicks.count() == 1 + pressingKeys);
            QVERIFY(qobject_cast<ListRow*>(widget) == nullptr || button->isChecked());
            button->setEnabled(false);
            clicks.clear();
            QTest::keyClick(button, Qt::Key_Space);
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(clicks.count(), 0);
        }
    }
    void ringIsForTheKeyboard()
    {
        auto* first = new Button("Back");
        auto* second = new IconButton("Settings");
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
    void readsFromTheRight()
    {
        RowContent content;
        content.swatches = {Qt::red, Qt::green};
        auto* row = new ActionRow(content);
        auto* slider = new Slider(QStringLiteral("Opacity"), 0, 10, 1);
        const auto window = windowOf({row, slider});
        const auto colorAt = [row](int x) { return row->grab().toImage().pixelColor(x, row->height() / 2); };
        QCOMPARE(colorAt(24), QColor(Qt::red));
        window->setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(colorAt(row->width() - 24), QColor(Qt::red));
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(1, slider->height() / 2));
        QCOMPARE(slider->value(), 10);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(slider->value(), 9);
    }
    void fieldHoldsOneLine()
    {
        const QString text = "a\r\nb\u2028c\u2029\n## d";
        QMimeData data;
        data.setText(text);
        QGuiApplication::clipboard()->setText(text);
        const std::pair<const char*, std::function<void(TextField&)>> ways[] = {
            {"pasting", [](TextField& field) { QTest::keySequence(&field, QKeySequence::Paste); }},
            {"dropping",
             [&data](TextField& field) {
                 const QPointF place = field.inputMethodQuery(Qt::ImCursorRectangle).toRectF().center();
                 QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
                 QCoreApplication::sendEvent(&field, &enter);
                 QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
                 QCoreApplication::sendEvent(&field, &drop);
             }},
            {"composing",
             [&text](TextField& field) {
                 QInputMethodEvent commit;
                 commit.setCommitString(text);
                 QCoreApplication::sendEvent(&field, &commit);
             }},
            {"inserting", [&text](TextField& field) { field.insert(text); }},
        };
        for (const auto& [name, enter] : ways) {
            auto* field = new TextField("Focus");
            const auto window = windowOf({field});
            field->setFocus();
            field->setText("x\ny");
            QCOMPARE(field->text(), "x y");
            field->setCursorPosition(1);
            QStringList told;
            connect(field, &TextField::textChanged, this, [&told](const QString& now) { told.append(now); });
            enter(*field);
            QVERIFY2(told == QStringList("xa b c  ## d y"), qPrintable(name + told.join(u'|')));
            // Who types on does so behind what came in, or replaces what was dropped.
            QVERIFY2(field->cursorPosition() == 12 || field->hasSelectedText(), name);
        }
    }
    void tabsAreOneStop()
    {
        auto* tabs = new SegmentedTabs;
        tabs->add("New");
        tabs->add("Browse");
        const auto window = windowOf({tabs, new Button("Next")});
        const QList<QPushButton*> segments = tabs->findChildren<QPushButton*>();
        segments[1]->setFocus(Qt::TabFocusReason);
        QTest::keyClick(segments[1], Qt::Key_Left);
        QVERIFY(segments[0]->hasFocus());
        QCOMPARE(tabs->currentIndex(), 0);
        QVERIFY(QAccessible::queryAccessibleInterface(segments[0])->state().checked);
        segments[0]->setFocus();
        QTest::keyClick(segments[0], Qt::Key_Tab);
        QVERIFY(!segments[1]->hasFocus());
    }
};

QTEST_MAIN(ComponentsTest)
#include "ComponentsTest.moc"
