// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Motion.h>

#include <QListView>

namespace flitmark {

class BrowseListModel;
class BrowseModel;
class ControlState;
class ThinScrollBar;

/// The list of a folder's entries, smooth with a hundred thousand of them: its rows are painted, and an entry's text is
/// read only when its row is. One click opens an entry, so does Return on the current one.
///
/// To screen readers it is the list "Vault items" of items named and described as in `BrowseListModel`.
class BrowseList final : public QListView
{
    Q_OBJECT

public:
    /// `browse` must outlive it.
    explicit BrowseList(BrowseModel& browse);
    Q_DISABLE_COPY_MOVE(BrowseList)

    /// The height of the row of a folder, or of a note, in points.
    static int rowHeightOf(bool isFolder);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    class RowDelegate;

    void open(const QModelIndex& index);
    void showItems();
    void setHovered(int row);
    double levelOf(int row) const;
    void updateRow(int row);

    BrowseModel& m_browse;
    BrowseListModel* m_rows;
    ThinScrollBar* m_scrollBar;
    ControlState& m_state;
    Glide m_hover;
    int m_hoveredRow = -1;
    /// The row the mouse button went down on; below zero while it is up.
    int m_pressedRow = -1;
    /// What was listed last: listed again, it stays where it is.
    QString m_folder;
};

} // namespace flitmark
