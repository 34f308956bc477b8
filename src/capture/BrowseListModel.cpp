// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseListModel.h>
#include <capture/BrowseModel.h>

namespace flitmark {

BrowseListModel::BrowseListModel(BrowseModel& browse)
    : m_browse(browse)
{
    connect(&browse, &BrowseModel::browseItemsChanged, this, &BrowseListModel::adoptItems);
    adoptItems();
}

void BrowseListModel::adoptItems()
{
    beginResetModel();
    m_rowCount = static_cast<int>(m_browse.browseItems().size());
    endResetModel();
}

int BrowseListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rowCount;
}

QVariant BrowseListModel::data(const QModelIndex& index, int role) const
{
    const QList<VaultItem>& items = m_browse.browseItems();
    if (!index.isValid() || index.row() >= items.size()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return items[index.row()].name;
    case Qt::AccessibleDescriptionRole:
        return m_browse.previewOf(index.row());
    default:
        return {};
    }
}

} // namespace flitmark
