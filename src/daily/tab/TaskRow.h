// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <daily/tab/DailyTabRows.h>

#include <QWidget>

namespace flitmark {

class ControlState;
class IconButton;
class Label;
class LabelLink;
class TomatoTally;

/// A task of the Daily tab: its check box, its text, its tomatoes and the button that starts a Pomodoro. It shows what
/// it is given; to change that is up to who hears its signals. To screen readers it is a group named by the text.
class TaskRow final : public QWidget
{
    Q_OBJECT

public:
    explicit TaskRow(const DailyTaskRow& task);
    Q_DISABLE_COPY_MOVE(TaskRow)

    const DailyTaskRow& task() const { return m_task; }
    /// Shows another task, or what has become of this one. The keyboard stays in the row, whatever it was on.
    void setTask(const DailyTaskRow& task);

Q_SIGNALS:
    void toggled(qint64 lineNumber);
    void tomatoRemoved(qint64 lineNumber);
    void pomodoroStarted(qint64 lineNumber);
    void linkOpened(const TextSpan& link);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class CheckMark;

    void showText();
    void showAttention();

    DailyTaskRow m_task;
    ControlState& m_state;
    CheckMark* m_check;
    Label* m_text;
    QList<LabelLink*> m_links;
    TomatoTally* m_tally;
    IconButton* m_start;
    bool m_isHovered = false;
};

} // namespace flitmark
