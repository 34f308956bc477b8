// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/SharedServices.h>

#include <vector>

namespace flitmark {

namespace {

struct Entry
{
    std::shared_ptr<void> service;
    std::function<void()> forget;
};

std::vector<Entry>& entries()
{
    static std::vector<Entry> all;
    return all;
}

} // namespace

void SharedServices::own(std::shared_ptr<void> service, std::function<void()> forget)
{
    entries().push_back({std::move(service), std::move(forget)});
}

void SharedServices::endAll()
{
    while (!entries().empty()) {
        Entry last = std::move(entries().back());
        entries().pop_back();
        last.service.reset();
        last.forget();
    }
}

} // namespace flitmark
