// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QWidget>

namespace flitmark {

/// A row of tiles of the same width, a symbol over a text, of which exactly one is checked. Left and Right walk it; Tab
/// enters it at the checked one.
class TabTiles final : public QWidget
{
    Q_OBJECT

public:
    explicit TabTiles(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(TabTiles)

    /// Appends a tile. The first one is checked.
    void add(const QString& text, const QString& symbol);

    /// The index of the checked tile; -1 while there is none.
    int currentIndex() const { return m_group.checkedId(); }
    /// Checks the tile at `index`; an index out of range changes nothing.
    void setCurrentIndex(int index);
    /// The checked tile.
    QWidget* currentTile() const { return m_group.checkedButton(); }

Q_SIGNALS:
    /// Another tile was checked, by the user or by `setCurrentIndex`.
    void currentChanged(int index);

private:
    QButtonGroup m_group;
};

} // namespace flitmark
