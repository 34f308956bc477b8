// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>
#include <daily/tab/TaskRow.h>
#include <daily/tab/TomatoTally.h>
#include <ui/AccessibleRole.h>
#include <ui/ControlState.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/LabelLink.h>
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
constexpr int indent = 16;
constexpr int deepestIndent = 5;
constexpr int signPoints = 9;

LabelSpan shownSpan(const TextSpan& span)
{
    using Kind = TextSpan::Kind;
    const bool isLink = span.kind == Kind::NoteLink || span.kind == Kind::WebLink;
    return {
        .start = span.start,
        .length = span.length,
        .isStrong = span.kind == Kind::Strong || span.kind == Kind::Highlight,
        .isSlanted = span.kind == Kind::Emphasis,
        .isStruck = span.kind == Kind::Struck,
        .isUnderlined = isLink,
        .color = isLink || span.kind == Kind::Tag ? &Theme::mark : nullptr,
    };
}

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

    /// Shows `sign`, what the note has in the box, in the place of a tick.
    void setSign(const QString& sign)
    {
        m_sign = sign;
        setAccessibleDescription(sign.isEmpty() ? QString() : TaskRow::tr("Marked with %1").arg(sign));
        update();
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
        painting::drawIconText(painter, box, m_sign, signPoints, idle);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    ControlState& m_state;
    QString m_sign;
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
    const bool isOtherText = m_text->text() != task.text || m_task.spans != task.spans;
    m_task = task;
    if (isOtherText) {
        showText();
    }
    layout()->setContentsMargins(readingMargins(4 + indent * std::min(task.depth, deepestIndent), 4, 8, 4));
    m_check->setSign(task.sign);
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

void TaskRow::showText()
{
    m_text->setText(m_task.text);
    m_check->setAccessibleName(m_task.text);
    setAccessibleName(m_task.text);
    const QWidget* focused = window()->focusWidget();
    QList<LabelSpan> spans;
    for (LabelLink* link : std::as_const(m_links)) {
        // Before a link goes away, the keyboard moves on from it.
        if (link == focused) {
            m_check->setFocus(Qt::TabFocusReason);
        }
        link->hide();
        link->deleteLater();
    }
    m_links.clear();
    for (const TextSpan& span : std::as_const(m_task.spans)) {
        spans.append(shownSpan(span));
    }
    m_text->setSpans(spans);
    for (const TextSpan& span : std::as_const(m_task.spans)) {
        if (span.kind == TextSpan::Kind::NoteLink || span.kind == TextSpan::Kind::WebLink) {
            auto* link = new LabelLink(*m_text, span.start, span.length);
            connect(link, &LabelLink::clicked, this, [this, span] { Q_EMIT linkOpened(span); });
            m_links.append(link);
        }
    }
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
