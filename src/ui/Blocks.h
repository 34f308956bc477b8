// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Theme.h>

#include <QLabel>

namespace flitmark {

/// The number of a step in a round badge.
class NumberBadge final : public QLabel
{
    Q_OBJECT

public:
    explicit NumberBadge(int number, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(NumberBadge)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A text that stands out: a symbol and the text on a ground tinted by the symbol's colour.
class Callout final : public QWidget
{
    Q_OBJECT

public:
    Callout(const QString& symbol, ColorToken color, const QString& text, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Callout)

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorToken m_color;
};

/// Lines in the fixed font, on a card. Their spaces are kept.
class CodeBlock final : public QWidget
{
    Q_OBJECT

public:
    explicit CodeBlock(const QString& lines, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(CodeBlock)

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace flitmark
