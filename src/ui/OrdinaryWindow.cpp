// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/OrdinaryWindow.h>

#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QWidget>

namespace flitmark {

namespace {

/// The usual height of a title bar, which the desktop adds on top.
constexpr int titleBarHeight = 40;

QIcon applicationIcon()
{
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) {
        icon.addFile(QStringLiteral(":/flitmark/icons/%1.png").arg(side));
    }
    return icon;
}

} // namespace

void centreOnScreen(QWidget& window, QSize size)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    if (size.isEmpty()) {
        window.adjustSize();
        size = window.size();
    }
    const QRect available = screen->availableGeometry().adjusted(0, titleBarHeight, 0, 0);
    QRect frame(QPoint(0, 0), size.boundedTo(available.size()));
    frame.moveCenter(available.center());
    window.setGeometry(frame);
}

void makeKeyAndOrderFront(QWidget& window)
{
    if (!window.testAttribute(Qt::WA_SetWindowIcon)) {
        window.setWindowIcon(applicationIcon());
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace flitmark
