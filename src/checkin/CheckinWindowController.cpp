// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/CheckinWindowController.h>
#include <checkin/PopupPresenter.h>
#include <config/ConfigManager.h>
#include <daily/DailyNoteManager.h>
#include <platform/NotificationCenter.h>
#include <platform/Print.h>
#include <platform/SystemSound.h>
#include <signals/SignalManager.h>

#include <QPointer>

#include <utility>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

void printFor(const QString& text)
{
    printLine(QStringLiteral("CheckinWindowController: ") + text);
}

QString inUtc(const QDateTime& time)
{
    return time.toUTC().toString(u"yyyy-MM-dd HH:mm:ss") + QStringLiteral(" +0000");
}

QString callSound()
{
    return QStringLiteral("Tink");
}

} // namespace

CheckinWindowController::CheckinWindowController(const Services& services)
    : m_services(services)
    , m_pomodoro(services.runLoop.now())
{
}

std::chrono::minutes CheckinWindowController::interval() const
{
    return pomodoroInterval(m_services.signalManager.coachConfig().pomodoroIntervalMinutes);
}

std::chrono::minutes CheckinWindowController::minutesRemaining() const
{
    const std::chrono::duration<double, std::ratio<60>> remaining = timeRemainingRatio() * interval();
    return std::chrono::ceil<std::chrono::minutes>(remaining);
}

/// Lets `change` work on the Pomodoro and publishes what is different after it.
template<typename Change>
void CheckinWindowController::changePomodoro(Change change)
{
    const std::pair oldState(isRunning(), isPaused());
    const double oldRatio = timeRemainingRatio();
    change();
    if (oldState != std::pair(isRunning(), isPaused())) {
        Q_EMIT stateChanged();
    }
    if (oldRatio != timeRemainingRatio()) {
        Q_EMIT timeRemainingRatioChanged(timeRemainingRatio());
    }
}

void CheckinWindowController::startPomodoroTimer()
{
    const std::chrono::minutes length = interval();
    changePomodoro([&] {
        m_pomodoro.start(m_services.runLoop.now());
        // In this order: at the end of an interval the countdown finds the next one begun.
        m_checkinTimer = m_services.runLoop.every(length, [this] { finishInterval(); });
        m_countdownTimer = m_services.runLoop.every(1s, [this] { updateTimeRemaining(); });
    });
    printFor(QStringLiteral("Started Pomodoro timer (%1 min intervals)").arg(length.count()));
}

void CheckinWindowController::stopPomodoroTimer()
{
    changePomodoro([this] {
        m_checkinTimer.reset();
        m_countdownTimer.reset();
    });
}

void CheckinWindowController::pauseTimer()
{
    changePomodoro([this] { m_pomodoro.pause(); });
    printFor(QStringLiteral("Timer paused"));
}

void CheckinWindowController::resumeTimer()
{
    changePomodoro([this] { m_pomodoro.start(m_services.runLoop.now()); });
    printFor(QStringLiteral("Timer resumed"));
}

void CheckinWindowController::restartTimer()
{
    changePomodoro([this] { m_pomodoro.restart(m_services.runLoop.now()); });
    Q_EMIT m_services.notificationCenter.pomodoroTimerUpdated(timeRemainingRatio());
    printFor(QStringLiteral("Timer restarted"));
}

void CheckinWindowController::updateTimeRemaining()
{
    changePomodoro([this] { m_pomodoro.tick(m_services.runLoop.now(), interval()); });
    Q_EMIT m_services.notificationCenter.pomodoroTimerUpdated(timeRemainingRatio());
}

void CheckinWindowController::finishInterval()
{
    if (isPaused()) {
        return;
    }
    m_pomodoro.startOver(m_services.runLoop.now());
    checkAndShowCheckin();
}

