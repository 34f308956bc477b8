// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QTextEdit>

namespace flitmark {

class ThinScrollBar;

/// A field for plain text of several lines. Tab moves on.
class TextArea final : public QTextEdit
{
    Q_OBJECT

public:
    /// `name` is the accessible name; `height` that of the field at text scale 1, in points.
    TextArea(const QString& name, int height, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(TextArea)

    /// The text as typed, lines separated by line feeds, no-break spaces kept.
    QString text() const;
    /// Replaces the text. One that is there already is left alone, with its cursor and its undo steps.
    void setText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void applyLook();
    void applyRowHeight();
    void paintFrame();

    ControlState& m_state;
    ThinScrollBar* m_scrollBar;
    int m_height;
    /// Of the text's lines, as last applied.
    int m_rowHeight = 0;
};

} // namespace flitmark
