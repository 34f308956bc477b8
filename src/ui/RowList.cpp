// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Fonts.h>
#include <ui/RowChange.h>
#include <ui/RowList.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QFontMetrics>
#include <QLayout>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace flitmark {

namespace {

/// How many rows have widgets at either end, where Tab comes in, and on either side of the keyboard, where it goes on.
constexpr qsizetype rowsForTab = 2;

/// Takes a row away once what is under way in it has come to its end.
void retire(QWidget* row)
{
    row->hide();
    row->deleteLater();
}

} // namespace

RowList::RowList(ShowRow showRow)
    : m_showRow(std::move(showRow))
{
    // At once: the next Tab may be waiting already.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
        if (rowOf(now)) {
            arrange();
        }
    });
}

void RowList::setRows(const QStringList& texts)
{
    const QScopedValueRollback busy(m_isBusy, true);
    const QStringList old = std::exchange(m_texts, texts);
    const RowChange change(old, texts);
    m_heights = m_heights.first(change.sameFirst()) +
                QList<int>(texts.size() - change.sameFirst() - change.sameLast()) + m_heights.last(change.sameLast());

    const std::map<qsizetype, QWidget*> rows = std::exchange(m_rows, {});
    QList<qsizetype> places;
    for (const auto& [place, row] : rows) {
        places.append(place);
    }
    places = change.newPlaces(places);
    for (const auto& [from, row] : rows) {
        const qsizetype place = places.takeFirst();
        QWidget* const shown = place < 0 ? nullptr : m_showRow(place, row);
        if (shown != nullptr) {
            adopt(place, shown);
            shown->setGeometry(row->geometry());
        }
        if (shown != row) {
            retire(row);
        }
    }
    arrangeLater();
}

bool RowList::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        for (QWidget* part = parentWidget(); m_area == nullptr && part != nullptr; part = part->parentWidget()) {
            m_area = qobject_cast<QScrollArea*>(part);
            if (m_area != nullptr) {
                connect(m_area->verticalScrollBar(), &QScrollBar::valueChanged, this, &RowList::arrangeLater);
                connect(m_area->verticalScrollBar(), &QScrollBar::rangeChanged, this, &RowList::arrangeLater);
            }
        }
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
        arrangeLater();
        break;
    case QEvent::LayoutRequest:
        arrange();
        return true;
    default:
        if (event->type() == ThemeScope::changeEvent()) {
            m_heights.fill(0);
            arrangeLater();
        }
        break;
    }
    return QWidget::event(event);
}

