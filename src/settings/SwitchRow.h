// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QVBoxLayout;

namespace flitmark {

class Label;
class Switch;

/// A row of a card: a text with remarks below it, and at its right the switch that they are about. A click anywhere in
/// it flips the switch.
class SwitchRow final : public QWidget
{
    Q_OBJECT

public:
    /// `text` names the switch; `caption`, which may be empty, describes it.
    SwitchRow(const QString& text, const QString& caption);
    Q_DISABLE_COPY_MOVE(SwitchRow)

    Switch* toggle() const { return m_switch; }
    /// Adds a remark.
    Label* addLine(const QString& text = {});

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QVBoxLayout* m_lines;
    Switch* m_switch;
};

} // namespace flitmark
