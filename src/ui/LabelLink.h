// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>

namespace flitmark {

class ControlState;
class Label;

/// A link in the text of a label, over the part that begins at `start`: a control of its own for pointer, keyboard and
/// screen readers. A child of the label.
class LabelLink final : public QAbstractButton
{
public:
    LabelLink(Label& label, qsizetype start, qsizetype length);
    Q_DISABLE_COPY_MOVE(LabelLink)

    QSize sizeHint() const override { return size(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();

    Label& m_label;
    ControlState& m_state;
    qsizetype m_start;
    qsizetype m_length;
};

} // namespace flitmark
