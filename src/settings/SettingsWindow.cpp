// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/Dialogs.h>
#include <settings/HelpSheet.h>
#include <settings/SettingsView.h>
#include <settings/SettingsWindow.h>
#include <ui/AccessibleRole.h>
#include <ui/OrdinaryWindow.h>

#include <QCloseEvent>
#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr QSize usualSize(640, 600);

} // namespace

SettingsWindow::SettingsWindow(const SettingsModel::Services& services, Dialogs& dialogs, const HelpServices& help)
    : QWidget(nullptr, Qt::Window)
    , m_model(services)
    , m_dialogs(dialogs)
{
    setWindowTitle(tr("Flitmark Settings"));
    setAccessibleRole(*this, QAccessible::Window);
    auto* view = new SettingsView(m_model, dialogs, help.keyMonitor, services.configManager.config().colorPalette);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(view);
    connect(view, &SettingsView::done, this, &QWidget::close);
    connect(view, &SettingsView::closeAsked, this, &QWidget::close);
    connect(view, &SettingsView::helpAsked, this, [view, help] { HelpSheet::present(*view, help); });
}

void SettingsWindow::showCentered()
{
    if (!isVisible()) {
        centreOnScreen(*this, usualSize.expandedTo(minimumSizeHint()));
    }
    makeKeyAndOrderFront(*this);
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_model.hasUnsavedChanges());
    if (event->isAccepted()) {
        Q_EMIT closed();
    } else if (!m_isAsking) {
        m_isAsking = true;
        askAboutChanges();
    }
}

void SettingsWindow::askAboutChanges()
{
    const Dialogs::Question question{
        .message = tr("Save the changes?"),
        .details = tr("The settings you changed are not stored yet."),
        .buttons = {tr("Save"), tr("Discard"), tr("Cancel")},
    };
    m_dialogs.askOver(*this, question, [this](qsizetype button) {
        m_isAsking = false;
        if (button == 0) {
            m_model.saveSettings();
        } else if (button == 1) {
            m_model.loadSettings();
        }
        if (!m_model.hasUnsavedChanges()) {
            close();
        }
    });
}

} // namespace flitmark
