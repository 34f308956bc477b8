// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QHBoxLayout;
class QStackedLayout;

namespace flitmark {

class DailyTabModel;
class FocusCheckSheet;
class IconButton;
class Label;
class LinesSection;
class NoProgramBar;
class PomodoroControls;
class TaskPickerSheet;
class TasksSection;

/// The Daily tab of the note panel: the date with the Pomodoro's controls, today's note in short, and its two sheets.
///
/// A note that is loaded again changes what is different and nothing else: what is being typed, the keyboard's place
/// and the scrolled position stay.
class DailyTabView final : public QWidget
{
    Q_OBJECT

public:
    /// The sheets cover `sheetHost`. Both must outlive it.
    DailyTabView(DailyTabModel& model, QWidget& sheetHost);
    Q_DISABLE_COPY_MOVE(DailyTabView)

    /// To be called when the tab is selected, and when another one is. A panel out of sight keeps its tab.
    void setTabShown(bool isShown);
    void takeKeyboard();
    /// Keeps the last `width` points at the right of the footer free of controls; 0 keeps nothing free.
    void setCornerReserve(int width);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHead();
    QWidget* makeNotePage();
    QWidget* makeColumn();
    QWidget* makeFooter();
    QWidget* makeLoadingPage();
    QWidget* makeEmptyPage();
    void bind();
    void showBody();
    void showTimer();
    void showSheets();

    DailyTabModel& m_model;
    Label* m_date;
    IconButton* m_start;
    PomodoroControls* m_controls;
    QStackedLayout* m_body;
    TasksSection* m_tasks;
    LinesSection* m_coach;
    LinesSection* m_work;
    Label* m_places = nullptr;
    NoProgramBar* m_noProgram;
    QHBoxLayout* m_footer = nullptr;
    TaskPickerSheet* m_picker;
    FocusCheckSheet* m_check;
    bool m_isTabShown = false;
};

} // namespace flitmark
