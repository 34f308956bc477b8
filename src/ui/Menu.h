// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>

namespace flitmark {

class WindowManager;

/// A menu in the look of the floating windows, in the theme of its parent. With a compositor it stands in a soft
/// shadow, without one it is cut to its rounded frame.
class Menu : public QMenu
{
    Q_OBJECT

public:
    static constexpr int frameWidth = 240;

    Menu(WindowManager& windowManager, QWidget* parent);
    Q_DISABLE_COPY_MOVE(Menu)

    /// `keys` are shown at the item's right and told to screen readers; they do nothing by themselves.
    QAction* addItem(const QString& text, const QKeySequence& keys = {});

    enum class OpenedBy { Pointer, Keyboard };
    /// Opens the menu with the corner of its frame at `position`, or as near as the screen allows, and destroys it when
    /// it is closed. Without the pointer one begins at the first item.
    void openAt(const QPoint& position, OpenedBy openedBy);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    class Style;

    QRect frame() const { return rect().adjusted(m_margin, m_margin, -m_margin, -m_margin); }
    void paintItem(QPainter& painter, const QAction& action, const QRectF& rect) const;

    /// The width of the shadow around the frame; 0 without a compositor.
    int m_margin;
};

} // namespace flitmark
