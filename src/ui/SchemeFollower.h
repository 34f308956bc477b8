// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/ColorPalette.h>

#include <QObject>

class QWidget;

namespace flitmark {

/// Has an ordinary window, or what fills it, wear the desktop's scheme in the colour of a palette, also when the scheme
/// changes.
class SchemeFollower final : public QObject
{
    Q_OBJECT

public:
    /// `root` must outlive it.
    SchemeFollower(QWidget& root, ColorPalette palette);
    Q_DISABLE_COPY_MOVE(SchemeFollower)

    void setPalette(ColorPalette palette);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_root;
    ColorPalette m_palette;
};

} // namespace flitmark
