// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/NotificationCenter.h>
#include <platform/SharedServices.h>

namespace flitmark {

NotificationCenter& NotificationCenter::shared()
{
    return SharedServices::get<NotificationCenter>([] { return std::make_unique<NotificationCenter>(); });
}

} // namespace flitmark
