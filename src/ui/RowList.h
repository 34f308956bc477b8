// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>

class QScrollArea;

namespace flitmark {

/// A column of rows in a scroll area, however many: only those in view have widgets, and some around them.
///
/// Rows may be of several kinds and heights. The height of a row without a widget is estimated by its text; what is in
/// view stays where it is when that was wrong. Tab walks through all rows, and the row with the keyboard keeps its
/// widget, which is also the one that is being clicked.
class RowList final : public QWidget
{
    Q_OBJECT

public:
    /// Gives the widget that shows the row at `index`: `row` if that can show it, else a new one. `row` may be null.
    using ShowRow = std::function<QWidget*(qsizetype index, QWidget* row)>;

    explicit RowList(ShowRow showRow);
    Q_DISABLE_COPY_MOVE(RowList)

    /// Shows a row for each of `texts`, which need not differ. A row whose text is still there keeps its widget; the
    /// rows between two of those take the widgets that were between them. What has a widget is shown anew.
    void setRows(const QStringList& texts);

protected:
    bool event(QEvent* event) override;

private:
    /// Rows from `first` to the one before `end`.
    struct Range
    {
        qsizetype first;
        qsizetype end;
    };

    void arrangeLater();
    void arrange();
    QRect visiblePart() const;
    std::optional<qsizetype> rowToHold(const QRect& view) const;
    QList<Range> wantedRows(const QRect& view) const;
    void measureRows();
    bool makeRows(const QList<Range>& ranges);
    void dropRows(const QList<Range>& ranges);
    void placeRows(int shift);
    void orderTabs();
    void adopt(qsizetype index, QWidget* row);
    qsizetype rowAt(int y) const;
    std::optional<qsizetype> rowOf(const QWidget* part) const;

    ShowRow m_showRow;
    QScrollArea* m_area = nullptr;
    QStringList m_texts;
    std::map<qsizetype, QWidget*> m_rows;
    /// As measured in the width `m_measuredWidth`; 0 where a row had no widget yet.
    QList<int> m_heights;
    int m_measuredWidth = 0;
    /// Where each row begins, and where the last one ends.
    QList<int> m_tops{0};
    bool m_isBusy = false;
};

} // namespace flitmark
