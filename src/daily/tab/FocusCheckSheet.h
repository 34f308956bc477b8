// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Sheet.h>

namespace flitmark {

class DailyTabModel;
class Label;

/// The sheet of the coach's alert: what was planned, what is done instead, and three answers.
class FocusCheckSheet final : public Sheet
{
    Q_OBJECT

public:
    /// `model` and `host` must outlive it.
    FocusCheckSheet(DailyTabModel& model, QWidget& host);
    Q_DISABLE_COPY_MOVE(FocusCheckSheet)

private:
    QWidget* makeTexts();
    QWidget* makeAnswers();
    void showAlert();

    DailyTabModel& m_model;
    Label* m_planned = nullptr;
    Label* m_actual = nullptr;
};

} // namespace flitmark
