// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <type_traits>

namespace flitmark {

/// Holds the long-lived services, one instance of each, in the order of their first use; ends them in reverse.
/// Main thread only.
class SharedServices
{
public:
    SharedServices() = delete;

    /// The instance of `Service`, made by `make` on first use.
    template<typename Service, typename Make>
    static Service& get(Make make)
    {
        static Service* instance = nullptr;
        if (instance == nullptr) {
            std::unique_ptr<Service> made = make();
            instance = made.get();
            own(std::shared_ptr<void>(std::move(made)), [] { instance = nullptr; });
        }
        return *instance;
    }

    /// Ends every service, last made first. Called by the application object when it goes.
    static void endAll();

private:
    static void own(std::shared_ptr<void> service, std::function<void()> forget);
};

} // namespace flitmark
