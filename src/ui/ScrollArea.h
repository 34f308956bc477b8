// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>

namespace flitmark {

class ThinScrollBar;

/// Scrolls its widget up and down, which it makes as wide as itself. A thin bar lies over the content's right edge
/// while there is more than fits. What gets the focus by keyboard is scrolled into view.
class ScrollArea final : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollArea(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ScrollArea)

    /// Takes `content` over. Unlike a plain scroll area it leaves the content without a ground of its own.
    void setWidget(QWidget* content);

    /// Scrolls for the keys Up, Down, Page Up, Page Down, Home and End; false for any other key.
    bool scrollBy(int key);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void revealFocus(const QWidget* focused);

    ThinScrollBar* m_bar;
};

} // namespace flitmark
