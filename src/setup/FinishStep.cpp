// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <setup/FinishStep.h>
#include <setup/SetupWizardModel.h>
#include <ui/Label.h>
#include <ui/Surfaces.h>

namespace flitmark {

FinishStep::FinishStep(const SetupWizardModel& model, const QString& localHotkeyLine, QWidget* parent)
    : StepColumn(parent)
{
    auto* symbol = new SymbolView(QStringLiteral("checkmark.circle.fill"), 56, &Theme::line);
    symbol->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    add(symbol, 12);
    addText(tr("You're All Set!"), TextRole::Display, &Theme::text, 12, Placement::Centre);
    constexpr int narrow = 90;
    addText(tr("Click the purple button on your desktop or press ⌥N to capture a note!"), TextRole::Body, &Theme::text2,
            4, Placement::Centre, narrow);
    if (!localHotkeyLine.isEmpty()) {
        addText(localHotkeyLine, TextRole::Caption, &Theme::text2, 4, Placement::Centre);
    }
    addSummary(model);
    finish();
}

void FinishStep::addSummary(const SetupWizardModel& model)
{
    auto* card = new Card;
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(16, 4, 16, 4);
    column->setSpacing(0);
    addSummaryRow(*card, tr("Vault"), model.getFinalVaultPath(), Qt::ElideMiddle);
    addSummaryRow(*card, tr("Save to"), model.effectiveSubfolder(), Qt::ElideMiddle);
    addSummaryRow(*card, tr("Quick tags"), tr("%1 configured").arg(model.quickTags().size()), Qt::ElideRight);
    addSummaryRow(*card, tr("Hotkey"), tr("⌥N (Option + N)"), Qt::ElideRight);
    add(card, 24);
}

void FinishStep::addSummaryRow(Card& card, const QString& label, const QString& value, Qt::TextElideMode mode)
{
    auto* column = static_cast<QVBoxLayout*>(card.layout());
    if (column->count() > 0) {
        column->addWidget(new Divider);
    }
    auto* name = new Label(label);
    name->setColor(&Theme::text2);
    name->setFixedWidth(scaled(80));
    auto* content = new Label(value, TextRole::Strong);
    content->setElideMode(mode);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 10, 0, 10);
    row->setSpacing(16);
    row->addWidget(name);
    row->addWidget(content, 1);
    column->addLayout(row);
}

} // namespace flitmark
