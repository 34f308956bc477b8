// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/DailyReviewPromptView.h>
#include <ui/Label.h>
#include <ui/ListRow.h>

#include <QVBoxLayout>

namespace flitmark {

DailyReviewPromptView::DailyReviewPromptView(QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 0, 8, 0);
    column->setSpacing(0);
    auto* text = new Label(tr("Time to capture what happened today and plan tomorrow."));
    text->setWordWrap(true);
    text->setContentsMargins(8, 0, 8, 12);
    column->addWidget(text);

    const auto addRow = [this, column](const QString& symbol, const QString& title, DailyReviewAction action) {
        RowContent content;
        content.symbol = symbol;
        content.title = title;
        auto* row = new ActionRow(content);
        connect(row, &QPushButton::clicked, this, [this, action] { Q_EMIT chosen(action); });
        column->addWidget(row);
    };
    addRow(QStringLiteral("calendar"), tr("Open Daily Tab"), DailyReviewAction::openDailyTab);
    addRow(QStringLiteral("doc.text"), tr("Open in Obsidian"), DailyReviewAction::openInObsidian);
    addRow(QStringLiteral("clock"), tr("Snooze 15 min"), DailyReviewAction::snooze);
}

} // namespace flitmark
