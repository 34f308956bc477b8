// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerButtonView.h>
#include <platform/RunLoop.h>
#include <ui/Motion.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double discSide = 48;
constexpr double iconPoints = 20;
constexpr double hoverScale = 1.1;

/// The disc's shadow: black at 25 %, 4 points lower than the disc, fading to nothing before the window ends.
QImage makeShadow(double scale)
{
    const int pixels = static_cast<int>(std::ceil(TriggerButtonView::side * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < pixels; ++row) {
        for (int column = 0; column < pixels; ++column) {
            const double x = (column + 0.5) / scale;
            const double y = (row + 0.5) / scale;
            const double fromShadow = std::hypot(x - 28, y - 32);
            const double fromDisc = std::hypot(x - 28, y - 28);
            const double alpha =
                0.25 * std::clamp(1 - (fromShadow - 20) / 8, 0.0, 1.0) * std::clamp((28 - fromDisc) / 3, 0.0, 1.0);
            image.setPixel(column, row, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * alpha))));
        }
    }
    image.setDevicePixelRatio(scale);
    return image;
}

constexpr double ringWidth = 3;
/// The ring with all of its line.
constexpr double ringReach = RingProgress::radius + ringWidth / 2;

QRectF circle(double radius)
{
    constexpr double center = TriggerButtonView::side / 2.0;
    return {center - radius, center - radius, 2 * radius, 2 * radius};
}

/// The place where an arc of `progress` ends, running clockwise from the top.
QPointF onRing(double progress)
{
    constexpr double center = TriggerButtonView::side / 2.0;
    const double angle = 2 * M_PI * progress;
    return {center + RingProgress::radius * std::sin(angle), center - RingProgress::radius * std::cos(angle)};
}

QRectF aroundEnd(double progress)
{
    return QRectF(-ringWidth, -ringWidth, 2 * ringWidth, 2 * ringWidth).translated(onRing(progress));
}

QRectF discRect()
{
    constexpr double inset = (TriggerButtonView::side - discSide) / 2;
    return {inset, inset, discSide, discSide};
}

QString panelDescription()
{
    return TriggerButtonView::tr("Shows or hides the note panel.");
}

/// Offers screen readers the menu, which Qt knows of only where a button has nothing else to do.
class TriggerButtonInterface final : public QAccessibleWidget
{
public:
    explicit TriggerButtonInterface(TriggerButtonView& view)
        : QAccessibleWidget(&view, QAccessible::Button)
        , m_view(view)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction()) {
            m_view.click();
        } else if (name == showMenuAction()) {
            m_view.askForMenu();
        }
    }

private:
    TriggerButtonView& m_view;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* view = qobject_cast<TriggerButtonView*>(object);
    return view != nullptr ? new TriggerButtonInterface(*view) : nullptr;
}

} // namespace

TriggerButtonView::TriggerButtonView(RunLoop& runLoop, QWidget* parent)
    : QPushButton(parent)
    , m_runLoop(runLoop)
    , m_ring(runLoop, [this] { updateRing(); })
{
    QAccessible::installFactory(makeInterface);
    setFixedSize(side, side);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(tr("Flitmark Button"));
    setAccessibleDescription(panelDescription());

    m_iconScale.setStartValue(1.0);
    m_iconScale.setEndValue(hoverScale);
    m_iconScale.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_iconScale, &QVariantAnimation::valueChanged, this, [this] { update(); });

    connect(this, &QPushButton::clicked, this, [this] {
        if (!m_drag.isDragging()) {
            Q_EMIT toggled();
        }
    });
}

void TriggerButtonView::setPanelVisible(bool isVisible)
{
    m_isPanelVisible = isVisible;
    update();
}

void TriggerButtonView::setTimerProgress(double progress, std::chrono::minutes minutes)
{
    m_ring.setPixelRatio(devicePixelRatioF());
    m_ring.moveTo(progress, motion::isWanted() ? RingProgress::Motion::Linear : RingProgress::Motion::Steps);

    QString description = panelDescription();
    if (m_ring.isShown()) {
        description += u' ';
        description += minutes.count() == 1
                           ? tr("1 minute of the Pomodoro remains.")
                           : tr("%n minutes of the Pomodoro remain.", nullptr, static_cast<int>(minutes.count()));
    }
    if (description != accessibleDescription()) {
        setAccessibleDescription(description);
    }
}

