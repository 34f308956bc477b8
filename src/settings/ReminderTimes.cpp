// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <settings/ReminderTimes.h>
#include <settings/SettingsModel.h>
#include <ui/FlowLayout.h>
#include <ui/Fonts.h>
#include <ui/IconButton.h>
#include <ui/TextField.h>

#include <QHBoxLayout>
#include <QSignalBlocker>

#include <limits>

namespace flitmark {

ReminderTimes::ReminderTimes(SettingsModel& model)
    : m_model(model)
    , m_layout(new FlowLayout(12))
{
    setLayout(m_layout);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    showTimes();
    connect(&model, &SettingsModel::changed, this, &ReminderTimes::showTimes);
}

void ReminderTimes::showTimes()
{
    const QStringList& times = m_model.state().dailyReviewTimes;
    while (m_rows.size() > times.size()) {
        removeLastRow();
    }
    while (m_rows.size() < times.size()) {
        addRow();
    }
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        const Row& row = m_rows[index];
        if (row.field->text() != times[index]) {
            const QSignalBlocker blocker(row.field);
            row.field->setText(times[index]);
        }
        const QStringView time = trimSpaces(times[index]);
        row.field->setMarkedWrong(!time.isEmpty() && !SettingsModel::isTimeOfDay(time));
        row.remove->setEnabled(times.size() > 1);
    }
}

void ReminderTimes::addRow()
{
    const qsizetype index = m_rows.size();
    Row row{new QWidget, new TextField(tr("Reminder time %1").arg(index + 1)),
            new IconButton(tr("Remove time %1").arg(index + 1))};
    row.field->setPlaceholderText(QStringLiteral("19:00"));
    row.field->setMaxLength(std::numeric_limits<int>::max());
    row.field->setFixedWidth(scaled(96));
    row.remove->setSymbol(QStringLiteral("minus.circle.fill"));
    auto* parts = new QHBoxLayout(row.widget);
    parts->setContentsMargins({});
    parts->setSpacing(4);
    parts->addWidget(row.field);
    parts->addWidget(row.remove);
    m_layout->addWidget(row.widget);
    if (!m_rows.isEmpty()) {
        setTabOrder(m_rows.last().remove, row.field);
        setTabOrder(row.field, row.remove);
    }
    row.widget->show();
    m_rows.append(row);
    connect(row.field, &TextField::textChanged, this,
            [this, index](const QString& text) { m_model.setDailyReviewTime(index, text); });
    connect(row.remove, &IconButton::clicked, this, [this, index] { m_model.removeDailyReviewTime(index); });
}

void ReminderTimes::removeLastRow()
{
    const Row row = m_rows.takeLast();
    m_layout->removeWidget(row.widget);
    if (row.widget->isAncestorOf(window()->focusWidget()) && !m_rows.isEmpty()) {
        m_rows.last().field->setFocus(Qt::OtherFocusReason);
    }
    // Its own button may be the caller: it goes when that has returned.
    row.widget->hide();
    row.widget->deleteLater();
}

} // namespace flitmark
