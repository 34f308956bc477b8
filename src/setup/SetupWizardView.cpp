// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Dialogs.h>
#include <setup/FinishStep.h>
#include <setup/QuickTagsStep.h>
#include <setup/SetupWizardModel.h>
#include <setup/SetupWizardView.h>
#include <setup/VaultStep.h>
#include <setup/WelcomeStep.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/RiseIn.h>
#include <ui/ScrollArea.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace flitmark {

namespace {

constexpr QSize contentSize(500, 550);
constexpr int stepCount = SetupWizardModel::finishStep + 1;

/// Whether the user leads by keyboard now: then the focus shows where it goes.
Qt::FocusReason focusReason(const QWidget* focused)
{
    const auto* state = focused != nullptr ? focused->findChild<ControlState*>() : nullptr;
    return state != nullptr && state->showsFocus() ? Qt::TabFocusReason : Qt::OtherFocusReason;
}

} // namespace

SetupWizardView::SetupWizardView(SetupWizardModel& model, Dialogs& dialogs, ColorPalette palette, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_dialogs(dialogs)
    , m_scheme(*this, palette)
    , m_content(new ScrollArea)
{
    setFixedSize(contentSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(makeHeader());
    column->addWidget(new Divider);
    column->addWidget(m_content, 1);
    column->addWidget(new Divider);
    column->addLayout(makeNavigation());

    showStep();
    connect(&model, &SetupWizardModel::changed, this, &SetupWizardView::showNavigation);
    connect(&model, &SetupWizardModel::stepChanged, this, [this] {
        showStep();
        riseIn(*m_content);
    });
}

void SetupWizardView::setLocalHotkeyLine(const QString& line)
{
    m_localHotkeyLine = line;
    if (m_model.currentStep() == SetupWizardModel::finishStep) {
        showStep();
    }
}

QLayout* SetupWizardView::makeHeader()
{
    m_dots = new Dots(stepCount);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(24, 16, 24, 16);
    row->setSpacing(12);
    row->addWidget(new SymbolView(QStringLiteral("sparkles"), 24));
    auto* title = new Label(tr("Welcome to Flitmark"), TextRole::Title);
    title->setElideMode(Qt::ElideRight);
    row->addWidget(title, 1);
    row->addWidget(m_dots);
    return row;
}

QLayout* SetupWizardView::makeNavigation()
{
    m_back = new Button(tr("Back"));
    m_forward = new Button({}, ButtonKind::Filled);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(24, 12, 24, 12);
    row->addWidget(m_back);
    row->addStretch();
    row->addWidget(m_forward);
    connect(m_back, &Button::clicked, &m_model, &SetupWizardModel::back);
    connect(m_forward, &Button::clicked, this, &SetupWizardView::goForward);
    return row;
}

StepColumn* SetupWizardView::makeStep()
{
    switch (m_model.currentStep()) {
    case SetupWizardModel::vaultStep:
        return new VaultStep(m_model, m_dialogs);
    case SetupWizardModel::quickTagsStep:
        return new QuickTagsStep(m_model);
    case SetupWizardModel::finishStep:
        return new FinishStep(m_model, m_localHotkeyLine);
    default:
        return new WelcomeStep;
    }
}

void SetupWizardView::showStep()
{
    const Qt::FocusReason reason = focusReason(focusWidget());
    // A key pressed in the step that goes may have led here: it goes when that has returned.
    if (QWidget* former = m_content->takeWidget()) {
        former->hide();
        former->deleteLater();
    }
    StepColumn* step = makeStep();
    m_content->setWidget(step);
    m_content->verticalScrollBar()->setValue(0);
    m_dots->setCurrent(m_model.currentStep());
    showNavigation();
    QWidget* first = step->firstFocus() != nullptr ? step->firstFocus() : m_forward;
    first->setFocus(reason);
}

void SetupWizardView::showNavigation()
{
    const int step = m_model.currentStep();
    m_back->setVisible(step > SetupWizardModel::welcomeStep);
    const QString label = step == SetupWizardModel::welcomeStep  ? tr("Get Started")
                          : step == SetupWizardModel::finishStep ? tr("Start Using Flitmark")
                                                                 : tr("Next");
    m_forward->setText(label);
    m_forward->setEnabled(m_model.canProceed());
}

void SetupWizardView::goForward()
{
    if (m_model.currentStep() == SetupWizardModel::finishStep) {
        m_model.finishSetup();
    } else {
        m_model.forward();
    }
}

void SetupWizardView::showEvent(QShowEvent* event)
{
    if (!m_isStarted) {
        m_isStarted = true;
        m_model.start();
    }
    QWidget::showEvent(event);
}

void SetupWizardView::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
}

void SetupWizardView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_forward->click();
    } else if (!m_content->scrollBy(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark
