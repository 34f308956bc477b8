// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/RunLoop.h>
#include <platform/SharedServices.h>
#include <platform/Workspace.h>
#include <signals/SignalManager.h>

namespace flitmark {

// Apart from the rest of the class because the desktop's workspace lives in the desktop library, above the logic.
DailyNoteManager& DailyNoteManager::shared()
{
    return SharedServices::get<DailyNoteManager>([] {
        return std::make_unique<DailyNoteManager>(Services{
            .configManager = ConfigManager::shared(),
            .signalManager = SignalManager::shared(),
            .runLoop = RunLoop::shared(),
            .fileEvents = FileEventSources::shared(),
            .workspace = Workspace::shared(),
        });
    });
}

} // namespace flitmark
