// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>
#include <daily/tab/TaskRow.h>
#include <daily/tab/TomatoTally.h>
#include <ui/AccessibleRole.h>
#include <ui/ControlState.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace flitmark {

namespace {

constexpr int controlSide = 28;
constexpr int startGap = 8;

} // namespace

/// A round check box that shows what the note says: a click asks for the change and leaves the mark alone.
class TaskRow::CheckMark final : public QCheckBox
{
public:
    CheckMark()
        : m_state(*new ControlState(*this))
    {
        setAccessibleRole(*this, QAccessible::CheckBox);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override { return {controlSide, controlSide}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
            return;
        }
        QCheckBox::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        const QRectF box = rect();
        QPainter painter(this);
        painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, m_state.level()));
        const QColor idle = painting::atLevel(theme.text2, theme.text, theme.text2, m_state.level());
        Symbols::draw(painter, isChecked() ? QStringLiteral("checkmark.circle.fill") : QStringLiteral("circle"),
                      box.adjusted(4, 4, -4, -4), isChecked() ? theme.mark : idle);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    ControlState& m_state;
};

TaskRow::TaskRow(const DailyTaskRow& task)
    : m_state(*new ControlState(*this))
    , m_check(new CheckMark)
    , m_text(new Label)
    , m_tally(new TomatoTally)
    , m_start(new IconButton(tr("Start Pomodoro for this task"), IconButtonSize::Small))
{
    setAccessibleRole(*this, QAccessible::Grouping);
    m_text->setWordWrap(true);
    m_text->setContentsMargins(4, 4, 4, 4);
    m_start->setEmoji(tomato.toString(), 13);
    m_start->setGround(IconButtonGround::Boxed);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(readingMargins(4, 4, 8, 4));
    row->setSpacing(4);
    row->addWidget(m_check, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    row->addWidget(m_tally, 0, Qt::AlignTop);
    row->addSpacing(startGap - row->spacing());
    // A finished task keeps the place of the button free: the tomatoes of all tasks stand below each other.
    QSizePolicy policy = m_start->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_start->setSizePolicy(policy);
    row->addWidget(m_start, 0, Qt::AlignTop);

    connect(m_check, &QCheckBox::clicked, this, [this] { Q_EMIT toggled(m_task.lineNumber); });
    connect(m_tally, &TomatoTally::removeAsked, this, [this] { Q_EMIT tomatoRemoved(m_task.lineNumber); });
    connect(m_start, &IconButton::clicked, this, [this] { Q_EMIT pomodoroStarted(m_task.lineNumber); });
    connect(qApp, &QApplication::focusChanged, this, &TaskRow::showAttention);
    setTask(task);
}

void TaskRow::setTask(const DailyTaskRow& task)
{
    m_task = task;
    if (m_text->text() != task.text) {
        m_text->setText(task.text);
        m_check->setAccessibleName(task.text);
        setAccessibleName(task.text);
    }
    const QWidget* focused = window()->focusWidget();
    const bool hadKeyboard = focused != nullptr && isAncestorOf(focused);
    m_text->setStruck(task.isCompleted);
    m_text->setColor(task.isCompleted ? &Theme::text2 : &Theme::text);
    m_check->setChecked(task.isCompleted);
    // Before a control goes away, the keyboard moves on from it.
    const qint64 focusedTomato = hadKeyboard ? m_tally->controls().indexOf(focused) : -1;
    if (hadKeyboard && (focusedTomato >= task.tomatoButtons || (task.isCompleted && focused == m_start))) {
        m_check->setFocus(Qt::TabFocusReason);
    }
    m_tally->setCount(task.tomatoButtons, task.moreTomatoes);
    m_start->setVisible(!task.isCompleted);
    showAttention();
}

void TaskRow::enterEvent(QEnterEvent* event)
{
    m_isHovered = true;
    showAttention();
    QWidget::enterEvent(event);
}

void TaskRow::leaveEvent(QEvent* event)
{
    m_isHovered = false;
    showAttention();
    QWidget::leaveEvent(event);
}

void TaskRow::showAttention()
{
    const QWidget* focused = QApplication::focusWidget();
    m_tally->setQuiet(!m_isHovered && (focused == nullptr || !isAncestorOf(focused)));
}

void TaskRow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painting::fillRounded(painter, rect(), painting::controlRadius,
                          painting::stateLayer(ThemeScope::of(*this), m_state.level()));
}

} // namespace flitmark
