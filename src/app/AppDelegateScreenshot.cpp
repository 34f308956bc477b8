// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppDelegate.h>
#include <app/PanelWindow.h>
#include <capture/NotePanelModel.h>
#include <platform/Files.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>

namespace flitmark {

using namespace std::chrono_literals;

namespace {

NotePanelModel::Tab tabNamed(const QString& name)
{
    if (name == QStringLiteral("daily")) {
        return NotePanelModel::Tab::daily;
    }
    return name == QStringLiteral("browse") ? NotePanelModel::Tab::browse : NotePanelModel::Tab::newNote;
}

} // namespace

void AppDelegate::handleScreenshotModeIfNeeded()
{
    if (!isScreenshotMode() || m_services.screenshotMode.output.isEmpty()) {
        return;
    }
    // A caret that blinks would be in one picture and not in the next.
    QApplication::setCursorFlashTime(0);
    m_services.runLoop.after(750ms, this, [this] {
        if (m_panelWindow) {
            // The button is not in the picture.
            m_panelWindow->keepFreeFor({});
        }
        showPanel();
        announceScreenshotTab();
        m_services.runLoop.after(450ms, this, [this] {
            capturePanelSnapshot(m_services.screenshotMode.output);
            QCoreApplication::exit(0);
        });
    });
}

void AppDelegate::selectScreenshotTab()
{
    m_panelModel->setSelectedTab(tabNamed(screenshotTab()));
}

void AppDelegate::announceScreenshotTab()
{
    NotificationCenter& center = m_services.notificationCenter;
    switch (tabNamed(screenshotTab())) {
    case NotePanelModel::Tab::daily:
        Q_EMIT center.showDailyTab();
        break;
    case NotePanelModel::Tab::browse:
        Q_EMIT center.showBrowseTab();
        break;
    case NotePanelModel::Tab::newNote:
        Q_EMIT center.showNewTab();
        break;
    }
}

void AppDelegate::capturePanelSnapshot(const QString& path)
{
    if (!m_panelWindow) {
        return;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    m_panelWindow->snapshot().save(&buffer, "PNG");
    // Whoever asked for the picture sees whether it is there.
    QDir().mkpath(QFileInfo(path).absolutePath());
    static_cast<void>(replaceFile(path, bytes, Flush::Later));
}

} // namespace flitmark
