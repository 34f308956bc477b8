// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>
#include <daily/tab/DailyDemoView.h>
#include <daily/tab/DailyTabModel.h>
#include <daily/tab/DailyTabView.h>
#include <daily/tab/FocusCheckSheet.h>
#include <daily/tab/FocusSection.h>
#include <daily/tab/LinesSection.h>
#include <daily/tab/PomodoroControls.h>
#include <daily/tab/TaskPickerSheet.h>
#include <daily/tab/TasksSection.h>
#include <ui/Button.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/NoProgramBar.h>
#include <ui/ScrollArea.h>
#include <ui/Spinner.h>
#include <ui/Surfaces.h>

#include <QStackedLayout>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int sideMargin = 16;

/// Puts `parts` into the middle of a page, below each other.
QWidget* makeCentredPage(const QList<QWidget*>& parts)
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setSpacing(8);
    column->addStretch();
    for (QWidget* part : parts) {
        column->addWidget(part, 0, Qt::AlignHCenter);
    }
    column->addStretch();
    return page;
}

Label* makeQuietText(const QString& text)
{
    auto* label = new Label(text);
    label->setColor(&Theme::text2);
    return label;
}

} // namespace

DailyTabView::DailyTabView(DailyTabModel& model, QWidget& sheetHost)
    : m_model(model)
    , m_date(new Label(QString(), TextRole::Title))
    , m_start(new IconButton(tr("Start Pomodoro for a task")))
    , m_controls(new PomodoroControls(model))
    , m_body(new QStackedLayout)
    , m_tasks(new TasksSection(model))
    , m_coach(new LinesSection(tr("COACH")))
    , m_work(new LinesSection(tr("WORK DONE")))
    , m_noProgram(new NoProgramBar)
    , m_picker(new TaskPickerSheet(model, sheetHost))
    , m_check(new FocusCheckSheet(model, sheetHost))
{
    // In the order of DailyTabModel::Body.
    m_body->addWidget(new DailyDemoView);
    m_body->addWidget(makeLoadingPage());
    m_body->addWidget(makeEmptyPage());
    m_body->addWidget(makeNotePage());
    m_body->setCurrentIndex(static_cast<int>(DailyTabModel::Body::Loading));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(makeHead());
    layout->addWidget(new Divider);
    layout->addLayout(m_body, 1);
    layout->insertWidget(2, m_noProgram);
    bind();
}

QWidget* DailyTabView::makeHead()
{
    m_start->setEmoji(tomato.toString());
    m_start->setGround(IconButtonGround::Boxed);
    connect(m_start, &IconButton::clicked, &m_model, [this] { m_model.setShowPomodoroTaskPicker(true); });

    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(sideMargin, 0, sideMargin, 12);
    row->setSpacing(8);
    m_date->setElideMode(Qt::ElideRight);
    row->addWidget(m_date, 1);
    row->addWidget(m_start);
    row->addWidget(m_controls);
    return head;
}

QWidget* DailyTabView::makeNotePage()
{
    auto* area = new ScrollArea;
    area->setWidget(makeColumn());
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(area, 1);
    layout->addWidget(new Divider);
    layout->addWidget(makeFooter());
    return page;
}

QWidget* DailyTabView::makeColumn()
{
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(sideMargin - TasksSection::rowReach, 8, sideMargin - TasksSection::rowReach, 8);
    layout->setSpacing(8);
    auto* focus = new FocusSection(m_model);
    for (QWidget* section : {static_cast<QWidget*>(focus), static_cast<QWidget*>(m_tasks),
                             static_cast<QWidget*>(m_coach), static_cast<QWidget*>(m_work)}) {
        if (section != m_tasks) {
            section->layout()->setContentsMargins(TasksSection::rowReach, 0, TasksSection::rowReach, 0);
        }
        layout->addWidget(section);
    }
    layout->addStretch();
    return column;
}

QWidget* DailyTabView::makeFooter()
{
    auto* footer = new QWidget;
    m_footer = new QHBoxLayout(footer);
    m_footer->setSpacing(8);
    auto* refresh = new IconButton(tr("Refresh"));
    refresh->setSymbol(QStringLiteral("arrow.clockwise"));
    connect(refresh, &IconButton::clicked, &m_model, &DailyTabModel::refresh);
    auto* open = new Button(tr("Obsidian"));
    open->setSymbol(QStringLiteral("arrow.up.right.square"));
    connect(open, &Button::clicked, &m_model, &DailyTabModel::openInObsidian);
    m_footer->addWidget(refresh);
    m_footer->addStretch();
    m_footer->addWidget(open);
    setCornerReserve(0);
    return footer;
}

QWidget* DailyTabView::makeLoadingPage()
{
    return makeCentredPage({new Spinner, makeQuietText(tr("Loading..."))});
}

