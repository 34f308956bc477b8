// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class RunLoop;
class TriggerButtonView;
class WindowManager;

/// The small window that floats above all others with the trigger button in it. It never takes the keyboard.
class TriggerButtonWindow final : public QWidget
{
    Q_OBJECT

public:
    TriggerButtonWindow(WindowManager& windowManager, RunLoop& runLoop);
    Q_DISABLE_COPY_MOVE(TriggerButtonWindow)

    TriggerButtonView& view() { return *m_view; }

    /// Shows the window without giving it the keyboard.
    void orderFront();

Q_SIGNALS:
    /// The window lies elsewhere, whoever moved it.
    void moved();

protected:
    void moveEvent(QMoveEvent* event) override;

private:
    void followCompositor();

    WindowManager& m_windowManager;
    TriggerButtonView* m_view;
};

} // namespace flitmark
