// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace flitmark {

/// A ring that turns while something is under way: only as long as it can be seen, and where animations are wanted.
/// Screen readers pass it over.
class Spinner final : public QWidget
{
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Spinner)

    bool isTurning() const { return m_turn.state() == QAbstractAnimation::Running; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// In degrees, clockwise.
    QVariantAnimation m_turn;
};

} // namespace flitmark
