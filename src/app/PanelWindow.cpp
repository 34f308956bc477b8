// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/PanelWindow.h>
#include <capture/NotePanelView.h>
#include <config/ConfigManager.h>
#include <ui/ThemeScope.h>

#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double lowestOpacity = 0.5;

/// `length` in whole points from `least` to `most`; also what no whole number could hold.
int lengthWithin(double length, int least, int most)
{
    return qRound(std::fmin(std::fmax(length, least), most));
}

} // namespace

PanelWindow::PanelWindow(WindowManager& windowManager, ConfigManager& configManager, const NotePanelModels& models,
                         DemoMode demoMode)
    : FloatingWindow(windowManager, Resizing::ByEdges)
    , m_configManager(configManager)
    , m_view(new NotePanelView(models, configManager, content()))
{
    setWindowTitle(tr("Flitmark"));
    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins({});
    layout->addWidget(m_view);

    if (demoMode == DemoMode::On) {
        setFrameLimits(demoPanelSize, demoPanelSize);
        setFrameRect(QRect(QPoint(0, 0), demoPanelSize));
    } else {
        takeStoredSize();
    }

    applyLook();
    applyWindowMode();
    connect(&configManager, &ConfigManager::configChanged, this, &PanelWindow::applyLook);
    connect(this, &FloatingWindow::frameChanged, this, [this, demoMode] {
        layOutCorner();
        if (isVisible() && demoMode == DemoMode::Off) {
            storeSize();
        }
    });
}

void PanelWindow::takeStoredSize()
{
    const AppConfig& config = m_configManager.config();
    setFrameLimits(minimumPanelSize, maximumPanelSize);
    setFrameRect(QRect(0, 0, lengthWithin(config.panelWidth, minimumPanelSize.width(), maximumPanelSize.width()),
                       lengthWithin(config.panelHeight, minimumPanelSize.height(), maximumPanelSize.height())));
    if (config.panelWidth < minimumPanelSize.width() || config.panelHeight < minimumPanelSize.height()) {
        storeSize();
    }
}

void PanelWindow::makeKeyAndOrderFront(const QRect& frame)
{
    setFrameRect(frame);
    layOutCorner();
    m_view->takeKeyboard();
    makeKey();
}

void PanelWindow::keepFreeFor(const QRect& triggerFrame)
{
    m_triggerFrame = triggerFrame;
    layOutCorner();
}

QImage PanelWindow::snapshot()
{
    const QRect frame = content()->geometry();
    QImage image(frame.size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(Qt::transparent);
    render(&image, {}, QRegion(frame), DrawChildren | IgnoreMask);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outside;
    outside.addRect(QRectF({}, frame.size()));
    outside.addRoundedRect(QRectF({}, frame.size()), frameRadius, frameRadius);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillPath(outside, Qt::black);
    return image;
}

void PanelWindow::storeSize()
{
    const QSizeF size = frameRect().size();
    const AppConfig& config = m_configManager.config();
    if (QSizeF(config.panelWidth, config.panelHeight) == size) {
        return;
    }
    m_configManager.update([&](AppConfig& changed) {
        changed.panelWidth = size.width();
        changed.panelHeight = size.height();
    });
    m_configManager.save();
}

void PanelWindow::applyLook()
{
    const AppConfig& config = m_configManager.config();
    ThemeScope::set(*this, themeOfPalette(config.colorPalette));
    // However little the file asks for, the panel can be seen.
    setWindowOpacity(std::clamp(config.windowOpacity, lowestOpacity, 1.0));
}

void PanelWindow::applyWindowMode()
{
    setLevel(m_configManager.config().windowMode == QLatin1String("normal") ? Level::Normal : Level::Floating);
}

void PanelWindow::layOutCorner()
{
    const QRect frame = frameRect();
    const QRect footer(frame.left(), frame.bottom() + 1 - NotePanelView::footerReach, frame.width(),
                       NotePanelView::footerReach);
    const bool isCovered = footer.intersects(m_triggerFrame) && m_triggerFrame.center().x() > frame.center().x();
    m_view->setCornerReserve(isCovered ? frame.right() + 1 - m_triggerFrame.left() : 0);
}

} // namespace flitmark
