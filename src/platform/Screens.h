// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QRectF>

#include <optional>

namespace flitmark {

/// The frames of one screen in points. The origin is the bottom left corner of the main screen and y grows upwards.
struct ScreenFrames
{
    /// The screen without the desktop's own panels.
    QRectF visible;
    QRectF full;
};

/// The screens of the desktop, in the coordinates that the placement rules use. Main thread only.
class Screens : public QObject
{
    Q_OBJECT

public:
    Screens() = default;
    Q_DISABLE_COPY_MOVE(Screens)

    /// The main screen's frames; nothing while there is no screen.
    virtual std::optional<ScreenFrames> mainScreen() const = 0;

    /// A rectangle between the desktop's coordinates (origin top left) and the placement rules' (origin bottom left):
    /// the same turn both ways.
    QRectF flipped(const QRectF& rect) const;

protected:
    /// Where the main screen ends at the bottom, in the desktop's coordinates; 0 while there is no screen.
    virtual double bottomOfMainScreen() const = 0;

Q_SIGNALS:
    /// Screens were added, removed or rearranged, or the space the desktop leaves on them changed.
    void changed();
};

} // namespace flitmark
