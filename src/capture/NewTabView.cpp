// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/NewTabView.h>
#include <capture/NoteEditor.h>
#include <capture/NotePanelModel.h>
#include <config/ConfigManager.h>
#include <ui/Button.h>
#include <ui/ChipButton.h>
#include <ui/FlowLayout.h>
#include <ui/Label.h>
#include <ui/StatusLine.h>
#include <ui/Surfaces.h>

#include <QHBoxLayout>
#include <QShortcut>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int sideMargin = 16;
constexpr int gap = 12;

ColorToken colorOf(NotePanelModel::StatusType type)
{
    switch (type) {
    case NotePanelModel::StatusType::info:
        return &Theme::info;
    case NotePanelModel::StatusType::success:
        return &Theme::success;
    case NotePanelModel::StatusType::error:
        break;
    }
    return &Theme::red;
}

} // namespace

NewTabView::NewTabView(NotePanelModel& model, ConfigManager& configManager)
    : m_model(model)
    , m_configManager(configManager)
    , m_tagRow(new QWidget)
    , m_tagLayout(new FlowLayout(8))
    , m_editor(new NoteEditor(nullptr))
    , m_wordCount(new Label(QString(), TextRole::Caption))
    , m_status(new StatusLine)
{
    m_tagRow->setLayout(m_tagLayout);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    m_tagRow->setSizePolicy(policy);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(sideMargin, 0, 0, 0);
    layout->setSpacing(gap);
    auto* upper = new QVBoxLayout;
    upper->setContentsMargins(0, 0, sideMargin, 0);
    upper->setSpacing(gap);
    upper->addWidget(m_tagRow);
    upper->addWidget(makeEditorCard(), 1);
    layout->addLayout(upper, 1);
    layout->addWidget(makeFooter());

    rebuildChips();
    bind();
}

QWidget* NewTabView::makeEditorCard()
{
    auto* card = new Card;
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(16, 12, 4, 12);
    layout->addWidget(m_editor);
    return card;
}

QWidget* NewTabView::makeFooter()
{
    auto* footer = new QWidget;
    m_footerLayout = new QHBoxLayout(footer);
    m_footerLayout->setSpacing(0);
    setCornerReserve(0);

    auto* clear = new Button(tr("Clear"), ButtonKind::Ghost);
    auto* save = new Button(tr("Save"), ButtonKind::Filled);
    save->setSymbol(QStringLiteral("arrow.up.circle.fill"));
    save->setToolTip(tr("Save the note (Ctrl+Return)"));
    save->setAccessibleName(tr("Save"));
    clear->setFocusPolicy(Qt::TabFocus);
    save->setFocusPolicy(Qt::TabFocus);
    connect(clear, &Button::clicked, &m_model, &NotePanelModel::clearNote);
    connect(save, &Button::clicked, &m_model, &NotePanelModel::saveNote);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_S}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)), this);
        connect(shortcut, &QShortcut::activated, &m_model, &NotePanelModel::saveNote);
    }

    m_footerLayout->addWidget(m_wordCount);
    m_footerLayout->addSpacing(gap);
    m_footerLayout->addWidget(m_status, 1);
    m_footerLayout->addSpacing(8);
    m_footerLayout->addWidget(clear);
    m_footerLayout->addSpacing(8);
    m_footerLayout->addWidget(save);
    return footer;
}

void NewTabView::bind()
{
    connect(m_editor, &NoteEditor::textChanged, this, [this] { m_model.setNoteContent(m_editor->text()); });
    const auto showContent = [this] {
        m_editor->setText(m_model.noteContent());
        m_wordCount->setText(tr("%n words", nullptr, static_cast<int>(m_model.wordCount())));
    };
    connect(&m_model, &NotePanelModel::noteContentChanged, this, showContent);
    connect(&m_model, &NotePanelModel::selectedQuickTagsChanged, this, &NewTabView::showSelection);
    connect(&m_model, &NotePanelModel::statusChanged, this, &NewTabView::showStatus);
    connect(&m_configManager, &ConfigManager::configChanged, this, &NewTabView::rebuildChips);
    showContent();
    showSelection();
}

void NewTabView::takeKeyboard()
{
    m_editor->setFocus();
}

void NewTabView::setCornerReserve(int width)
{
    m_footerLayout->setContentsMargins(0, 0, width > 0 ? std::max(sideMargin, width + 8) : sideMargin, 16);
}

void NewTabView::rebuildChips()
{
    const QList<QuickTag>& tags = m_configManager.config().quickTags;
    const auto isShown = [](const Chip& chip, const QuickTag& tag) { return chip.tag == tag; };
    if (std::equal(m_chips.begin(), m_chips.end(), tags.begin(), tags.end(), isShown)) {
        return;
    }
    for (const Chip& chip : m_chips) {
        delete chip.button;
    }
    m_chips.clear();
    for (const QuickTag& tag : tags) {
        auto* button = new ChipButton(tag.icon, tag.appendText, m_tagRow);
        connect(button, &ChipButton::clicked, &m_model, [this, id = tag.id] { m_model.toggleQuickTag(id); });
        // A click leaves the keyboard in the editor: the next key belongs to the note.
        button->setFocusPolicy(Qt::TabFocus);
        m_tagLayout->addWidget(button);
        m_chips.push_back({tag, button});
    }
    m_tagRow->setVisible(!m_chips.empty());
    showSelection();
}

void NewTabView::showSelection()
{
    for (const Chip& chip : m_chips) {
        chip.button->setChecked(m_model.selectedQuickTags().contains(chip.tag.id));
    }
}

void NewTabView::showStatus()
{
    if (m_model.showStatus()) {
        m_status->show(m_model.statusMessage(), colorOf(m_model.statusType()));
    } else {
        m_status->fade();
    }
}

} // namespace flitmark
