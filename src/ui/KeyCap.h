// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

namespace flitmark {

/// A key or a combination of keys ("⌘S"), drawn as a key. Screen readers read its text.
class KeyCap final : public QLabel
{
    Q_OBJECT

public:
    explicit KeyCap(const QString& keys, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(KeyCap)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace flitmark
