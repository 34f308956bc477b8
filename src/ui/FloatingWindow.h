// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/WindowManager.h>

#include <QWidget>

#include <optional>

namespace flitmark {

/// A window without the desktop's frame: rounded, on all workspaces, above other windows, out of the task bar, moved by
/// dragging its background. With a compositor it stands in a soft shadow that lies in a margin around the frame and
/// lets clicks through; without one it is cut to its rounded frame. Sizes and places always mean the frame, in points
/// and in the desktop's coordinates.
class FloatingWindow : public QWidget
{
    Q_OBJECT

public:
    enum class Resizing { Fixed, ByEdges };
    enum class Level {
        Normal,   ///< other windows can cover it
        Floating, ///< above other windows
    };

    /// Of the frame's corners.
    static constexpr int frameRadius = 16;

    FloatingWindow(WindowManager& windowManager, Resizing resizing);
    ~FloatingWindow() override;
    Q_DISABLE_COPY_MOVE(FloatingWindow)

    /// Where the window's own widgets live. Fills the frame.
    QWidget* content() const { return m_content; }

    QRect frameRect() const;
    void setFrameRect(const QRect& frame);
    /// Where the window stands among others; floating unless set. It may change while the window is on screen.
    void setLevel(Level level);

    void setFrameLimits(const QSize& minimum, const QSize& maximum);

    /// Shows the window as a companion: the desktop is told again what kind of window this is.
    void showCompanion();

    /// Shows the window as a companion, or brings it to the front, and gives it the keyboard.
    void makeKey();
    /// Hides the window. The keyboard goes back to the window that `makeKey` took it from.
    void orderOut();

Q_SIGNALS:
    /// The frame has moved or has another size.
    void frameChanged();
    /// The desktop asked to close the window. It stays open until somebody hides it.
    void closeAsked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class Grip;

    void regainActivity();
    void followCompositor();
    void layOut();
    QMargins margins() const { return {m_margin, m_margin, m_margin, m_margin}; }

    WindowManager& m_windowManager;
    QWidget* m_content;
    QList<Grip*> m_grips;
    QSize m_minimum;
    QSize m_maximum;
    /// The width of the shadow's margin; 0 without a compositor.
    int m_margin = 0;
    std::optional<QPoint> m_pressed;
    WindowManager::WindowId m_previousWindow = 0;
};

} // namespace flitmark
