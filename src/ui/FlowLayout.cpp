// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/FlowLayout.h>

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace flitmark {

FlowLayout::FlowLayout(int spacing)
{
    setSpacing(spacing);
    setContentsMargins({});
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const
{
    return layOut(QRect(0, 0, width, 0), Mode::Measure);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : m_items) {
        size = size.expandedTo(item->minimumSize());
    }
    return size;
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    layOut(rect, Mode::Place);
}

int FlowLayout::layOut(const QRect& rect, Mode mode) const
{
    QPoint at = rect.topLeft();
    int rowHeight = 0;
    for (QLayoutItem* item : m_items) {
        const QSize size = item->sizeHint();
        if (at.x() > rect.left() && at.x() + size.width() > rect.left() + rect.width()) {
            at = {rect.left(), at.y() + rowHeight + spacing()};
            rowHeight = 0;
        }
        if (mode == Mode::Place) {
            item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), rect, QRect(at, size)));
        }
        at.rx() += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    return at.y() + rowHeight - rect.top();
}

} // namespace flitmark
