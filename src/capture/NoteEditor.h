// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTextEdit>

namespace flitmark {

class ThinScrollBar;

/// The editor of plain text in which a note is written. Tab types a tab; Ctrl+Tab and Ctrl+Shift+Tab move on.
class NoteEditor final : public QTextEdit
{
    Q_OBJECT

public:
    explicit NoteEditor(QWidget* parent);
    Q_DISABLE_COPY_MOVE(NoteEditor)

    /// The text as typed, lines separated by line feeds, no-break spaces kept.
    QString text() const;
    /// Replaces the text. One that is there already is left alone, with its cursor, its selection and its undo steps.
    void setText(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void applyTheme();
    void applyRowHeight();

    ThinScrollBar* m_scrollBar;
    /// Of the text's lines, as last applied.
    int m_rowHeight = 0;
};

} // namespace flitmark
