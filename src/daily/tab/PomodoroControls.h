// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class DailyTabModel;
class IconButton;

/// The controls of the running Pomodoro: a tomato with a dot for its state, and the buttons to pause or resume, to
/// reset and to stop it.
class PomodoroControls final : public QWidget
{
    Q_OBJECT

public:
    /// `model` must outlive it.
    explicit PomodoroControls(DailyTabModel& model);
    Q_DISABLE_COPY_MOVE(PomodoroControls)

    /// Puts the keyboard on the first button.
    void takeKeyboard();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    IconButton* addButton(const QString& name, const QString& symbol);
    void showState();

    DailyTabModel& m_model;
    IconButton* m_pause;
};

} // namespace flitmark
