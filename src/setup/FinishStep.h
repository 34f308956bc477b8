// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <setup/StepColumn.h>

class QVBoxLayout;

namespace flitmark {

class Label;
class SetupWizardModel;

/// The wizard's last step: what was chosen.
class FinishStep final : public StepColumn
{
    Q_OBJECT

public:
    /// `localHotkeyLine` tells which key it is on this computer, or why there is none.
    FinishStep(const SetupWizardModel& model, const QString& localHotkeyLine, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(FinishStep)

private:
    struct SummaryRow
    {
        Label* name;
        QString value;
        Qt::TextElideMode elideMode;
    };

    void addSummary(const SetupWizardModel& model);
    static void addSummaryRow(QVBoxLayout& column, const SummaryRow& summary);
};

} // namespace flitmark
