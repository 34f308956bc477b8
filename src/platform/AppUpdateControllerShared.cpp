// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AppUpdateController.h>
#include <platform/SharedServices.h>

namespace flitmark {

AppUpdateController& AppUpdateController::shared()
{
    return SharedServices::get<AppUpdateController>(
        [] { return std::make_unique<AppUpdateController>(Updater::shared()); });
}

} // namespace flitmark
