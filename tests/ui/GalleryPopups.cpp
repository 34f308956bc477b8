// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/TriggerButtonView.h>
#include <app/TriggerButtonWindow.h>
#include <app/TriggerMenu.h>
#include <checkin/DesktopPopups.h>
#include <checkin/PopupWindow.h>
#include <support/DesktopDoubles.h>
#include <support/TestServices.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

#include "Gallery.h"

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

const QByteArray note = "## Today's Focus\nShip landing page v2 with polished visuals\n"
                        "## Pomodoro Log\n**Today:** 3/8 completed\n| # | Time | Focus |\n|---|---|---|\n";

/// The popups' desktop in one palette.
class Stage final
{
public:
    Stage(const QDir& folder, ColorPalette palette)
        : m_folder(folder)
        , m_palette(palette)
    {
        m_services.config.update([palette](AppConfig& changed) { changed.colorPalette = palette; });
    }

    bool takeCheckin(bool composites)
    {
        m_windowManager.composites = composites;
        const QString kind = composites ? QString() : QStringLiteral("-plain");
        m_popups.showCheckin([](const CheckinResponse&) {});
        QWidget& window = *m_popups.checkinWindow();
        bool isComplete = take(window, QStringLiteral("checkin-answers") + kind);
        press(window, QStringLiteral("Done → New task"));
        window.findChild<QLineEdit*>()->setText(QStringLiteral("Publish FAQ visuals"));
        isComplete = take(window, QStringLiteral("checkin-entry") + kind) && isComplete;
        m_popups.closeCheckin();
        return isComplete;
    }

    bool takeReview()
    {
        m_windowManager.composites = true;
        m_popups.showDailyReview([](DailyReviewAction) {});
        QWidget& window = *m_popups.dailyReviewWindow();
        window.findChild<QPushButton*>()->setFocus(Qt::TabFocusReason);
        return take(window, QStringLiteral("review"));
    }

    bool takeTrigger(bool composites)
    {
        m_windowManager.composites = composites;
        const QString kind = composites ? QString() : QStringLiteral("-plain");
        TriggerButtonWindow window(m_windowManager, m_services.loop);
        ThemeScope::set(window, themeOfPalette(m_palette));
        window.orderFront();
        window.view().clearFocus();
        bool isComplete = true;
        for (const int percent : {0, 1, 25, 65, 99}) {
            window.view().setTimerProgress(percent / 100.0, 20min);
            isComplete = take(window, QStringLiteral("trigger-%1").arg(percent) + kind) && isComplete;
        }
        if (composites) {
            m_services.controller.startPomodoroTimer();
        }
        TriggerMenu menu(m_services.controller, m_services.notifications, m_windowManager, &window);
        menu.popup(QPoint(0, 0));
        menu.setActiveAction(menu.actions().constFirst());
        return take(menu, QStringLiteral("menu") + kind) && isComplete;
    }

private:
    static void press(const QWidget& window, const QString& text)
    {
        for (QPushButton* button : window.findChildren<QPushButton*>()) {
            if (button->text() == text) {
                button->click();
            }
        }
    }

    bool take(QWidget& window, const QString& name) const
    {
        QCoreApplication::processEvents();
        bool isComplete = true;
        for (const int scale : {1, 2}) {
            const QString file = QStringLiteral("%1-%2@%3.png").arg(name, rawValue(m_palette)).arg(scale);
            isComplete = save(window, m_folder.filePath(file), scale) && isComplete;
        }
        return isComplete;
    }

    QDir m_folder;
    ColorPalette m_palette;
    TestServices m_services{note};
    FakeScreens m_screens;
    FakeWindowManager m_windowManager;
    DesktopPopups m_popups{DesktopPopups::Services{m_services.config, m_services.daily, m_services.signalManager,
                                                   m_services.loop, m_screens, m_windowManager}};
};

} // namespace

bool savePopups(const QDir& folder, ColorPalette palette)
{
    Stage stage(folder, palette);
    bool isComplete = true;
    for (const bool composites : {true, false}) {
        isComplete = stage.takeCheckin(composites) && isComplete;
        isComplete = stage.takeTrigger(composites) && isComplete;
    }
    return stage.takeReview() && isComplete;
}
