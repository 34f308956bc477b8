// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLayout>

namespace flitmark {

/// Lays its items out in a row and goes on in a further row where the width ends. Items keep their size hints.
class FlowLayout final : public QLayout
{
public:
    /// `spacing` points between items, and between rows.
    explicit FlowLayout(int spacing);
    ~FlowLayout() override;
    Q_DISABLE_COPY_MOVE(FlowLayout)

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    enum class Mode { Measure, Place };
    int layOut(const QRect& rect, Mode mode) const;

    QList<QLayoutItem*> m_items;
};

} // namespace flitmark
