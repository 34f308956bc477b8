// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseView.h>
#include <capture/NewTabView.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <daily/tab/DailyTabView.h>
#include <ui/IconButton.h>
#include <ui/ReadingMargins.h>
#include <ui/SegmentedTabs.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedLayout>

namespace flitmark {

NotePanelView::NotePanelView(const NotePanelModels& models, ConfigManager& configManager, QWidget* parent)
    : QWidget(parent)
    , m_model(models.panel)
    , m_tabs(new SegmentedTabs)
    , m_newTab(new NewTabView(models.panel, configManager))
    , m_browse(new BrowseView(models.browse))
    , m_daily(new DailyTabView(models.daily, *this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    m_pages = new QStackedLayout;
    layout->addLayout(m_pages, 1);

    // In the order of NotePanelModel::Tab.
    m_pages->addWidget(m_newTab);
    m_pages->addWidget(m_browse);
    m_pages->addWidget(m_daily);

    connect(m_tabs, &SegmentedTabs::currentChanged, this,
            [this](int index) { m_model.setSelectedTab(static_cast<NotePanelModel::Tab>(index)); });
    connect(&m_model, &NotePanelModel::selectedTabChanged, this, &NotePanelView::showSelectedTab);

    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &NotePanelView::closeAsked);
    auto* settings = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma), this);
    connect(settings, &QShortcut::activated, this, &NotePanelView::settingsAsked);
    auto* menu = new QShortcut(QKeySequence(Qt::Key_F10), this);
    connect(menu, &QShortcut::activated, this, &NotePanelView::menuAsked);
    auto* contextMenu = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), this);
    connect(contextMenu, &QShortcut::activated, this, &NotePanelView::askForContextMenu);
    showSelectedTab();
}

QWidget* NotePanelView::makeHeader()
{
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(readingMargins(16, 12, 8, 12));
    row->setSpacing(0);

    m_tabs->add(tr("New"), QStringLiteral("plus.circle.fill"));
    m_tabs->add(tr("Browse"), QStringLiteral("folder.fill"));
    m_tabs->add(tr("Daily"), QStringLiteral("calendar"));
    row->addWidget(m_tabs);
    row->addStretch();

    auto* settings = new IconButton(tr("Settings"));
    settings->setSymbol(QStringLiteral("gear"));
    connect(settings, &IconButton::clicked, this, &NotePanelView::settingsAsked);
    row->addWidget(settings);
    auto* close = new IconButton(tr("Close"));
    close->setSymbol(QStringLiteral("xmark.circle.fill"));
    connect(close, &IconButton::clicked, this, &NotePanelView::closeAsked);
    row->addWidget(close);
    return header;
}

void NotePanelView::takeKeyboard()
{
    switch (m_model.selectedTab()) {
    case NotePanelModel::Tab::newNote:
        m_newTab->takeKeyboard();
        break;
    case NotePanelModel::Tab::browse:
        m_browse->takeKeyboard();
        break;
    case NotePanelModel::Tab::daily:
        m_daily->takeKeyboard();
        break;
    }
}

void NotePanelView::setCornerReserve(int width)
{
    m_newTab->setCornerReserve(width);
    m_browse->setCornerReserve(width);
    m_daily->setCornerReserve(width);
}

/// Shift+F10 does what the Menu key does, which Qt knows alone: a text field has a menu of its own.
void NotePanelView::askForContextMenu()
{
    if (QWidget* widget = QApplication::focusWidget()) {
        const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
        QCoreApplication::sendEvent(widget, &asked);
    }
}

void NotePanelView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        Q_EMIT menuAsked();
    }
}

void NotePanelView::showSelectedTab()
{
    const int index = static_cast<int>(m_model.selectedTab());
    m_tabs->setCurrentIndex(index);
    m_pages->setCurrentIndex(index);
    if (m_model.selectedTab() == NotePanelModel::Tab::browse) {
        m_browse->appeared();
    }
    m_daily->setTabShown(m_model.selectedTab() == NotePanelModel::Tab::daily);
}

} // namespace flitmark
