// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseList.h>
#include <capture/BrowseModel.h>
#include <capture/BrowseTrail.h>
#include <capture/BrowseView.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/NoProgramBar.h>
#include <ui/Surfaces.h>

#include <QStackedLayout>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int footerMargin = 16;

} // namespace

BrowseView::BrowseView(BrowseModel& model)
    : m_model(model)
    , m_trail(new BrowseTrail(model))
    , m_body(new QStackedLayout)
    , m_list(new BrowseList(model))
    , m_summary(new Label(QString(), TextRole::Caption))
{
    setCornerReserve(0);
    m_body->addWidget(m_list);
    m_body->addWidget(makeEmptyView());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(makeHead());
    layout->addWidget(new Divider);
    auto* noProgram = new NoProgramBar;
    layout->addWidget(noProgram);
    layout->addLayout(m_body, 1);
    layout->addWidget(new Divider);
    layout->addWidget(m_summary);
    // Read in the order in which it is seen.
    m_summary->raise();

    connect(&model, &BrowseModel::noProgramFound, noProgram, &QWidget::show);
    connect(noProgram, &NoProgramBar::openFileAsked, &model, &BrowseModel::openFile);
    connect(noProgram, &NoProgramBar::openFileAsked, noProgram, &QWidget::hide);
    connect(&model, &BrowseModel::currentBrowsePathChanged, noProgram, &QWidget::hide);
    connect(&model, &BrowseModel::browseItemsChanged, this, &BrowseView::showItems);
    showItems();
}

QWidget* BrowseView::makeHead()
{
    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(8, 0, 8, 8);
    row->setSpacing(8);
    row->addWidget(m_trail, 1);
    auto* refresh = new IconButton(tr("Refresh"));
    refresh->setSymbol(QStringLiteral("arrow.clockwise"));
    connect(refresh, &IconButton::clicked, &m_model, &BrowseModel::refresh);
    row->addWidget(refresh);
    return head;
}

QWidget* BrowseView::makeEmptyView()
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(new SymbolView(QStringLiteral("folder"), 40, &Theme::outline), 0, Qt::AlignHCenter);
    auto* text = new Label(tr("Empty folder"));
    text->setColor(&Theme::text2);
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addStretch();
    return page;
}

void BrowseView::appeared()
{
    m_model.refresh();
}

void BrowseView::setCornerReserve(int width)
{
    m_summary->setContentsMargins(footerMargin, 8, std::max(footerMargin, width + 8), 12);
}

void BrowseView::takeKeyboard()
{
    if (m_model.browseItems().isEmpty()) {
        m_trail->takeKeyboard();
    } else {
        m_list->setFocus();
    }
}

void BrowseView::showItems()
{
    const bool hadKeyboard = m_list->hasFocus();
    m_summary->setText(m_model.summary());
    // Before the list goes away, the keyboard moves on from it.
    if (hadKeyboard) {
        takeKeyboard();
    }
    m_body->setCurrentIndex(m_model.browseItems().isEmpty() ? 1 : 0);
}

} // namespace flitmark
