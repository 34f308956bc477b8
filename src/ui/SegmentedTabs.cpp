// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/SegmentedTabs.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

#include <cmath>

namespace flitmark {

namespace {

constexpr double trackRadius = 10;
constexpr double segmentRadius = 6;
constexpr double padding = 12;
constexpr double symbolSize = 16;
constexpr double gap = 8;

/// One button of the row.
class Segment final : public QPushButton
{
public:
    Segment(const QString& text, const QString& symbol, QWidget* parent)
        : QPushButton(parent)
        , m_state(*new ControlState(*this))
        , m_symbol(symbol)
    {
        setPlainText(*this, text);
        setCheckable(true);
        setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {static_cast<int>(std::ceil(contentWidth() + 2 * padding)), controlHeight() - 4};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        const QRectF box = rect();
        QPainter painter(this);
        if (isChecked()) {
            painting::fillRounded(painter, box, segmentRadius, theme.sel);
        }
        painting::fillRounded(painter, box, segmentRadius, painting::stateLayer(theme, m_state.level()));

        const QColor idle = isEnabled() ? theme.text2 : theme.off;
        double left = (width() - contentWidth()) / 2;
        if (!m_symbol.isEmpty()) {
            const QRectF square(left, (height() - symbolSize) / 2, symbolSize, symbolSize);
            Symbols::draw(painter, m_symbol, square, isChecked() && isEnabled() ? theme.selMark : idle);
            left += symbolSize + gap;
        }
        painting::drawLine(painter, QRectF(left, 0, width() - left, height()), plainText(*this),
                           fontOf(TextRole::Strong), isChecked() && isEnabled() ? theme.text : idle);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, box, segmentRadius, painting::focusWidth, theme.mark);
        }
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
            return;
        }
        QPushButton::keyPressEvent(event);
    }

private:
    double contentWidth() const
    {
        const double text = painting::lineWidth(plainText(*this), fontOf(TextRole::Strong));
        return text + (m_symbol.isEmpty() ? 0 : symbolSize + gap);
    }

    ControlState& m_state;
    QString m_symbol;
};

} // namespace

SegmentedTabs::SegmentedTabs(SegmentWidth width, QWidget* parent)
    : QWidget(parent)
    , m_width(width)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 4, 4, 4);
    row->setSpacing(4);
    setSizePolicy(width == SegmentWidth::Shared ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_group, &QButtonGroup::idToggled, this, [this](int index, bool isChecked) {
        if (isChecked) {
            Q_EMIT currentChanged(index);
        }
    });
}

void SegmentedTabs::add(const QString& text, const QString& symbol)
{
    auto* segment = new Segment(text, symbol, this);
    const auto index = static_cast<int>(m_group.buttons().size());
    if (index == 0) {
        segment->setChecked(true);
    }
    m_group.addButton(segment, index);
    static_cast<QHBoxLayout*>(layout())->addWidget(segment, m_width == SegmentWidth::Shared ? 1 : 0);
}

void SegmentedTabs::setCurrentIndex(int index)
{
    if (QAbstractButton* segment = m_group.button(index)) {
        segment->setChecked(true);
    }
}

void SegmentedTabs::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painting::fillRounded(painter, rect(), trackRadius, ThemeScope::of(*this).soft);
}

} // namespace flitmark
