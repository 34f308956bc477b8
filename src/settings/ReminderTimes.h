// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class FlowLayout;
class IconButton;
class SettingsModel;
class TextField;

/// The times of the daily review: a field each, with a button that removes it.
class ReminderTimes final : public QWidget
{
    Q_OBJECT

public:
    /// The model must outlive it.
    explicit ReminderTimes(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(ReminderTimes)

private:
    struct Row
    {
        QWidget* widget;
        TextField* field;
        IconButton* remove;
    };

    void showTimes();
    void addRow();
    void removeLastRow();

    SettingsModel& m_model;
    FlowLayout* m_layout;
    QList<Row> m_rows;
};

} // namespace flitmark