void TriggerButtonView::updateRing()
{
    if (m_isRingDrawn != m_ring.isShown()) {
        m_isRingDrawn = m_ring.isShown();
        update();
        Q_EMIT isTimerActiveChanged();
    } else {
        // Only where the arc ends: the rest stays as it is.
        constexpr double shortWay = 1.0 / 16;
        const bool isNear = std::abs(m_drawnProgress - m_ring.drawn()) < shortWay;
        update(isNear ? (aroundEnd(m_drawnProgress) | aroundEnd(m_ring.drawn())).toAlignedRect() : rect());
    }
    m_drawnProgress = m_ring.drawn();
}

void TriggerButtonView::setGround(Ground ground)
{
    m_ground = ground;
    update();
}

QRegion TriggerButtonView::opaqueShape() const
{
    return {(m_ring.isShown() ? circle(ringReach) : discRect()).toRect(), QRegion::Ellipse};
}

void TriggerButtonView::paintRing(QPainter& painter) const
{
    painter.setBrush(Qt::NoBrush);
    QColor track(128, 128, 128);
    track.setAlphaF(0.2F);
    painter.setPen(QPen(track, ringWidth));
    painter.drawEllipse(circle(RingProgress::radius));

    QColor accent = ThemeScope::of(*this).accent;
    accent.setAlphaF(0.9F);
    painter.setPen(QPen(accent, ringWidth, Qt::SolidLine, Qt::RoundCap));
    // Degree by degree: the curves of an arc are computed from its length, and would waver where nothing is painted
    // anew.
    QPolygonF arc;
    const double degrees = 360 * m_ring.drawn();
    for (int degree = 0; degree < degrees; ++degree) {
        arc.append(onRing(degree / 360.0));
    }
    arc.append(onRing(m_ring.drawn()));
    painter.drawPolyline(arc);
}

void TriggerButtonView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    if (m_ground == Ground::Opaque) {
        painter.fillRect(rect(), ThemeScope::of(*this).background);
    }
    static QImage shadow;
    if (shadow.devicePixelRatio() != devicePixelRatioF() || shadow.isNull()) {
        shadow = makeShadow(devicePixelRatioF());
    }
    painter.drawImage(QPointF(0, 0), shadow);

    if (m_ring.isShown()) {
        paintRing(painter);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ThemeScope::of(*this).primary);
    painter.drawEllipse(discRect());
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::white, 2));
        painter.drawEllipse(discRect().adjusted(2, 2, -2, -2));
    }

    const double scale = m_iconScale.currentValue().isValid() ? m_iconScale.currentValue().toDouble() : 1;
    QRectF icon(0, 0, iconPoints * scale, iconPoints * scale);
    icon.moveCenter(discRect().center());
    const QString symbol = m_isPanelVisible ? QStringLiteral("note.text") : QStringLiteral("plus.square.on.square");
    Symbols::draw(painter, symbol, icon, Qt::white);
}

void TriggerButtonView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_drag.begin(window()->pos(), event->globalPosition());
    }
    QPushButton::mousePressEvent(event);
}

void TriggerButtonView::mouseMoveEvent(QMouseEvent* event)
{
    if (const auto topLeft = m_drag.move(event->globalPosition())) {
        Q_EMIT draggedTo(*topLeft);
    }
    QPushButton::mouseMoveEvent(event);
}

void TriggerButtonView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_drag.end();
        m_runLoop.after(std::chrono::milliseconds(100), this, [this] { m_drag.settle(); });
    }
    QPushButton::mouseReleaseEvent(event);
}

void TriggerButtonView::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT menuAsked(event->globalPos(), Menu::OpenedBy::Pointer);
}

void TriggerButtonView::askForMenu()
{
    Q_EMIT menuAsked(mapToGlobal(rect().center()), Menu::OpenedBy::Keyboard);
}

void TriggerButtonView::enterEvent(QEnterEvent* event)
{
    QPushButton::enterEvent(event);
    setHovered(true);
}

void TriggerButtonView::leaveEvent(QEvent* event)
{
    QPushButton::leaveEvent(event);
    setHovered(false);
}

void TriggerButtonView::setHovered(bool isHovered)
{
    if (m_drag.isDragging()) {
        return;
    }
    m_iconScale.setDirection(isHovered ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    m_iconScale.setDuration(motion::duration(200));
    m_iconScale.start();
}

} // namespace flitmark
