// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QLineEdit>

namespace flitmark {

/// A text field of one line: a line break in what is entered, pasted, dropped or set becomes a space.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    explicit TextField(const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(TextField)

    /// Makes it a narrow field for one emoji, which stands in the middle and is drawn larger.
    void setForIcon();
    /// Shows by its border that its text makes no sense. Words have to say why.
    void setMarkedWrong(bool isWrong);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    void applyLook();
    void setPadding(int points);

    ControlState& m_state;
    bool m_isForIcon = false;
    bool m_isMarkedWrong = false;
};

} // namespace flitmark