/// Before anything is painted, but not in the midst of what others lay out.
void RowList::arrangeLater()
{
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void RowList::arrange()
{
    if (m_isBusy || m_area == nullptr || !isVisible()) {
        return;
    }
    const QScopedValueRollback busy(m_isBusy, true);
    if (std::exchange(m_measuredWidth, width()) != width()) {
        m_heights.fill(0);
    }
    const QRect view = visiblePart();
    const std::optional<qsizetype> held = rowToHold(view);
    const int heldAt = held ? m_rows.at(*held)->y() : 0;
    int shift = 0;
    QList<Range> wanted;
    do {
        measureRows();
        shift = held ? m_tops[*held] - heldAt : 0;
        wanted = wantedRows(view.translated(0, shift));
    } while (makeRows(wanted));
    dropRows(wanted);
    placeRows(shift);
    orderTabs();
}

QRect RowList::visiblePart() const
{
    return {mapFrom(m_area->viewport(), QPoint()), m_area->viewport()->size()};
}

/// The row that stays where it is on the screen, whatever becomes of those above it: the one with the keyboard, or the
/// first in view. None while the list begins in view.
std::optional<qsizetype> RowList::rowToHold(const QRect& view) const
{
    if (view.top() <= 0) {
        return std::nullopt;
    }
    const auto isInView = [&view](const auto& row) { return row.second->geometry().intersects(view); };
    if (const auto focused = rowOf(window()->focusWidget()); focused && isInView(*m_rows.find(*focused))) {
        return focused;
    }
    const auto first = std::find_if(m_rows.begin(), m_rows.end(), isInView);
    return first == m_rows.end() ? std::nullopt : std::optional(first->first);
}

QList<RowList::Range> RowList::wantedRows(const QRect& view) const
{
    const qsizetype count = m_texts.size();
    if (m_rows.empty()) {
        // The first one tells how high the others will be.
        return {{0, std::min<qsizetype>(count, 1)}};
    }
    QList<Range> ranges{{0, rowsForTab}, {count - rowsForTab, count}};
    if (view.bottom() >= 0 && view.top() < m_tops.last()) {
        const int margin = view.height() / 2;
        ranges.append({rowAt(view.top() - margin), rowAt(view.bottom() + margin) + 1});
    }
    if (const auto focused = rowOf(window()->focusWidget())) {
        ranges.append({*focused - rowsForTab, *focused + rowsForTab + 1});
    }
    for (Range& range : ranges) {
        range = {std::max<qsizetype>(range.first, 0), std::min(range.end, count)};
    }
    return ranges;
}

void RowList::measureRows()
{
    for (const auto& [index, row] : m_rows) {
        const int height = row->hasHeightForWidth() ? row->heightForWidth(width()) : row->sizeHint().height();
        m_heights[index] = std::max({height, row->minimumSizeHint().height(), 1});
    }
    const int line = rowHeight(TextRole::Body);
    const int oneLine = m_rows.empty() ? line : m_rows.begin()->second->minimumSizeHint().height();
    // About a quarter of a row's width is not its text's.
    const int lineLength = std::max(width() * 3 / 4 / QFontMetrics(fontOf(TextRole::Body)).averageCharWidth(), 1);
    m_tops.resize(m_texts.size() + 1);
    int top = 0;
    for (qsizetype i = 0; i < m_texts.size(); ++i) {
        m_tops[i] = top;
        top += m_heights[i] > 0 ? m_heights[i] : oneLine + static_cast<int>(m_texts[i].size()) / lineLength * line;
    }
    m_tops.last() = top;
}

/// Makes the widgets that are missing; false if none is.
bool RowList::makeRows(const QList<Range>& ranges)
{
    bool hasMade = false;
    for (const Range& range : ranges) {
        for (qsizetype i = range.first; i < range.end; ++i) {
            if (!m_rows.contains(i)) {
                adopt(i, m_showRow(i, nullptr));
                hasMade = true;
            }
        }
    }
    return hasMade;
}

void RowList::dropRows(const QList<Range>& ranges)
{
    std::erase_if(m_rows, [&ranges](const auto& row) {
        const bool isWanted = std::any_of(ranges.begin(), ranges.end(), [index = row.first](const Range& range) {
            return index >= range.first && index < range.end;
        });
        if (!isWanted) {
            retire(row.second);
        }
        return !isWanted;
    });
}

/// Puts the rows where they belong and takes the height of all, while the area scrolls by `shift`.
void RowList::placeRows(int shift)
{
    for (const auto& [index, row] : m_rows) {
        row->setGeometry(0, m_tops[index], width(), m_tops[index + 1] - m_tops[index]);
        row->show();
    }
    const int height = std::min(m_tops.last(), QWIDGETSIZE_MAX);
    if (shift == 0 && height == minimumHeight()) {
        return;
    }
    const int position = m_area->verticalScrollBar()->value() + shift;
    setFixedHeight(height);
    // Now rather than with the next turn: the rows and the position are seen together.
    for (QWidget* part = parentWidget(); part != m_area->viewport(); part = part->parentWidget()) {
        if (part->layout() != nullptr) {
            part->layout()->activate();
        }
    }
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(m_area, &request);
    m_area->verticalScrollBar()->setValue(position);
}

/// Tab walks through the rows in their order, from where the list is, whenever their widgets were made.
void RowList::orderTabs()
{
    QWidget* last = previousInFocusChain();
    while (last != this && (last->focusPolicy() == Qt::NoFocus || isAncestorOf(last))) {
        last = last->previousInFocusChain();
    }
    for (const auto& [index, row] : m_rows) {
        for (QWidget* part : QList<QWidget*>{row} + row->findChildren<QWidget*>()) {
            if ((part->focusPolicy() & Qt::TabFocus) != 0) {
                setTabOrder(last, part);
                last = part;
            }
        }
    }
}

void RowList::adopt(qsizetype index, QWidget* row)
{
    row->setParent(this);
    // Screen readers walk through the rows in the order of the list, too.
    if (const auto next = m_rows.upper_bound(index); next != m_rows.end()) {
        row->stackUnder(next->second);
    }
    m_rows[index] = row;
}

/// The row at `y`, or the nearest. There must be one.
qsizetype RowList::rowAt(int y) const
{
    const qsizetype next = std::upper_bound(m_tops.begin(), m_tops.end(), y) - m_tops.begin();
    return std::clamp<qsizetype>(next - 1, 0, m_texts.size() - 1);
}

std::optional<qsizetype> RowList::rowOf(const QWidget* part) const
{
    while (part != nullptr && part->parentWidget() != this) {
        part = part->parentWidget();
    }
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [part](const auto& row) { return row.second == part; });
    return part == nullptr || found == m_rows.end() ? std::nullopt : std::optional(found->first);
}

} // namespace flitmark
