// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace flitmark {

/// Installed on the application, it makes one act of what the hand repeats: a key that is held down answers, closes and
/// saves once, and a double click presses a button once. Keys that write, erase or move go on repeating.
class RepeatFilter final : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isHeld(const QKeyEvent& key) const;
    bool isSecondClick(QWidget& watched, const QMouseEvent& click);

    /// The key that was let go last, and when.
    quint32 m_releasedKey = 0;
    quint64 m_releaseTime = 0;
    /// What was clicked last, and when.
    QPointer<QWidget> m_clicked;
    quint64 m_clickTime = 0;
};

} // namespace flitmark
