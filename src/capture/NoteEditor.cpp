// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteEditor.h>
#include <ui/Fonts.h>
#include <ui/ThemeScope.h>
#include <ui/ThinScrollBar.h>

#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

namespace flitmark {

NoteEditor::NoteEditor(QWidget* parent)
    : QTextEdit(parent)
    , m_scrollBar(new ThinScrollBar(*verticalScrollBar(), this))
{
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    setPlaceholderText(tr("Note"));
    setAccessibleName(tr("Note"));
    setAccessibleDescription(tr("Ctrl+Tab moves on, Shift+Tab back."));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(0, 0, ThinScrollBar::hitWidth, 0);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    applyTheme();
}

QString NoteEditor::text() const
{
    // QTextEdit's own plain text turns no-break spaces into spaces.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

void NoteEditor::setText(const QString& text)
{
    if (text != this->text()) {
        setPlainText(text);
        applyRowHeight();
        moveCursor(QTextCursor::End);
    }
}

void NoteEditor::keyPressEvent(QKeyEvent* event)
{
    const bool isBack = event->key() == Qt::Key_Backtab ||
                        (event->key() == Qt::Key_Tab && event->modifiers().testFlag(Qt::ShiftModifier));
    if (isBack || (event->key() == Qt::Key_Tab && event->modifiers().testFlag(Qt::ControlModifier))) {
        // Not QTextEdit's own, which refuses because Tab types. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QWidget::focusNextPrevChild(!isBack);
        return;
    }
    // QTextEdit answers Return on an empty line by dropping the line's format instead of starting a new one.
    if (event->matches(QKeySequence::InsertParagraphSeparator) || event->matches(QKeySequence::InsertLineSeparator)) {
        textCursor().insertBlock();
        ensureCursorVisible();
        return;
    }
    QTextEdit::keyPressEvent(event);
}

void NoteEditor::paintEvent(QPaintEvent* event)
{
    QTextEdit::paintEvent(event);
    const QTextBlock first = document()->firstBlock();
    if (document()->isEmpty() && first.layout()->preeditAreaText().isEmpty()) {
        QPainter painter(viewport());
        painter.setFont(font());
        painter.setPen(ThemeScope::of(*this).text2);
        const QRect row(0, 0, viewport()->width(), rowHeight(TextRole::Note));
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, placeholderText());
    }
}

void NoteEditor::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    m_scrollBar->placeIn(rect());
}

bool NoteEditor::event(QEvent* event)
{
    if (event->type() == ThemeScope::changeEvent()) {
        applyTheme();
    }
    return QTextEdit::event(event);
}

void NoteEditor::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText()) {
        textCursor().insertText(source->text());
        ensureCursorVisible();
    }
}

void NoteEditor::applyTheme()
{
    setFont(fontOf(TextRole::Note));
    if (m_rowHeight != rowHeight(TextRole::Note)) {
        applyRowHeight();
    }
    const Theme& theme = ThemeScope::of(*this);
    QPalette colors = palette();
    colors.setColor(QPalette::Text, theme.text);
    // QTextEdit would draw the placeholder where its rows would be without the fixed height.
    colors.setColor(QPalette::PlaceholderText, Qt::transparent);
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Highlight, theme.sel);
    colors.setColor(QPalette::HighlightedText, theme.text);
    setPalette(colors);
}

void NoteEditor::applyRowHeight()
{
    // Fixed rows: a line with an emoji in it is no taller than its neighbours. New lines take the format over.
    m_rowHeight = rowHeight(TextRole::Note);
    QTextBlockFormat format;
    format.setLineHeight(m_rowHeight, QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    // A matter of looks: no change to the text, and no step to be undone.
    const QSignalBlocker blocker(this);
    document()->setUndoRedoEnabled(false);
    all.mergeBlockFormat(format);
    document()->setUndoRedoEnabled(true);
}

} // namespace flitmark
