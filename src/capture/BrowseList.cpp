// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseList.h>
#include <capture/BrowseListModel.h>
#include <capture/BrowseModel.h>
#include <ui/ControlState.h>
#include <ui/Fonts.h>
#include <ui/RowContent.h>
#include <ui/ThemeScope.h>
#include <ui/ThinScrollBar.h>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <utility>

namespace flitmark {

namespace {

constexpr int padding = 8;
constexpr int wheelStep = 20;

} // namespace

/// Paints the rows, and gives them their height by what the entry is alone: the texts of entries out of sight stay
/// unread.
class BrowseList::RowDelegate final : public QStyledItemDelegate
{
public:
    explicit RowDelegate(BrowseList& list)
        : QStyledItemDelegate(&list)
        , m_list(list)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override
    {
        return {1, m_list.m_browse.browseItems()[index.row()].isDirectory ? m_folderHeight : m_noteHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const VaultItem& item = m_list.m_browse.browseItems()[index.row()];
        const bool isCurrent = index == m_list.currentIndex();
        RowContent content;
        content.symbol = item.icon();
        content.symbolColor = item.isDirectory ? &Theme::mark : &Theme::text2;
        content.title = item.name;
        content.second = m_list.m_browse.previewOf(index.row());
        content.trailingSymbol = item.isDirectory ? QStringLiteral("chevron.right") : QString();
        content.isSelected = m_list.selectionModel()->isSelected(index);
        content.paint(*painter, QRectF(option.rect), ThemeScope::of(m_list),
                      {m_list.levelOf(index.row()), isCurrent && m_list.m_state.showsFocus(), m_list.isEnabled()});
    }

    void measure()
    {
        m_folderHeight = rowHeightOf(true);
        m_noteHeight = rowHeightOf(false);
    }

private:
    BrowseList& m_list;
    int m_folderHeight = rowHeightOf(true);
    int m_noteHeight = rowHeightOf(false);
};

int BrowseList::rowHeightOf(bool isFolder)
{
    RowContent content;
    content.height = isFolder ? 40 : 52;
    content.second = isFolder ? QString() : QStringLiteral("x");
    return content.sizeHint().height();
}

BrowseList::BrowseList(BrowseModel& browse)
    : m_browse(browse)
    , m_rows(new BrowseListModel(browse))
    , m_scrollBar(new ThinScrollBar(*verticalScrollBar(), this))
    , m_state(*new ControlState(*this))
    , m_hover([this] { updateRow(m_hoveredRow); })
{
    m_rows->setParent(this);
    setAccessibleName(tr("Vault items"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(wheelStep);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setDragDropMode(NoDragDrop);
    setTabKeyNavigation(false);
    setViewportMargins(padding, padding, padding, padding);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    setItemDelegate(new RowDelegate(*this));
    setModel(m_rows);
    connect(m_rows, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        m_hoveredRow = -1;
        m_pressedRow = -1;
    });
    connect(&browse, &BrowseModel::browseItemsChanged, this, &BrowseList::showItems);
}

/// A folder that is listed again keeps its place; another one begins at its top.
void BrowseList::showItems()
{
    const QString folder = m_browse.currentBrowsePath().value_or(QString());
    if (folder != m_folder) {
        m_folder = folder;
        scrollToTop();
    }
}

void BrowseList::open(const QModelIndex& index)
{
    if (index.isValid()) {
        m_browse.activate(index.row());
    }
}

void BrowseList::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid()) {
        setCurrentIndex(index);
        m_pressedRow = index.row();
        setHovered(index.row());
    }
}

void BrowseList::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(indexAt(event->position().toPoint()).row());
}

void BrowseList::mouseReleaseEvent(QMouseEvent* event)
{
    const int pressed = std::exchange(m_pressedRow, -1);
    const QModelIndex index = indexAt(event->position().toPoint());
    updateRow(pressed);
    if (event->button() == Qt::LeftButton && pressed >= 0 && index.row() == pressed) {
        open(index);
    }
}

void BrowseList::mouseDoubleClickEvent(QMouseEvent* /*event*/)
{
    // The first click has opened the entry: the second one would hit whatever lies there now.
}

void BrowseList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QListView::keyPressEvent(event);
        return;
    }
    if (!currentIndex().isValid()) {
        return;
    }
    const bool isFolder = m_browse.browseItems()[currentIndex().row()].isDirectory;
    open(currentIndex());
    if (isFolder) {
        // The keyboard goes on from the first entry in there.
        setCurrentIndex(m_rows->index(0));
    }
}

void BrowseList::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    m_scrollBar->placeIn(rect());
}

bool BrowseList::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        setHovered(-1);
    } else if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        // Names are cut where they are too long.
        QToolTip::showText(help->globalPos(), index.data().toString(), viewport(), visualRect(index));
        return true;
    }
    return QListView::viewportEvent(event);
}

bool BrowseList::event(QEvent* event)
{
    if (event->type() == ThemeScope::changeEvent()) {
        static_cast<RowDelegate*>(itemDelegate())->measure();
        scheduleDelayedItemsLayout();
    }
    return QListView::event(event);
}

void BrowseList::setHovered(int row)
{
    if (m_hoveredRow != row) {
        updateRow(std::exchange(m_hoveredRow, row));
        m_hover.jumpTo(0);
        m_hover.moveTo(row < 0 ? 0 : 1);
    }
    updateRow(row);
}

double BrowseList::levelOf(int row) const
{
    if (row != m_hoveredRow) {
        return 0;
    }
    return row == m_pressedRow ? 2 : m_hover.value();
}

void BrowseList::updateRow(int row)
{
    if (row >= 0) {
        viewport()->update(visualRect(m_rows->index(row)));
    }
}

} // namespace flitmark
