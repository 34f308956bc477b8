// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <setup/StepColumn.h>

namespace flitmark {

/// The wizard's first step: what the program is for.
class WelcomeStep final : public StepColumn
{
    Q_OBJECT

public:
    explicit WelcomeStep(QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(WelcomeStep)

private:
    void addIntroduction();
    void addFeature(const QString& symbol, const QString& text, int space);
};

} // namespace flitmark
