// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/PanelWindow.h>
#include <capture/NotePanelView.h>
#include <config/ConfigManager.h>
#include <ui/ThemeScope.h>

#include <QVBoxLayout>
#include <QWindow>

namespace flitmark {

PanelWindow::PanelWindow(WindowManager& windowManager, ConfigManager& configManager, const NotePanelModels& models)
    : FloatingWindow(windowManager, Resizing::ByEdges)
    , m_configManager(configManager)
    , m_view(new NotePanelView(models, configManager, content()))
{
    setWindowTitle(tr("Flitmark"));
    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins({});
    layout->addWidget(m_view);

    const AppConfig& config = configManager.config();
    const QSize stored(qRound(config.panelWidth), qRound(config.panelHeight));
    const QSize size = stored.expandedTo(minimumPanelSize).boundedTo(maximumPanelSize);
    setFrameLimits(minimumPanelSize, maximumPanelSize);
    setFrameRect(QRect(QPoint(0, 0), size));
    if (config.panelWidth < minimumPanelSize.width() || config.panelHeight < minimumPanelSize.height()) {
        storeSize();
    }

    applyPalette();
    connect(&configManager, &ConfigManager::configChanged, this, &PanelWindow::applyPalette);
    connect(this, &FloatingWindow::frameChanged, this, [this] {
        layOutCorner();
        if (isVisible()) {
            storeSize();
        }
    });
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

void PanelWindow::applyPalette()
{
    ThemeScope::set(*this, themeOfPalette(m_configManager.config().colorPalette));
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
