// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ControlState.h>
#include <ui/Painting.h>
#include <ui/ScrollArea.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr int hitWidth = 12;
constexpr double thumbWidth = 4;
constexpr double edgeGap = 4;
constexpr double leastThumb = 24;
/// What stays visible above and below the focused widget.
constexpr int focusMargin = 8;

} // namespace

/// The thin bar. It mirrors the area's own hidden scroll bar.
class ScrollArea::Bar final : public QWidget
{
public:
    Bar(QScrollBar& source, QWidget* parent)
        : QWidget(parent)
        , m_source(source)
        , m_state(*new ControlState(*this))
    {
        setFocusPolicy(Qt::NoFocus);
        connect(&source, &QScrollBar::valueChanged, this, [this] { update(); });
        connect(&source, &QScrollBar::rangeChanged, this, [this](int low, int high) {
            setVisible(high > low);
            update();
        });
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        QPainter painter(this);
        painting::fillRounded(painter, thumb(), thumbWidth / 2,
                              painting::atLevel(theme.thumb, theme.outline, theme.text2, m_state.level()));
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        const QRectF now = thumb();
        const double y = event->position().y();
        if (y < now.top() || y > now.bottom()) {
            m_source.triggerAction(y < now.top() ? QAbstractSlider::SliderPageStepSub
                                                 : QAbstractSlider::SliderPageStepAdd);
            m_grip = -1;
            return;
        }
        m_grip = y - now.top();
        m_state.setAppearance(ControlState::Appearance::Pressed);
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        const double travel = trackLength() - thumb().height();
        if (m_grip < 0 || travel <= 0) {
            return;
        }
        const double ratio = (event->position().y() - m_grip - edgeGap) / travel;
        m_source.setValue(m_source.minimum() +
                          static_cast<int>(std::lround(ratio * (m_source.maximum() - m_source.minimum()))));
    }

    void mouseReleaseEvent(QMouseEvent* /*event*/) override { m_state.setAppearance(ControlState::Appearance::Live); }
    void wheelEvent(QWheelEvent* event) override { QApplication::sendEvent(&m_source, event); }

private:
    double trackLength() const { return height() - 2 * edgeGap; }

    QRectF thumb() const
    {
        const double range = m_source.maximum() - m_source.minimum();
        const double whole = range + m_source.pageStep();
        const double length = std::clamp(trackLength() * m_source.pageStep() / std::max(1.0, whole),
                                         std::min(leastThumb, trackLength()), std::max(leastThumb, trackLength()));
        const double ratio = range > 0 ? (m_source.value() - m_source.minimum()) / range : 0;
        return {width() - edgeGap - thumbWidth, edgeGap + ratio * (trackLength() - length), thumbWidth, length};
    }

    QScrollBar& m_source;
    ControlState& m_state;
    /// Where the thumb is held, from its top; below zero while it is not.
    double m_grip = -1;
};

ScrollArea::ScrollArea(QWidget* parent)
    : QScrollArea(parent)
    , m_bar(new Bar(*verticalScrollBar(), this))
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(20);
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { revealFocus(now); });
}

QSize ScrollArea::sizeHint() const
{
    return widget() != nullptr ? widget()->sizeHint() : QScrollArea::sizeHint();
}

void ScrollArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    placeBar();
}

void ScrollArea::placeBar()
{
    m_bar->setGeometry(width() - hitWidth, 0, hitWidth, height());
    m_bar->raise();
}

void ScrollArea::revealFocus(const QWidget* focused)
{
    // A click has the widget under the pointer already: nothing may move away below it.
    const bool isClick = QApplication::mouseButtons() != Qt::NoButton;
    if (focused == nullptr || isClick || widget() == nullptr || !widget()->isAncestorOf(focused)) {
        return;
    }
    const int top = focused->mapTo(widget(), QPoint()).y();
    ensureVisible(0, top + focused->height() / 2, 0, focused->height() / 2 + focusMargin);
}

} // namespace flitmark
