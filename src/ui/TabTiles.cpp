// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/Symbols.h>
#include <ui/TabTiles.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>
#include <QPushButton>

#include <cmath>

namespace flitmark {

namespace {

constexpr double tileSymbolSize = 20;
constexpr int tileGap = 4;

class Tile final : public QPushButton
{
public:
    Tile(const QString& text, const QString& symbol, QWidget* parent)
        : QPushButton(parent)
        , m_state(*new ControlState(*this))
        , m_symbol(symbol)
    {
        setAccessibleRole(*this, QAccessible::PageTab);
        setPlainText(*this, text);
        setCheckable(true);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        const double text = painting::lineWidth(plainText(*this), fontOf(TextRole::CaptionStrong));
        return {static_cast<int>(std::ceil(text)) + 2 * tileGap, 40 + rowHeight(TextRole::CaptionStrong)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        const QRectF box = rect();
        QPainter painter(this);
        if (isChecked()) {
            painting::fillRounded(painter, box, painting::controlRadius, theme.sel);
        }
        painting::fillRounded(painter, box, painting::controlRadius, painting::stateLayer(theme, m_state.level()));

        const double textHeight = rowHeight(TextRole::CaptionStrong);
        const double top = (height() - tileSymbolSize - tileGap - textHeight) / 2;
        Symbols::draw(painter, m_symbol, QRectF((width() - tileSymbolSize) / 2, top, tileSymbolSize, tileSymbolSize),
                      isChecked() ? theme.selMark : theme.text2);
        painting::drawLine(painter, QRectF(0, top + tileSymbolSize + tileGap, width(), textHeight), plainText(*this),
                           fontOf(TextRole::CaptionStrong), isChecked() ? theme.text : theme.text2, Qt::AlignHCenter);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    ControlState& m_state;
    QString m_symbol;
};

} // namespace

TabTiles::TabTiles(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleRole(*this, QAccessible::PageTabList);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(tileGap);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&m_group, &QButtonGroup::idToggled, this, [this](int index, bool isChecked) {
        if (isChecked) {
            Q_EMIT currentChanged(index);
        }
    });
}

void TabTiles::add(const QString& text, const QString& symbol)
{
    auto* tile = new Tile(text, symbol, this);
    const auto index = static_cast<int>(m_group.buttons().size());
    if (index == 0) {
        tile->setChecked(true);
    }
    m_group.addButton(tile, index);
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->addWidget(tile, 1);
    // Equal shares, also of what the widest text needs.
    int widest = 0;
    for (const QAbstractButton* button : m_group.buttons()) {
        widest = std::max(widest, button->sizeHint().width());
    }
    for (QAbstractButton* button : m_group.buttons()) {
        button->setMinimumWidth(widest);
    }
}

void TabTiles::setCurrentIndex(int index)
{
    if (QAbstractButton* tile = m_group.button(index)) {
        tile->setChecked(true);
    }
}

} // namespace flitmark
