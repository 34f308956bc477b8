// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/AppSection.h>
#include <settings/AppearanceSection.h>
#include <settings/NotesSection.h>
#include <settings/PomodoroSection.h>
#include <settings/QuickTagsSection.h>
#include <settings/SettingsView.h>
#include <settings/ShortcutsSection.h>
#include <settings/VaultSection.h>
#include <ui/Button.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ScrollArea.h>
#include <ui/Surfaces.h>
#include <ui/TabTiles.h>
#include <ui/TextArea.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedLayout>

namespace flitmark {

namespace {

constexpr QSize smallestSize(640, 360);

bool isTextField(const QWidget* widget)
{
    return qobject_cast<const TextField*>(widget) != nullptr || qobject_cast<const TextArea*>(widget) != nullptr;
}

} // namespace

SettingsView::SettingsView(SettingsModel& model, Dialogs& dialogs, const KeyMonitor& keyMonitor, ColorPalette palette,
                           QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_dialogs(dialogs)
    , m_keyMonitor(keyMonitor)
    , m_scheme(*this, palette)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addLayout(makeHeader());
    column->addLayout(makeTabs());
    column->addWidget(new Divider);
    m_pages = new QStackedLayout;
    column->addLayout(m_pages, 1);

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, this, &SettingsView::finish);
    }
    connect(&model, &SettingsModel::selectedTabChanged, this, &SettingsView::showSelectedTab);
}

QLayout* SettingsView::makeHeader() const
{
    auto* title = new Label(tr("Flitmark Settings"), TextRole::Title);
    title->setElideMode(Qt::ElideRight);
    auto* help = new IconButton(tr("Help"));
    help->setSymbol(QStringLiteral("questionmark.circle"));
    auto* done = new Button(tr("Done"), ButtonKind::Filled);
    done->setToolTip(tr("Save the settings (Ctrl+Return)"));
    done->setAccessibleName(tr("Done"));
    auto* row = new QHBoxLayout;
    row->setContentsMargins(SettingsSection::sideMargin, 16, SettingsSection::sideMargin, 12);
    row->setSpacing(8);
    row->addWidget(title, 1);
    row->addWidget(help);
    row->addWidget(done);
    connect(help, &IconButton::clicked, this, &SettingsView::helpAsked);
    connect(done, &Button::clicked, this, &SettingsView::finish);
    return row;
}

QLayout* SettingsView::makeTabs()
{
    m_tabs = new TabTiles;
    // In the order of SettingsModel::Tab.
    m_tabs->add(tr("App"), QStringLiteral("app.badge"));
    m_tabs->add(tr("Quick Tags"), QStringLiteral("tag"));
    m_tabs->add(tr("Vault"), QStringLiteral("folder"));
    m_tabs->add(tr("Notes"), QStringLiteral("doc.text"));
    m_tabs->add(tr("Appearance"), QStringLiteral("paintpalette"));
    m_tabs->add(tr("Pomodoro"), QStringLiteral("timer"));
    m_tabs->add(tr("Shortcuts"), QStringLiteral("keyboard"));
    m_sections.resize(7);
    connect(m_tabs, &TabTiles::currentChanged, this,
            [this](int index) { m_model.setSelectedTab(static_cast<SettingsModel::Tab>(index)); });
    auto* row = new QHBoxLayout;
    row->setContentsMargins(SettingsSection::sideMargin, 0, SettingsSection::sideMargin, 12);
    row->addWidget(m_tabs);
    return row;
}

SettingsSection* SettingsView::makeSection()
{
    switch (m_model.selectedTab()) {
    case SettingsModel::Tab::app:
        return new AppSection(m_model);
    case SettingsModel::Tab::quickTags:
        return new QuickTagsSection(m_model);
    case SettingsModel::Tab::vault:
        return new VaultSection(m_model, m_dialogs);
    case SettingsModel::Tab::notes:
        return new NotesSection(m_model);
    case SettingsModel::Tab::appearance:
        return new AppearanceSection(m_model);
    case SettingsModel::Tab::pomodoro:
        return new PomodoroSection(m_model);
    case SettingsModel::Tab::shortcuts:
        break;
    }
    return new ShortcutsSection(m_model, m_keyMonitor);
}

void SettingsView::showSelectedTab()
{
    const int index = static_cast<int>(m_model.selectedTab());
    m_tabs->setCurrentIndex(index);
    ScrollArea*& section = m_sections[index];
    if (section == nullptr) {
        section = new ScrollArea;
        section->setWidget(makeSection());
        section->setMinimumWidth(section->widget()->minimumSizeHint().width());
        m_pages->addWidget(section);
    }
    m_pages->setCurrentWidget(section);
}

QSize SettingsView::minimumSizeHint() const
{
    return layout()->totalMinimumSize().expandedTo(smallestSize);
}

void SettingsView::finish()
{
    m_model.saveSettings();
    Q_EMIT done();
}

void SettingsView::showEvent(QShowEvent* event)
{
    if (!m_isLoaded) {
        m_isLoaded = true;
        m_model.loadSettings();
        showSelectedTab();
        m_tabs->currentTile()->setFocus();
    }
    QWidget::showEvent(event);
}

void SettingsView::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
}

void SettingsView::keyPressEvent(QKeyEvent* event)
{
    ScrollArea* section = m_sections[static_cast<int>(m_model.selectedTab())];
    if (event->key() == Qt::Key_Escape && isTextField(focusWidget())) {
        // What is typed stays in the field.
        m_tabs->currentTile()->setFocus();
    } else if (event->key() == Qt::Key_Escape) {
        Q_EMIT closeAsked();
    } else if (section == nullptr || !section->scrollBy(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark
