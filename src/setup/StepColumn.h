// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QVBoxLayout>
#include <QWidget>

namespace flitmark {

class Label;

/// The content of one step of the wizard: things below each other, with the window's margins at both sides.
class StepColumn : public QWidget
{
    Q_OBJECT

public:
    static constexpr int sideMargin = 24;

    explicit StepColumn(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(StepColumn)

    /// What the focus goes to when the step is entered; null where nothing on it asks for it.
    virtual QWidget* firstFocus() const { return nullptr; }

protected:
    /// Where a text stands that is narrower than the column.
    enum class Placement { Left, Centre };

    /// Adds `widget`, `space` below what is there, leaving `inset` free at its left and right.
    void add(QWidget* widget, int space, int inset = sideMargin);
    /// Adds `row` likewise.
    void add(QLayout* row, int space, int inset = sideMargin);
    /// Begins with the step's title. It is read out, because the keyboard may stay on the button that led here.
    void addTitle(const QString& title);
    /// Adds a text that wraps.
    Label* addText(const QString& text, TextRole role, ColorToken color, int space,
                   Placement placement = Placement::Left, int inset = sideMargin);
    /// Keeps what was added at the top.
    void finish();

private:
    QVBoxLayout* m_column;
};

} // namespace flitmark
