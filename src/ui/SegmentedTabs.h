// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QButtonGroup>
#include <QWidget>

namespace flitmark {

class ControlState;

/// What the segments of a row are.
enum class SegmentKind {
    Tabs,    ///< buttons, each as wide as it needs; the first one is checked to begin with
    Choices, ///< radio buttons, all of one width, filling the row; none is checked to begin with
};

/// A row of buttons on a common track of which one is checked: the panel's tabs, a setting's choices. Left and Right
/// walk it; Tab enters it at the checked one.
class SegmentedTabs final : public QWidget
{
    Q_OBJECT

public:
    explicit SegmentedTabs(SegmentKind kind = SegmentKind::Tabs, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(SegmentedTabs)

    /// Appends a segment, with the symbol `symbol` before its text where given.
    void add(const QString& text, const QString& symbol = {});

    /// The index of the checked segment; -1 while there is none.
    int currentIndex() const { return m_group.checkedId(); }
    /// Checks the segment at `index`; an index out of range changes nothing.
    void setCurrentIndex(int index);
    /// Leaves no segment checked.
    void clearCurrent();

Q_SIGNALS:
    /// Another segment was checked, by the user or by `setCurrentIndex`.
    void currentChanged(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup m_group;
    SegmentKind m_kind;
};

} // namespace flitmark
