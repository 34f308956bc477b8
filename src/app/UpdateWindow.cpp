// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/UpdateWindow.h>
#include <platform/Workspace.h>
#include <ui/AccessibleRole.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/OrdinaryWindow.h>
#include <ui/ScrollArea.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int margin = 24;
constexpr int textWidth = 384;
constexpr int cardMarginX = 16;
constexpr int cardMarginY = 12;
constexpr int highestNotes = 200;

struct Texts
{
    QString headline;
    QString details;
};

Texts textsOf(const Updater::State& state)
{
    const QString own = QCoreApplication::applicationVersion();
    switch (state.status) {
    case Updater::Status::Idle:
    case Updater::Status::Checking:
        return {UpdateWindow::tr("Looking for updates..."), {}};
    case Updater::Status::UpToDate:
        return {UpdateWindow::tr("Flitmark is up to date."), UpdateWindow::tr("You have version %1.").arg(own)};
    case Updater::Status::Available:
        return {UpdateWindow::tr("Flitmark %1 is available.").arg(state.version),
                state.page.isEmpty()
                    ? UpdateWindow::tr("You have version %1. The feed names no download page.").arg(own)
                    : UpdateWindow::tr("You have version %1.").arg(own)};
    case Updater::Status::Failed:
        return {UpdateWindow::tr("Looking for updates failed."), state.reason};
    case Updater::Status::NotOffered:
        break;
    }
    return {UpdateWindow::tr("This Flitmark does not look for updates."), state.reason};
}

void showText(Label& label, const QString& text)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

UpdateWindow::UpdateWindow(Updater& updater, Workspace& workspace)
    : QWidget(nullptr, closableWindow)
    , m_scheme(*this, ColorPalette::obsidianNative)
    , m_updater(updater)
    , m_workspace(workspace)
    , m_headline(new Label({}, TextRole::Title))
    , m_details(new Label)
    , m_notesCard(new Card)
    , m_notesArea(new ScrollArea)
    , m_notes(new Label)
{
    setWindowTitle(tr("Software Update"));
    setAccessibleRole(*this, QAccessible::Window);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(8);
    column->setSizeConstraint(QLayout::SetFixedSize);
    m_details->setColor(&Theme::text2);
    for (Label* label : {m_headline, m_details}) {
        label->setWordWrap(true);
        label->setFixedWidth(scaled(textWidth));
        column->addWidget(label);
    }
    layOutNotes();
    column->addSpacing(8);
    column->addWidget(m_notesCard);
    column->addSpacing(margin - 8);
    column->addLayout(makeButtons());
    connect(&updater, &Updater::stateChanged, this, &UpdateWindow::showState);
    showState();
}

void UpdateWindow::layOutNotes()
{
    m_notes->setWordWrap(true);
    m_notes->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_notesArea->setWidget(m_notes);
    auto* inside = new QVBoxLayout(m_notesCard);
    inside->setContentsMargins(cardMarginX, cardMarginY, cardMarginX, cardMarginY);
    inside->addWidget(m_notesArea);
}

QLayout* UpdateWindow::makeButtons()
{
    m_close = new Button({});
    m_open = new Button(tr("Open Download Page"), ButtonKind::Filled);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch();
    row->addWidget(m_close);
    row->addWidget(m_open);
    connect(m_close, &Button::clicked, this, &QWidget::close);
    connect(m_open, &Button::clicked, this, &UpdateWindow::openPage);
    return row;
}

void UpdateWindow::showState()
{
    const Updater::State state = m_updater.state();
    const auto [headline, details] = textsOf(state);
    showText(*m_headline, headline);
    showText(*m_details, details);
    showNotes(state.notes);
    const bool canOpen = state.status == Updater::Status::Available && !state.page.isEmpty();
    m_open->setVisible(canOpen);
    m_close->setText(canOpen ? tr("Later") : tr("Close"));
    (canOpen ? m_open : m_close)->setFocus();
}

void UpdateWindow::showNotes(const QString& notes)
{
    m_notes->setText(notes);
    const int width = scaled(textWidth) - 2 * cardMarginX;
    m_notesArea->setFixedSize(width, std::min(m_notes->heightForWidth(width), scaled(highestNotes)));
    m_notesCard->setVisible(!notes.isEmpty());
}

void UpdateWindow::openPage()
{
    if (m_workspace.open(m_updater.state().page)) {
        close();
    } else {
        showText(*m_details, tr("The page could not be opened: %1").arg(m_updater.state().page.toString()));
    }
}

void UpdateWindow::showCentered(ColorPalette palette, Keyboard keyboard)
{
    m_scheme.setPalette(palette);
    if (!isVisible()) {
        centreOnScreen(*this);
    }
    setAttribute(Qt::WA_ShowWithoutActivating, keyboard == Keyboard::Leave);
    show();
    raise();
    if (keyboard == Keyboard::Take) {
        activateWindow();
    }
}

void UpdateWindow::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
}

void UpdateWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (!m_notesArea->scrollBy(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark
