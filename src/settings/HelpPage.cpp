// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/KeyMonitor.h>
#include <platform/OnThisComputer.h>
#include <platform/Workspace.h>
#include <settings/HelpPage.h>
#include <settings/HelpSpacing.h>
#include <ui/AccessibleRole.h>
#include <ui/Blocks.h>
#include <ui/Button.h>
#include <ui/KeyCap.h>
#include <ui/Prose.h>
#include <ui/Surfaces.h>

#include <QVBoxLayout>

#include <algorithm>

namespace flitmark {

namespace {

using Kind = HelpBlock::Kind;

constexpr QMargins margins(24, 12, 24, 12);
constexpr int cardInset = 16;

bool hasQuietText(Kind kind)
{
    return kind != Kind::Step && kind != Kind::Shortcut && kind != Kind::Passage && kind != Kind::Action;
}

QWidget* makeTitle(const QString& text)
{
    auto* title = new Prose(text, TextRole::Title);
    setAccessibleRole(*title, QAccessible::Heading);
    return title;
}

/// Puts `widget`, which is `height` high, beside the middle of a row's first line.
QMargins besideFirstLine(int height)
{
    const int free = rowHeight(TextRole::Strong) - height;
    return {0, std::max(0, free / 2), 0, 0};
}

/// A button that stays as wide as its text, at the left.
QWidget* atLeft(QWidget* button)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(button);
    layout->addStretch();
    return row;
}

} // namespace

HelpPage::HelpPage(const QList<HelpBlock>& blocks, const HelpServices& services, QWidget* parent)
    : QWidget(parent)
    , m_services(services)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(margins);
    m_column->setSpacing(0);
    const HelpBlock* previous = nullptr;
    for (const HelpBlock& block : blocks) {
        QBoxLayout& place = placeFor(block, previous);
        place.addWidget(makeWidget(block), block.kind == Kind::Control ? 1 : 0);
        if (!help::isRow(block.kind)) {
            for (const LocalFact fact : block.facts) {
                m_column->addSpacing(4);
                m_column->addWidget(makeFact(fact));
            }
        }
        previous = &block;
    }
    m_column->addStretch();
}

QBoxLayout& HelpPage::placeFor(const HelpBlock& block, const HelpBlock* previous)
{
    const bool sharesCard = help::sharesCard(block.kind);
    if (previous != nullptr && previous->kind == block.kind && m_group != nullptr) {
        if (sharesCard) {
            m_group->addWidget(new Divider(cardInset));
        }
        return *m_group;
    }
    m_group = nullptr;
    m_column->addSpacing(previous != nullptr ? help::spaceBetween(previous->kind, block.kind) : 0);
    if (sharesCard) {
        auto* card = new Card;
        m_group = new QVBoxLayout(card);
        m_group->setContentsMargins({});
        m_group->setSpacing(0);
        m_column->addWidget(card);
    } else if (block.kind == Kind::Control) {
        m_group = new QHBoxLayout;
        m_group->setSpacing(8);
        m_column->addLayout(m_group);
    }
    return m_group != nullptr ? *m_group : *m_column;
}

QWidget* HelpPage::makeWidget(const HelpBlock& block)
{
    switch (block.kind) {
    case Kind::Title:
        return makeTitle(block.title);
    case Kind::Text:
        return new Prose(block.text);
    case Kind::QuietText:
        return new Prose(block.text, TextRole::Body, &Theme::text2);
    case Kind::Tip:
        return new Prose(block.text, TextRole::Caption, &Theme::text2);
    case Kind::BoldText:
        return new Prose(block.text, TextRole::Bold);
    case Kind::Divider:
        return new Divider;
    case Kind::Code:
        return new CodeBlock(block.text);
    case Kind::GroupHead:
        return makeGroupHead(block);
    case Kind::Callout:
        return new Callout(block.symbol, &Theme::mark, block.text);
    case Kind::GoodNews:
        return new Callout(block.symbol, &Theme::green, block.text);
    case Kind::PiecesLink:
        return makeLink(block);
    case Kind::ConfigFolder:
        return makeConfigFolderButton(block);
    case Kind::Control:
        return makeControl(block);
    default:
        return makeRow(block);
    }
}

