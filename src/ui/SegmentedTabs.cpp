// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/AccessibleRole.h>
#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/SegmentedTabs.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

#include <cmath>

namespace flitmark {

namespace {

constexpr double trackRadius = 10;
constexpr double segmentRadius = 6;
constexpr double segmentPadding = 12;
constexpr double segmentSymbolSize = 16;
constexpr double segmentGap = 8;

/// What a segment looks like, whichever kind of button it is.
class SegmentLook
{
public:
    SegmentLook(QAbstractButton& button, QAccessible::Role role, const QString& text, const QString& symbol)
        : m_button(button)
        , m_state(*new ControlState(button))
        , m_symbol(symbol)
    {
        setAccessibleRole(button, role);
        setPlainText(button, text);
        button.setCheckable(true);
        button.setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    }

    QSize sizeHint() const
    {
        return {static_cast<int>(std::ceil(contentWidth() + 2 * segmentPadding)), controlHeight() - 4};
    }

    void paint() const
    {
        const Theme& theme = ThemeScope::of(m_button);
        const QRectF box = m_button.rect();
        const bool isEnabled = m_button.isEnabled();
        const bool isChecked = m_button.isChecked();
        QPainter painter(&m_button);
        if (isChecked) {
            painting::fillRounded(painter, box, segmentRadius, theme.sel);
        }
        painting::fillRounded(painter, box, segmentRadius, painting::stateLayer(theme, m_state.level()));

        const QColor idle = isEnabled ? theme.text2 : theme.off;
        double left = (box.width() - contentWidth()) / 2;
        if (!m_symbol.isEmpty()) {
            const QRectF square(left, (box.height() - segmentSymbolSize) / 2, segmentSymbolSize, segmentSymbolSize);
            Symbols::draw(painter, m_symbol, square, isChecked && isEnabled ? theme.selMark : idle);
            left += segmentSymbolSize + segmentGap;
        }
        painting::drawLine(painter, QRectF(left, 0, box.width() - left, box.height()), plainText(m_button),
                           fontOf(TextRole::Strong), isChecked && isEnabled ? theme.text : idle);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, box, segmentRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    double contentWidth() const
    {
        const double text = painting::lineWidth(plainText(m_button), fontOf(TextRole::Strong));
        return text + (m_symbol.isEmpty() ? 0 : segmentSymbolSize + segmentGap);
    }

    QAbstractButton& m_button;
    ControlState& m_state;
    QString m_symbol;
};

class TabSegment final : public QPushButton
{
public:
    TabSegment(const QString& text, const QString& symbol, QWidget* parent)
        : QPushButton(parent)
        , m_look(*this, QAccessible::PageTab, text, symbol)
    {
    }

    QSize sizeHint() const override { return m_look.sizeHint(); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { m_look.paint(); }

private:
    SegmentLook m_look;
};

class ChoiceSegment final : public QRadioButton
{
public:
    ChoiceSegment(const QString& text, const QString& symbol, QWidget* parent)
        : QRadioButton(parent)
        , m_look(*this, QAccessible::RadioButton, text, symbol)
    {
    }

    QSize sizeHint() const override { return m_look.sizeHint(); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* /*event*/) override { m_look.paint(); }

private:
    SegmentLook m_look;
};

} // namespace

SegmentedTabs::SegmentedTabs(SegmentKind kind, QWidget* parent)
    : QWidget(parent)
    , m_kind(kind)
{
    setAccessibleRole(*this, kind == SegmentKind::Tabs ? QAccessible::PageTabList : QAccessible::Grouping);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 4, 4, 4);
    row->setSpacing(4);
    setSizePolicy(kind == SegmentKind::Choices ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_group, &QButtonGroup::idToggled, this, [this](int index, bool isChecked) {
        if (isChecked) {
            Q_EMIT currentChanged(index);
        }
    });
}

void SegmentedTabs::add(const QString& text, const QString& symbol)
{
    const auto index = static_cast<int>(m_group.buttons().size());
    QAbstractButton* segment = nullptr;
    if (m_kind == SegmentKind::Tabs) {
        segment = new TabSegment(text, symbol, this);
        segment->setChecked(index == 0);
    } else {
        segment = new ChoiceSegment(text, symbol, this);
    }
    m_group.addButton(segment, index);
    static_cast<QHBoxLayout*>(layout())->addWidget(segment, m_kind == SegmentKind::Choices ? 1 : 0);
}

void SegmentedTabs::setCurrentIndex(int index)
{
    if (QAbstractButton* segment = m_group.button(index)) {
        segment->setChecked(true);
    }
}

void SegmentedTabs::clearCurrent()
{
    if (QAbstractButton* segment = m_group.checkedButton()) {
        m_group.setExclusive(false);
        segment->setChecked(false);
        m_group.setExclusive(true);
    }
}

void SegmentedTabs::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painting::fillRounded(painter, rect(), trackRadius, ThemeScope::of(*this).soft);
}

} // namespace flitmark
