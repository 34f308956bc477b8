// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/ControlState.h>
#include <ui/RowContent.h>

#include <QPushButton>
#include <QRadioButton>

namespace flitmark {

/// A row of which one in its parent is chosen. To screen readers it is a radio button named by its title and described
/// by its second line.
class ListRow final : public QRadioButton
{
    Q_OBJECT

public:
    explicit ListRow(const RowContent& content, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ListRow)

    QSize sizeHint() const override { return m_content.sizeHint(); }
    QSize minimumSizeHint() const override { return m_content.sizeHint(); }
    /// The width that cuts nothing of the title.
    int wholeWidth() const { return m_content.wholeWidth(); }

protected:
    /// Chosen it stays chosen. Qt sees to that only among several.
    void nextCheckState() override { setChecked(true); }
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
    RowContent m_content;
};

/// A row that does something when it is clicked. To screen readers it is a button named by its title and described by
/// its second line. Space and Return press it.
class ActionRow final : public QPushButton
{
    Q_OBJECT

public:
    explicit ActionRow(const RowContent& content, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ActionRow)

    void setTitle(const QString& title);

    QSize sizeHint() const override { return m_content.sizeHint(); }
    QSize minimumSizeHint() const override { return m_content.sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ControlState& m_state;
    RowContent m_content;
};

} // namespace flitmark
