// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/LoginItemManager.h>
#include <platform/SharedServices.h>

namespace flitmark {

LoginItemManager& LoginItemManager::shared()
{
    return SharedServices::get<LoginItemManager>(
        [] { return std::make_unique<LoginItemManager>(LoginService::shared()); });
}

} // namespace flitmark
