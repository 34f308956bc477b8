// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/DailyTabModel.h>
#include <daily/tab/TaskPickerSheet.h>
#include <ui/ControlState.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/RowList.h>
#include <ui/ScrollArea.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QPushButton>
#include <QStackedLayout>

namespace flitmark {

namespace {

constexpr int pickerWidth = 300;
constexpr int pickerHeight = 320;
constexpr double tallyOpacity = 0.6;

} // namespace

/// A task to pick: a button named by the task's text, with its tomatoes below it.
class TaskPickerSheet::Row final : public QPushButton
{
public:
    explicit Row(const TaskPickerRow& task)
        : m_state(*new ControlState(*this))
    {
        setAccessibleName(task.text);
        setAccessibleDescription(task.tomatoes);
        QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);

        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(8, 8, 8, 8);
        row->setSpacing(8);
        auto* texts = new QVBoxLayout;
        texts->setSpacing(0);
        texts->addStretch();
        auto* text = new Label(task.text);
        text->setWordWrap(true);
        texts->addWidget(text);
        if (!task.tomatoes.isEmpty()) {
            auto* tally = new Label(task.tomatoes, TextRole::Caption);
            tally->setOpacity(tallyOpacity);
            texts->addWidget(tally);
        }
        texts->addStretch();
        row->addLayout(texts, 1);
        row->addWidget(new SymbolView(QStringLiteral("play.circle"), 20));
        for (QWidget* part : findChildren<QWidget*>()) {
            part->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
    }

    QSize sizeHint() const override { return layout()->sizeHint().expandedTo(leastSize()); }
    QSize minimumSizeHint() const override { return layout()->minimumSize().expandedTo(leastSize()); }
    int heightForWidth(int width) const override
    {
        return std::max(layout()->heightForWidth(width), leastSize().height());
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        QPainter painter(this);
        painting::fillRounded(painter, rect(), painting::controlRadius, painting::stateLayer(theme, m_state.level()));
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, rect(), painting::controlRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    static QSize leastSize() { return {0, 40}; }

    ControlState& m_state;
};

TaskPickerSheet::TaskPickerSheet(DailyTabModel& model, QWidget& host)
    : Sheet(tr("Start Pomodoro"), host, pickerWidth, pickerHeight)
    , m_model(model)
    , m_body(new QStackedLayout)
    , m_rows(new RowList([this](qsizetype index, QWidget*) { return showTask(index); }))
{
    m_body->addWidget(makeList());
    m_body->addWidget(makeEmptyView());
    auto* interval = new Label(QString(), TextRole::Caption);
    interval->setContentsMargins(16, 8, 16, 12);

    content().addWidget(makeHead(tr("🍅 Start Pomodoro")));
    content().addLayout(m_body, 1);
    content().addWidget(new Divider);
    content().addWidget(interval);

    const auto showInterval = [&model, interval] { interval->setText(model.intervalText()); };
    connect(&model, &DailyTabModel::intervalTextChanged, interval, showInterval);
    connect(&model, &DailyTabModel::noteChanged, this, &TaskPickerSheet::showTasks);
    connect(&model, &DailyTabModel::showPomodoroTaskPickerChanged, this, &TaskPickerSheet::showTasks);
    connect(this, &Sheet::closeAsked, &model, [&model] { model.setShowPomodoroTaskPicker(false); });
    showInterval();
    showTasks();
}

QWidget* TaskPickerSheet::makeList()
{
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(8, 0, 8, 8);
    column->setSpacing(0);
    column->addWidget(m_rows);
    column->addStretch();
    auto* area = new ScrollArea;
    area->setWidget(list);
    return area;
}

QWidget* TaskPickerSheet::makeEmptyView()
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setSpacing(4);
    column->addStretch();
    column->addWidget(new Label(tr("No tasks found"), TextRole::Strong), 0, Qt::AlignHCenter);
    column->addWidget(new Label(tr("Add tasks to your daily note first"), TextRole::Caption), 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

/// Rows nobody sees are not made.
void TaskPickerSheet::showTasks()
{
    if (!m_model.showPomodoroTaskPicker()) {
        return;
    }
    m_body->setCurrentIndex(m_model.hasTasks() ? 0 : 1);
    const QList<TaskPickerRow> tasks = m_model.pickerRows();
    if (tasks == m_tasks) {
        return;
    }
    const QWidget* focused = window()->focusWidget();
    if (isOpen() && focused != nullptr && m_rows->isAncestorOf(focused)) {
        // The task under the keyboard may be another one now.
        setFocus();
    }
    m_tasks = tasks;
    QStringList texts;
    for (const TaskPickerRow& task : tasks) {
        texts.append(task.text);
    }
    m_rows->setRows(texts);
}

QWidget* TaskPickerSheet::showTask(qsizetype index)
{
    const TaskPickerRow& task = m_tasks[index];
    auto* row = new Row(task);
    connect(row, &QPushButton::clicked, &m_model, [this, line = task.lineNumber] { m_model.startPomodoro(line); });
    return row;
}

} // namespace flitmark
