// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <setup/FinishStep.h>
#include <setup/SetupWizardModel.h>
#include <ui/AccessibleRole.h>
#include <ui/Label.h>
#include <ui/Surfaces.h>

#include <algorithm>

namespace flitmark {

FinishStep::FinishStep(const SetupWizardModel& model, const QString& localHotkeyLine, QWidget* parent)
    : StepColumn(parent)
{
    auto* symbol = new SymbolView(QStringLiteral("checkmark.circle.fill"), 56, &Theme::line);
    symbol->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    add(symbol, 12);
    Label* title = addText(tr("You're All Set!"), TextRole::Display, &Theme::text, 12, Placement::Centre);
    setAccessibleRole(*title, QAccessible::Notification);
    constexpr int narrow = 90;
    addText(tr("Click the purple button on your desktop or press ⌥N to capture a note!"), TextRole::Body, &Theme::text2,
            4, Placement::Centre, narrow);
    addText(localHotkeyLine, TextRole::Caption, &Theme::text2, 4, Placement::Centre);
    addSummary(model);
    finish();
}

void FinishStep::addSummary(const SetupWizardModel& model)
{
    auto* card = new Card;
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(16, 4, 16, 4);
    column->setSpacing(0);
    const auto tagCount = static_cast<int>(model.quickTags().size());
    const QList<SummaryRow> rows{
        {new Label(tr("Vault")), model.getFinalVaultPath(), Qt::ElideMiddle},
        {new Label(tr("Save to")), model.effectiveSubfolder(), Qt::ElideMiddle},
        {new Label(tr("Quick tags")), tr("%n configured", nullptr, tagCount), Qt::ElideRight},
        {new Label(tr("Hotkey")), tr("⌥N (Option + N)"), Qt::ElideRight},
    };
    int nameWidth = scaled(80);
    for (const SummaryRow& row : rows) {
        nameWidth = std::max(nameWidth, row.name->sizeHint().width());
    }
    for (const SummaryRow& row : rows) {
        row.name->setFixedWidth(nameWidth);
        addSummaryRow(*column, row);
    }
    add(card, 24);
}

void FinishStep::addSummaryRow(QVBoxLayout& column, const SummaryRow& summary)
{
    if (column.count() > 0) {
        column.addWidget(new Divider);
    }
    summary.name->setColor(&Theme::text2);
    auto* content = new Label(summary.value, TextRole::Strong);
    content->setElideMode(summary.elideMode);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 10, 0, 10);
    row->setSpacing(16);
    row->addWidget(summary.name);
    row->addWidget(content, 1);
    column.addLayout(row);
}

} // namespace flitmark
