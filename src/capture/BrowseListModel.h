// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>

namespace flitmark {

class BrowseModel;

/// The entries of the listed folder as rows: each is named by the entry's name and described by the beginning of its
/// text, which is read only when it is asked for.
class BrowseListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    /// `browse` must outlive it.
    explicit BrowseListModel(BrowseModel& browse);
    Q_DISABLE_COPY_MOVE(BrowseListModel)

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void adoptItems();

    BrowseModel& m_browse;
    // Views must not see the number of rows change on its own.
    int m_rowCount = 0;
};

} // namespace flitmark