QWidget* DailyTabView::makeEmptyPage()
{
    auto* refresh = new Button(tr("Refresh"), ButtonKind::Filled);
    connect(refresh, &Button::clicked, &m_model, &DailyTabModel::refresh);
    auto* create = new Button(tr("Create in Obsidian"));
    create->setSymbol(QStringLiteral("arrow.up.right.square"));
    connect(create, &Button::clicked, &m_model, &DailyTabModel::createInObsidian);
    Label* text = makeQuietText(tr("No daily note"));
    text->setContentsMargins(0, 0, 0, 4);
    m_places = makeQuietText(QString());
    m_places->setRole(TextRole::Caption);
    m_places->setAlignment(Qt::AlignHCenter);
    m_places->setWordWrap(true);
    return makeCentredPage({new SymbolView(QStringLiteral("calendar.badge.exclamationmark"), 40, &Theme::outline), text,
                            m_places, create, refresh});
}

void DailyTabView::bind()
{
    connect(&m_model, &DailyTabModel::noteChanged, this, &DailyTabView::showBody);
    connect(&m_model, &DailyTabModel::noProgramFound, this, [this] {
        m_noProgram->setHasFile(m_model.body() == DailyTabModel::Body::Note);
        m_noProgram->show();
    });
    connect(m_noProgram, &NoProgramBar::openFileAsked, &m_model, &DailyTabModel::openFile);
    connect(m_noProgram, &NoProgramBar::openFileAsked, m_noProgram, &QWidget::hide);
    connect(&m_model, &DailyTabModel::activeTaskLineNumberChanged, this, &DailyTabView::showTimer);
    connect(&m_model, &DailyTabModel::showPomodoroTaskPickerChanged, this, &DailyTabView::showSheets);
    connect(&m_model, &DailyTabModel::showCoachAlertChanged, this, &DailyTabView::showSheets);
    showBody();
    showTimer();
}

/// A load that is under way leaves on screen what is there; only the first one has nothing to leave.
void DailyTabView::showBody()
{
    m_date->setText(m_model.headerDate());
    m_date->setToolTip(m_model.noteDescription());
    m_date->setAccessibleDescription(m_model.noteDescription());
    m_places->setText(m_model.placesText());
    if (m_model.body() == DailyTabModel::Body::Loading) {
        return;
    }
    m_coach->setLines(m_model.coachNotes());
    m_work->setLines(m_model.workDone());
    m_body->setCurrentIndex(static_cast<int>(m_model.body()));
}

void DailyTabView::showTimer()
{
    const QWidget* focused = window()->focusWidget();
    const bool hadKeyboard = focused == m_start || m_controls->isAncestorOf(focused);
    const bool isActive = m_model.activeTaskLineNumber().has_value();
    // The shown one first, so that the keyboard is never without a place.
    (isActive ? static_cast<QWidget*>(m_controls) : m_start)->show();
    if (hadKeyboard && isActive) {
        m_controls->takeKeyboard();
    } else if (hadKeyboard) {
        m_start->setFocus();
    }
    (isActive ? static_cast<QWidget*>(m_start) : m_controls)->hide();
}

void DailyTabView::showSheets()
{
    const auto follow = [this](Sheet& sheet, bool isWanted) {
        if (isWanted && m_isTabShown) {
            sheet.open();
        } else {
            sheet.dismiss();
        }
    };
    const bool wasPicking = m_picker->isOpen();
    follow(*m_picker, m_model.showPomodoroTaskPicker());
    if (wasPicking && !m_picker->isOpen() && m_isTabShown && !isAncestorOf(window()->focusWidget()) &&
        m_start->isHidden()) {
        // The picker's own button has made way for these.
        m_controls->takeKeyboard();
    }
    follow(*m_check, m_model.showCoachAlert());
}

void DailyTabView::setTabShown(bool isShown)
{
    if (m_isTabShown == isShown) {
        return;
    }
    m_isTabShown = isShown;
    if (isShown) {
        m_model.tabShown();
    } else {
        m_model.tabHidden();
    }
    showSheets();
}

void DailyTabView::takeKeyboard()
{
    QWidget* const focused = window()->focusWidget();
    for (Sheet* sheet : {static_cast<Sheet*>(m_check), static_cast<Sheet*>(m_picker)}) {
        if (sheet->isOpen()) {
            if (focused == nullptr || (focused != sheet && !sheet->isAncestorOf(focused))) {
                sheet->setFocus();
            }
            return;
        }
    }
    // Whoever left off in a field goes on there.
    if (focused == nullptr || !isAncestorOf(focused) || !focused->isVisibleTo(this)) {
        setFocus();
    }
}

void DailyTabView::setCornerReserve(int width)
{
    m_footer->setContentsMargins(8, 8, width > 0 ? std::max(sideMargin, width + 8) : sideMargin, 12);
}

/// While the panel was away the note may have been made, or replaced unseen.
void DailyTabView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_isTabShown) {
        m_model.refresh();
    }
}

} // namespace flitmark
