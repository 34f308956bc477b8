// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/KeyCap.h>
#include <ui/Painting.h>
#include <ui/ThemeScope.h>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double keyRadius = 6;
constexpr int capPadding = 8;

} // namespace

KeyCap::KeyCap(const QString& keys, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(keys);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize KeyCap::sizeHint() const
{
    const double width = painting::lineWidth(text(), fontOf(TextRole::CaptionStrong));
    return {std::max(scaled(44), static_cast<int>(std::ceil(width)) + 2 * capPadding),
            rowHeight(TextRole::CaptionStrong) + 8};
}

void KeyCap::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), keyRadius, theme.background);
    painting::strokeRounded(painter, rect(), keyRadius, 1, theme.edge);
    painting::drawLine(painter, rect(), text(), fontOf(TextRole::CaptionStrong), theme.text, Qt::AlignHCenter);
}

} // namespace flitmark
