// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantAnimation>

#include <functional>
#include <memory>

namespace flitmark {

/// How the interface moves: shortly, and not at all where the desktop asks for no animations.
namespace motion {

/// State layers, quick tags, switches.
constexpr int stateMilliseconds = 120;
/// Status line, wizard step, sheets.
constexpr int stepMilliseconds = 160;

/// Whether the desktop wants animations.
bool isWanted();

/// Switches all animations off (or leaves them to the desktop again): for pictures and tests.
enum class Setting { AsDesktop, Never };
void set(Setting setting);

/// `milliseconds`, or 0 where no animations are wanted.
int duration(int milliseconds);

} // namespace motion

/// A number that glides to its target and tells on the way.
class Glide final
{
public:
    /// `onChange` is called whenever the value has changed.
    explicit Glide(std::function<void()> onChange);
    Q_DISABLE_COPY_MOVE(Glide)

    double value() const { return m_value; }

    /// Moves to `target` in `milliseconds`, easing out, or at once where no animations are wanted.
    void moveTo(double target, int milliseconds = motion::stateMilliseconds);
    /// Stands at `target` now.
    void jumpTo(double target);

private:
    void change(double value);

    std::function<void()> m_onChange;
    double m_value = 0;
    double m_target = 0;
    // Made with the first movement: most controls of a window never move.
    std::unique_ptr<QVariantAnimation> m_animation;
};

} // namespace flitmark