void CheckinWindowController::checkAndShowCheckin()
{
    const auto window = m_services.signalManager.isWithinCheckinWindow() ? PomodoroTimer::Window::Inside
                                                                         : PomodoroTimer::Window::Outside;
    switch (m_pomodoro.checkin(m_services.runLoop.now(), window)) {
    case PomodoroTimer::Checkin::OutsideWindow:
        printFor(QStringLiteral("Outside check-in window"));
        break;
    case PomodoroTimer::Checkin::Snoozed:
        printFor(QStringLiteral("Still snoozed until ") + inUtc(*snoozedUntil()));
        break;
    case PomodoroTimer::Checkin::Due:
        Q_EMIT m_services.notificationCenter.pomodoroCompleted();
        m_services.runLoop.async(this, [this] { showCheckin(); });
        break;
    }
}

void CheckinWindowController::showCheckin()
{
    m_services.dailyNoteManager.loadTodayNote();
    if (m_services.popups.isCheckinVisible()) {
        m_services.popups.raiseCheckin();
        return;
    }
    m_services.popups.showCheckin([self = QPointer(this)](const CheckinResponse& response) {
        if (self != nullptr) {
            self->handleCheckinResponse(response);
        }
    });
    m_services.sound.play(callSound());
}

void CheckinWindowController::handleCheckinResponse(const CheckinResponse& response)
{
    const QDateTime now = m_services.runLoop.now();
    m_services.popups.closeCheckin();
    m_pomodoro.startOver(now);
    switch (response.kind) {
    case CheckinResponse::Kind::updatedFocus:
        printFor(QStringLiteral("Focus updated to: ") + response.focus);
        break;
    case CheckinResponse::Kind::completedAndNew:
        printFor(QStringLiteral("Completed task, new focus: ") + response.focus);
        break;
    case CheckinResponse::Kind::onTrack:
        printFor(QStringLiteral("User confirmed on track"));
        break;
    case CheckinResponse::Kind::snoozed:
        printFor(QStringLiteral("Snoozed until ") + inUtc(m_pomodoro.snooze(now, interval())));
        break;
    case CheckinResponse::Kind::dismissed:
        printFor(QStringLiteral("User dismissed check-in"));
        break;
    }
}

void CheckinWindowController::startDailyReviewTimer()
{
    scheduleDailyReviewCheck();
    checkDailyReviewSchedule();
}

/// Sets the timer to the next full minute, by the clock as it is now: each check aligns the one after it.
void CheckinWindowController::scheduleDailyReviewCheck()
{
    m_dailyReviewTimer = m_services.runLoop.every(m_services.runLoop.untilNextMinute(), [this] {
        scheduleDailyReviewCheck();
        m_services.dailyNoteManager.loadTodayNoteIfMoved();
        checkDailyReviewSchedule();
    });
}

void CheckinWindowController::checkDailyReviewSchedule()
{
    if (m_dailyReview.check(m_services.runLoop.now(), m_services.configManager.config())) {
        m_services.runLoop.async(this, [this] { showDailyReview(); });
    }
}

void CheckinWindowController::showDailyReview()
{
    if (m_services.popups.isDailyReviewVisible()) {
        m_services.popups.raiseDailyReview();
        return;
    }
    m_services.popups.showDailyReview([self = QPointer(this)](DailyReviewAction action) {
        if (self != nullptr) {
            self->handleDailyReviewAction(action);
        }
    });
    m_services.sound.play(callSound());
}

void CheckinWindowController::handleDailyReviewAction(DailyReviewAction action)
{
    m_services.popups.closeDailyReview();
    switch (action) {
    case DailyReviewAction::openDailyTab:
        Q_EMIT m_services.notificationCenter.showDailyTab();
        break;
    case DailyReviewAction::openInObsidian:
        m_services.dailyNoteManager.loadTodayNote();
        // What is opened is the published note: it has to be the one just loaded.
        m_services.runLoop.async(&m_services.dailyNoteManager,
                                 [manager = &m_services.dailyNoteManager] { manager->openInObsidian(); });
        break;
    case DailyReviewAction::snooze:
        m_dailyReview.snooze(m_services.runLoop.now());
        break;
    case DailyReviewAction::dismissed:
        break;
    }
}

} // namespace flitmark
