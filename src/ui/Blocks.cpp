// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Blocks.h>
#include <ui/Painting.h>
#include <ui/Prose.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>

namespace flitmark {

namespace {

constexpr double tint = 0.12;

} // namespace

NumberBadge::NumberBadge(int number, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(QString::number(number));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize NumberBadge::sizeHint() const
{
    const int side = rowHeight(TextRole::Caption) + 8;
    return {side, side};
}

void NumberBadge::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QFont font = fontOf(TextRole::Caption);
    font.setWeight(QFont::DemiBold);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), height() / 2.0, theme.badge);
    painting::drawLine(painter, rect(), text(), font, theme.badgeText, Qt::AlignHCenter);
}

Callout::Callout(const QString& symbol, ColorToken color, const QString& text, QWidget* parent)
    : QWidget(parent)
    , m_color(color)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 12, 12, 12);
    row->setSpacing(12);
    row->addWidget(new SymbolView(symbol, 20, color), 0, Qt::AlignTop);
    row->addWidget(new Prose(text), 1);
}

void Callout::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painting::fillRounded(painter, rect(), painting::cardRadius, mix(theme.background, theme.*m_color, tint));
}

CodeBlock::CodeBlock(const QString& lines, QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->addWidget(new Prose(lines, TextRole::Code));
}

void CodeBlock::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painting::fillRounded(painter, rect(), painting::cardRadius, ThemeScope::of(*this).card);
}

} // namespace flitmark
