// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Painting.h>
#include <ui/TextArea.h>
#include <ui/ThemeScope.h>
#include <ui/ThinScrollBar.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>

namespace flitmark {

TextArea::TextArea(const QString& name, int height, QWidget* parent)
    : QTextEdit(parent)
    , m_state(*new ControlState(*this))
    , m_scrollBar(new ThinScrollBar(*verticalScrollBar(), this))
    , m_height(height)
{
    setAccessibleName(name);
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(12, 8, ThinScrollBar::hitWidth, 8);
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    applyLook();
}

QString TextArea::text() const
{
    // QTextEdit's own plain text turns no-break spaces into spaces.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

void TextArea::setText(const QString& text)
{
    if (text != this->text()) {
        setPlainText(text);
        applyRowHeight();
    }
}

void TextArea::applyLook()
{
    setFont(fontOf(TextRole::Body));
    setFixedHeight(16 + scaled(m_height - 16));
    if (m_rowHeight != rowHeight(TextRole::Body)) {
        applyRowHeight();
    }
    const Theme& theme = ThemeScope::of(*this);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, theme.text);
    colors.setColor(QPalette::Highlight, theme.sel);
    colors.setColor(QPalette::HighlightedText, theme.text);
    if (colors != palette()) {
        setPalette(colors);
    }
}

void TextArea::applyRowHeight()
{
    m_rowHeight = rowHeight(TextRole::Body);
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

void TextArea::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    m_scrollBar->placeIn(rect().adjusted(0, 4, 0, -4));
}

void TextArea::wheelEvent(QWheelEvent* event)
{
    // A field that shows all of its text leaves the wheel to what it stands in.
    if (verticalScrollBar()->maximum() > 0) {
        QTextEdit::wheelEvent(event);
    } else {
        event->ignore();
    }
}

bool TextArea::event(QEvent* event)
{
    if (event->type() == ThemeScope::changeEvent() || event->type() == QEvent::Show) {
        applyLook();
    } else if (event->type() == QEvent::Paint) {
        // The viewport, which paints the text, lies inside it.
        paintFrame();
    }
    return QTextEdit::event(event);
}

void TextArea::paintFrame()
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    const QRectF box = rect();
    painting::fillRounded(painter, box, painting::controlRadius, theme.background);
    if (m_state.hasFocus()) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
    } else {
        painting::strokeRounded(painter, box, painting::controlRadius, 1,
                                mix(theme.edge, theme.outline, std::min(1.0, m_state.level())));
    }
}

} // namespace flitmark
