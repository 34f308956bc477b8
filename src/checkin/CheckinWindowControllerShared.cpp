// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <checkin/PopupPresenter.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/NotificationCenter.h>
#include <platform/SharedServices.h>
#include <platform/SystemSound.h>
#include <signals/SignalManager.h>

namespace flitmark {

// Apart from the rest of the class because the popups and the desktop's sounds live in the desktop library, above the
// logic.
CheckinWindowController& CheckinWindowController::shared()
{
    return SharedServices::get<CheckinWindowController>([] {
        return std::make_unique<CheckinWindowController>(Services{
            .configManager = ConfigManager::shared(),
            .signalManager = SignalManager::shared(),
            .dailyNoteManager = DailyNoteManager::shared(),
            .runLoop = RunLoop::shared(),
            .notificationCenter = NotificationCenter::shared(),
            .sound = SystemSound::shared(),
            .popups = PopupPresenter::shared(),
        });
    });
}

} // namespace flitmark