/// A lead (a symbol, a number, a key), the texts, and a badge at the right; each where the block has it.
QWidget* HelpPage::makeRow(const HelpBlock& block)
{
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    const int inset = help::sharesCard(block.kind) ? cardInset : 0;
    const int padding = help::padding(block.kind);
    row->setContentsMargins(inset, padding, inset, padding);
    row->setSpacing(block.kind == Kind::Shortcut ? 16 : 12);
    QLayout* texts = makeTexts(block);
    if (QWidget* lead = makeLead(block)) {
        const int height = lead->sizeHint().height();
        texts->setContentsMargins(0, std::max(0, (height - rowHeight(TextRole::Strong)) / 2), 0, 0);
        auto* column = new QVBoxLayout;
        column->setContentsMargins(besideFirstLine(height));
        column->addWidget(lead);
        column->addStretch();
        row->addLayout(column);
    }
    row->addLayout(texts, 1);
    if (!block.badge.isEmpty()) {
        row->addWidget(new Badge(block.badge, block.isBadgeAccent ? Badge::Kind::Accent : Badge::Kind::Plain), 0,
                       Qt::AlignTop);
    }
    return widget;
}

QWidget* HelpPage::makeLead(const HelpBlock& block)
{
    if (!block.symbol.isEmpty()) {
        return new SymbolView(block.symbol, 20, block.kind == Kind::Trouble ? &Theme::orange : &Theme::mark);
    }
    if (block.mark.isEmpty()) {
        return nullptr;
    }
    if (block.kind == Kind::Step || block.kind == Kind::SetupStep) {
        return new NumberBadge(block.mark.toInt());
    }
    return new KeyCap(block.mark);
}

QLayout* HelpPage::makeTexts(const HelpBlock& block)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    if (!block.title.isEmpty()) {
        column->addWidget(new Prose(block.title, block.kind == Kind::Trouble ? TextRole::Bold : TextRole::Strong));
    }
    column->addWidget(new Prose(block.text, TextRole::Body, hasQuietText(block.kind) ? &Theme::text2 : &Theme::text));
    if (!block.requirement.isEmpty()) {
        column->addSpacing(4);
        column->addWidget(new Prose(block.requirement, TextRole::Caption, &Theme::text2));
    }
    for (const LocalFact fact : block.facts) {
        column->addSpacing(4);
        column->addWidget(makeFact(fact));
    }
    column->addStretch();
    return column;
}

QWidget* HelpPage::makeControl(const HelpBlock& block)
{
    auto* card = new Card;
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(4);
    column->addWidget(new SymbolView(block.symbol, 20), 0, Qt::AlignLeft);
    column->addSpacing(4);
    column->addWidget(new Prose(block.title, TextRole::Strong));
    column->addWidget(new Prose(block.text, TextRole::Caption, &Theme::text2));
    column->addStretch();
    return card;
}

QWidget* HelpPage::makeGroupHead(const HelpBlock& block)
{
    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins({});
    row->setSpacing(8);
    row->addWidget(new SymbolView(block.symbol, 18));
    row->addWidget(new Prose(block.title, TextRole::Heading), 1);
    return head;
}

QWidget* HelpPage::makeLink(const HelpBlock& block)
{
    auto* link = new Button(block.text);
    link->setSymbol(QStringLiteral("arrow.up.right.square"));
    setAccessibleRole(*link, QAccessible::Link);
    connect(link, &Button::clicked, this,
            [this] { m_services.workspace.open(QUrl(QStringLiteral("https://pieces.app"))); });
    return atLeft(link);
}

QWidget* HelpPage::makeConfigFolderButton(const HelpBlock& block)
{
    auto* button = new Button(block.text);
    button->setSymbol(block.symbol);
    connect(button, &Button::clicked, this,
            [this] { m_services.workspace.open(QUrl::fromLocalFile(m_services.directories.ownFolder())); });
    return atLeft(button);
}

Prose* HelpPage::makeFact(LocalFact fact)
{
    auto* line = new Prose(textOf(fact), TextRole::Caption, &Theme::text2);
    if (fact == LocalFact::Hotkey) {
        connect(&m_services.keyMonitor, &KeyMonitor::stateChanged, line,
                [this, line] { line->setProse(textOf(LocalFact::Hotkey)); });
    }
    return line;
}

QString HelpPage::textOf(LocalFact fact) const
{
    switch (fact) {
    case LocalFact::Systems:
        return onThisComputer::systems();
    case LocalFact::Keys:
        return onThisComputer::keys();
    case LocalFact::Hotkey:
        return onThisComputer::hotkey(m_services.keyMonitor.state());
    case LocalFact::ConfigFile:
        return onThisComputer::configFile(m_services.directories);
    case LocalFact::None:
        break;
    }
    return {};
}

void HelpPage::selectAll()
{
    for (Prose* text : findChildren<Prose*>()) {
        text->selectAll();
    }
}

QString HelpPage::selectedText() const
{
    QStringList lines;
    for (const Prose* text : findChildren<Prose*>()) {
        if (text->hasSelectedText()) {
            lines.append(text->prose());
        }
    }
    return lines.join(u'\n');
}

} // namespace flitmark
