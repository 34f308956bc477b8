// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <settings/HelpView.h>
#include <settings/HelpWindow.h>
#include <ui/AccessibleRole.h>
#include <ui/Fonts.h>
#include <ui/OrdinaryWindow.h>
#include <ui/ThemeScope.h>

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr QSize contentSize(700, 550);
constexpr QSize leastSize(520, 320);

/// Larger where the desktop wants larger texts.
QSize grown(const QSize& size)
{
    return size.expandedTo({scaled(size.width()), scaled(size.height())});
}

} // namespace

HelpWindow::HelpWindow(ConfigManager& configManager, const HelpServices& services)
    : QWidget(nullptr, closableWindow)
    , m_scheme(*this, configManager.config().colorPalette)
{
    setWindowTitle(tr("Flitmark Help"));
    setAccessibleRole(*this, QAccessible::Window);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(&configManager, &ConfigManager::configChanged, this,
            [this, &configManager] { m_scheme.setPalette(configManager.config().colorPalette); });
    auto* view = new HelpView(services, HelpView::Corners::Square, this);
    connect(view, &HelpView::doneAsked, this, &HelpWindow::close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view);
    view->takeKeyboard();
}

void HelpWindow::showCentered()
{
    centreOnScreen(*this, grown(contentSize));
    setMinimumSize(grown(leastSize).boundedTo(size()));
    makeKeyAndOrderFront(*this);
}

void HelpWindow::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
}

void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark
