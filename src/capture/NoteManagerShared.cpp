// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NoteManager.h>
#include <config/ConfigManager.h>
#include <platform/RunLoop.h>
#include <platform/SharedServices.h>
#include <platform/SystemSound.h>

namespace flitmark {

// Apart from the rest of the class because the desktop's sounds live in the desktop library, above the logic.
NoteManager& NoteManager::shared()
{
    return SharedServices::get<NoteManager>([] {
        return std::make_unique<NoteManager>(ConfigManager::shared(), RunLoop::shared(), SystemSound::shared());
    });
}

} // namespace flitmark
