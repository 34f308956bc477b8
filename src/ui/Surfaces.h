// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Theme.h>

#include <QLabel>
#include <QWidget>

namespace flitmark {

/// The ground of a window: one colour of the theme.
class Ground final : public QWidget
{
    Q_OBJECT

public:
    explicit Ground(ColorToken color = &Theme::background, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Ground)

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorToken m_color;
};

/// A rounded ground for things that belong together.
class Card final : public QWidget
{
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Card)

    /// `Theme::card` unless set.
    void setColor(ColorToken color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorToken m_color = &Theme::card;
};

/// A line across its parent.
class Divider final : public QWidget
{
    Q_OBJECT

public:
    /// `inset` is left free at both ends.
    explicit Divider(int inset = 0, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Divider)

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_inset;
};

/// A symbol that does nothing, in the middle of its widget. Screen readers pass it over.
class SymbolView final : public QWidget
{
    Q_OBJECT

public:
    /// `points` is the symbol's side.
    SymbolView(const QString& symbol, int points, ColorToken color = &Theme::mark, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(SymbolView)

    void setSymbol(const QString& symbol);
    void setColor(ColorToken color);
    /// Puts the symbol on a rounded tile of `side` in the colour `ground`.
    void setTile(int side, ColorToken ground);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    int m_points;
    ColorToken m_color;
    int m_tileSide = 0;
    ColorToken m_tileGround = nullptr;
};

/// A short word on a round ground.
class Badge final : public QLabel
{
    Q_OBJECT

public:
    enum class Kind { Plain, Accent };

    explicit Badge(const QString& text, Kind kind = Kind::Plain, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Badge)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind;
};

/// A row of dots, one per step, filled up to the current one.
class Dots final : public QWidget
{
    Q_OBJECT

public:
    explicit Dots(int count, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Dots)

    /// The last filled dot, from 0.
    void setCurrent(int index);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_count;
    int m_current = 0;
};

} // namespace flitmark
