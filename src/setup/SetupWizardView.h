// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/SchemeFollower.h>

#include <QWidget>

class QBoxLayout;

namespace flitmark {

class Button;
class Dialogs;
class Dots;
class ScrollArea;
class SetupWizardModel;
class StepColumn;

/// The setup wizard: a header, the current step, and the buttons that lead through the steps. It starts the model when
/// it is first shown and wears the desktop's scheme in the palette's colour.
class SetupWizardView final : public QWidget
{
    Q_OBJECT

public:
    /// `model` and `dialogs` must outlive the view.
    SetupWizardView(SetupWizardModel& model, Dialogs& dialogs, ColorPalette palette, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(SetupWizardView)

    /// One line that tells how the hotkey works on this computer, for the last step: "On this computer: ...".
    void setLocalHotkeyLine(const QString& line);

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* makeHeader();
    QLayout* makeNavigation();
    StepColumn* makeStep();
    void showStep();
    void showNavigation();
    void goForward();

    SetupWizardModel& m_model;
    Dialogs& m_dialogs;
    SchemeFollower m_scheme;
    QString m_localHotkeyLine;
    Dots* m_dots = nullptr;
    ScrollArea* m_content = nullptr;
    Button* m_back = nullptr;
    Button* m_forward = nullptr;
    bool m_isStarted = false;
};

} // namespace flitmark
