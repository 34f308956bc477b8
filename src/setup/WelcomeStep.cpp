// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <setup/WelcomeStep.h>
#include <ui/Label.h>
#include <ui/Surfaces.h>

namespace flitmark {

WelcomeStep::WelcomeStep(QWidget* parent)
    : StepColumn(parent)
{
    addIntroduction();
    addFeature(QStringLiteral("bolt.fill"), tr("One-click capture from your desktop"), 16);
    addFeature(QStringLiteral("tag.fill"), tr("Quick tags to categorize notes instantly"), 0);
    addFeature(QStringLiteral("keyboard"), tr("Global hotkey (⌥N) for instant access"), 0);
    addFeature(QStringLiteral("arrow.triangle.2.circlepath"), tr("Drafts persist until you save"), 0);

    addText(tr("How it works"), TextRole::Heading, &Theme::text, 16);
    addText(tr("Open the panel, type a note, add quick tags, and save it directly to your vault."), TextRole::Body,
            &Theme::text2, 4);

    addText(tr("Practical uses"), TextRole::Heading, &Theme::text, 16);
    addFeature(QStringLiteral("lightbulb"), tr("Capture ideas while they are fresh"), 4);
    addFeature(QStringLiteral("checkmark.circle"), tr("Log tasks before they slip away"), 0);
    addFeature(QStringLiteral("quote.bubble"), tr("Save quotes or snippets during research"), 0);
    addFeature(QStringLiteral("calendar"), tr("Add notes for daily planning and review"), 0);
    finish();
}

void WelcomeStep::addIntroduction()
{
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    auto* heading = new Label(tr("Quick Note Capture for Obsidian"), TextRole::Title);
    heading->setWordWrap(true);
    auto* summary = new Label(tr("Flitmark helps you capture fleeting thoughts instantly. Notes are saved as markdown "
                                 "files to your Obsidian vault."));
    summary->setWordWrap(true);
    summary->setColor(&Theme::text2);
    texts->addWidget(heading);
    texts->addWidget(summary);

    auto* symbol = new SymbolView(QStringLiteral("note.text.badge.plus"), 28, &Theme::badgeText);
    symbol->setTile(48, &Theme::badge);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(symbol, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    add(row, 0);
}

void WelcomeStep::addFeature(const QString& symbol, const QString& text, int space)
{
    auto* label = new Label(text);
    label->setWordWrap(true);
    label->setContentsMargins(0, 2, 0, 2);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new SymbolView(symbol, 18));
    row->addWidget(label, 1);
    add(row, space);
}

} // namespace flitmark
