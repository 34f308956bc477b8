// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <support/Accessible.h>
#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/ChipButton.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/RepeatFilter.h>
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
            {new ChipButton("🔥", name), QAccessible::CheckBox, "🔥", 1},
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
    void heldKeysAndDoubleClicks_actOnce()
    {
        auto* field = new TextField("Field");
        auto* area = new TextArea("Area", 96);
        auto* check = new CheckBox("Check");
        auto* save = new Button("Save");
        auto* other = new Button("Other");
        const auto window = windowOf({field, area, check, save, other});
        RepeatFilter filter;
        QCoreApplication::instance()->installEventFilter(&filter);

        // What X11 makes of a held key: at the same moment a release and a press, which Qt may or may not see through.
        quint64 now = 1000;
        const auto sendKey = [&](QWidget* to, QEvent::Type type, Qt::Key key, bool isRepeat) {
            QKeyEvent event(type, key, {}, 36, 0, 0, key == Qt::Key_Space ? " " : "\r", isRepeat);
            event.setTimestamp(now);
            QCoreApplication::sendEvent(to, &event);
            return event.isAccepted();
        };
        const auto hold = [&](QWidget* to, Qt::Key key) {
            to->setFocus();
            now += 500;
            sendKey(to, QEvent::KeyPress, key, false);
            for (const bool isSeenThrough : {true, false}) {
                now += 500;
                sendKey(to, QEvent::KeyRelease, key, isSeenThrough);
                QVERIFY(sendKey(to, QEvent::ShortcutOverride, key, isSeenThrough)); // no shortcut either
                sendKey(to, QEvent::KeyPress, key, isSeenThrough);
            }
            now += 20;
            sendKey(to, QEvent::KeyRelease, key, false);
        };
        QSignalSpy entered(field, &QLineEdit::returnPressed);
        QSignalSpy checked(check, &QAbstractButton::clicked);
        QSignalSpy saved(save, &QAbstractButton::clicked);
        QSignalSpy others(other, &QAbstractButton::clicked);
        for (int round = 1; round <= 2; ++round) { // a key that is pressed again counts again
            hold(field, Qt::Key_Return);
            hold(save, Qt::Key_Return);
            hold(check, Qt::Key_Space);
            hold(field, Qt::Key_Space);
            hold(area, Qt::Key_Return);
            QCOMPARE(entered.size(), round);
            QCOMPARE(saved.size(), round);
            QCOMPARE(checked.size(), round);
            QCOMPARE(field->text().size(), 3 * round);
            QVERIFY(area->text().count('\n') >= 2 * round);
        }

        const auto clickTwice = [&](QWidget* first, QWidget* second, quint64 apart) {
            for (auto [to, type] :
                 {std::pair(first, QEvent::MouseButtonPress), {second, QEvent::MouseButtonDblClick}}) {
                QMouseEvent press(type, QPointF(5, 5), QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton, {});
                press.setTimestamp(now);
                QCoreApplication::sendEvent(to, &press);
                QTest::mouseRelease(to, Qt::LeftButton);
                now += apart;
            }
            now += 1000;
        };
        for (const auto& [first, second, apart, saves, checks, othersClicked] :
             {std::tuple<QWidget*, QWidget*, quint64, int, int, int>(save, save, 60, 1, 0, 0),
              {save, save, 240, 1, 0, 0},
              {save, save, 300, 2, 0, 0},
              {check, check, 60, 0, 2, 0},
              {save, other, 240, 1, 0, 0}, // what has come where the first click was
              {save, check, 240, 1, 0, 0},
              {save, other, 300, 1, 0, 1}}) {
            saved.clear(), checked.clear(), others.clear();
            clickTwice(first, second, apart);
            QCOMPARE(saved.size(), saves);
            QCOMPARE(checked.size(), checks);
            QCOMPARE(others.size(), othersClicked);
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
