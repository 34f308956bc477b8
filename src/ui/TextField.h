// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>

#include <QLineEdit>

namespace flitmark {

/// A one-line text field.
class TextField final : public QLineEdit
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    explicit TextField(const QString& name, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(TextField)

    /// The room left and right of the text; 12 unless set. A field for one emoji takes 0 and is centred.
    void setPadding(int points);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void applyFont();
    void applyColors();

    ControlState& m_state;
};

} // namespace flitmark
