// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/DailyReviewSchedule.h>
#include <config/AppConfig.h>

#include <QtTest/QTest>

namespace flitmark {

namespace {

QDateTime at(int hour, int minute, int second = 0, int day = 22)
{
    return {QDate(2026, 1, day), QTime(hour, minute, second)};
}

AppConfig withTimes(const QStringList& times)
{
    AppConfig config;
    config.dailyReviewTimes = times;
    return config;
}

AppConfig switchedOff(AppConfig config)
{
    config.dailyReviewEnabled = false;
    return config;
}

} // namespace

class DailyReviewScheduleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spelling_data();
    void spelling();
    void lateCheck_data();
    void lateCheck();
    void oncePerDay();
    void spellings_areEntriesOfTheirOwn();
    void snooze_suppressesEveryEntry();
    void sleepWhileSnoozed_data();
    void sleepWhileSnoozed();
    void whileSwitchedOff_minutesPass();
    void clockChange_data();
    void clockChange();
};

void DailyReviewScheduleTest::spelling_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isDue");

    QTest::newRow("plain") << "18:00" << true;
    QTest::newRow("spaces and a tab around") << " \t18:00 " << true;
    QTest::newRow("short") << "18:0" << true;
    QTest::newRow("signs") << "+18:-0" << true;
    QTest::newRow("empty pieces") << ":18::00:" << true;
    QTest::newRow("twelve hours") << "6pm" << false;
    QTest::newRow("dot") << "18.00" << false;
    QTest::newRow("seconds") << "18:00:00" << false;
    QTest::newRow("space inside") << "18: 00" << false;
    QTest::newRow("same number of minutes") << "17:60" << false;
    QTest::newRow("a day more") << "42:00" << false;
    QTest::newRow("too large") << "99999999999999999999:00" << false;
    QTest::newRow("empty") << "" << false;
}

void DailyReviewScheduleTest::spelling()
{
    QFETCH(QString, entry);
    DailyReviewSchedule schedule;
    QTEST(schedule.check(at(18, 0, 40), withTimes({entry})), "isDue");
    QVERIFY(!schedule.check(at(18, 1, 40), withTimes({entry})));
}

void DailyReviewScheduleTest::lateCheck_data()
{
    QTest::addColumn<QDateTime>("lastCheck");
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<bool>("isDue");

    QTest::newRow("seconds past a minute") << at(17, 59, 59) << at(18, 1, 1) << true;
    QTest::newRow("two hours' sleep") << at(17, 30) << at(19, 30, 59) << true;
    QTest::newRow("four hours late") << at(17, 30) << at(22, 0, 59) << true;
    QTest::newRow("more than four hours late") << at(17, 30) << at(22, 1) << false;
    QTest::newRow("slept since yesterday") << at(23, 0, 0, 21) << at(20, 0) << true;
    QTest::newRow("slept through it and past midnight") << at(17, 30, 0, 21) << at(0, 5) << false;
    QTest::newRow("no check was missed") << at(18, 1) << at(18, 2) << false;
    QTest::newRow("check of its own minute, but configured later") << at(18, 0) << at(18, 1) << false;
    QTest::newRow("clock set back before it") << at(19, 0) << at(17, 0) << false;
    QTest::newRow("clock set back into it") << at(19, 0) << at(18, 0, 10) << true;
    QTest::newRow("no earlier check") << QDateTime() << at(18, 1) << false;
}

void DailyReviewScheduleTest::lateCheck()
{
    QFETCH(QDateTime, lastCheck);
    QFETCH(QDateTime, now);
    DailyReviewSchedule schedule;
    if (lastCheck.isValid()) {
        schedule.check(lastCheck, withTimes({}));
    }
    QTEST(schedule.check(now, withTimes({QStringLiteral("18:00")})), "isDue");
    QVERIFY(!schedule.check(now.addSecs(5), withTimes({QStringLiteral("18:00")})));
}

void DailyReviewScheduleTest::oncePerDay()
{
    const AppConfig config = withTimes({QStringLiteral("12:30"), QStringLiteral("18:00")});
    DailyReviewSchedule schedule;
    QVERIFY(schedule.check(at(12, 30, 1), config));
    QVERIFY(!schedule.check(at(12, 30, 30), config));
    QVERIFY(!schedule.check(at(12, 31), config));
    QVERIFY(schedule.check(at(18, 0), config));
    QVERIFY(!schedule.check(at(0, 0, 0, 23), config));
    QVERIFY(schedule.check(at(12, 30, 0, 23), config));
}

void DailyReviewScheduleTest::spellings_areEntriesOfTheirOwn()
{
    DailyReviewSchedule schedule;
    QVERIFY(schedule.check(at(18, 0), withTimes({QStringLiteral("18:00"), QStringLiteral("18:0")})));
    QVERIFY(!schedule.check(at(18, 0, 20), withTimes({QStringLiteral(" 18:0"), QStringLiteral("18:00 ")})));
    QVERIFY(schedule.check(at(18, 0, 40), withTimes({QStringLiteral("18:00"), QStringLiteral("+18:00")})));
}

void DailyReviewScheduleTest::snooze_suppressesEveryEntry()
{
    const AppConfig config =
        withTimes({QStringLiteral("18:00"), QStringLiteral("18:10"), QStringLiteral("18:15"), QStringLiteral("18:20")});
    DailyReviewSchedule schedule;
    QVERIFY(schedule.check(at(18, 0), config));
    schedule.snooze(at(18, 0, 30));
    QList<int> due;
    for (int minute = 1; minute < 60; ++minute) {
        if (schedule.check(at(18, minute, 31), config)) {
            due.append(minute);
        }
    }
    // The check of 18:15 comes a second after the end of the snooze.
    QCOMPARE(due, QList<int>({15, 20}));
}

void DailyReviewScheduleTest::sleepWhileSnoozed_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isDue");

    QTest::newRow("passed in the snooze") << "18:10" << false;
    QTest::newRow("began in the snooze") << "18:15" << false;
    QTest::newRow("passed after the snooze") << "18:16" << true;
}

void DailyReviewScheduleTest::sleepWhileSnoozed()
{
    QFETCH(QString, entry);
    DailyReviewSchedule schedule;
    schedule.check(at(18, 0), withTimes({entry}));
    schedule.snooze(at(18, 0, 30));
    schedule.check(at(18, 1), withTimes({entry}));
    QTEST(schedule.check(at(19, 0), withTimes({entry})), "isDue");
}

void DailyReviewScheduleTest::whileSwitchedOff_minutesPass()
{
    const AppConfig config = withTimes({QStringLiteral("18:00"), QStringLiteral("18:02")});
    DailyReviewSchedule schedule;
    for (int minute = 50; minute < 60; ++minute) {
        QVERIFY(!schedule.check(at(17, minute), switchedOff(config)));
    }
    QVERIFY(!schedule.check(at(18, 0), switchedOff(config)));
    QVERIFY(!schedule.check(at(18, 1), config));
    QVERIFY(schedule.check(at(18, 2), config));
}

void DailyReviewScheduleTest::clockChange_data()
{
    QTest::addColumn<QDateTime>("lastCheck");
    QTest::addColumn<int>("secondsLater");
    QTest::addColumn<bool>("isDue");

    // Berlin's clocks: 2:30 does not exist on the first day and comes twice on the second.
    QTest::newRow("forward over it") << QDateTime(QDate(2026, 3, 29), QTime(1, 59)) << 60 << true;
    QTest::newRow("back before it") << QDateTime(QDate(2026, 10, 25), QTime(1, 59)).addSecs(3600) << 60 << false;
}

void DailyReviewScheduleTest::clockChange()
{
    QFETCH(QDateTime, lastCheck);
    QFETCH(int, secondsLater);
    const AppConfig config = withTimes({QStringLiteral("02:30")});
    DailyReviewSchedule schedule;
    schedule.check(lastCheck.addSecs(-1800), config);
    schedule.check(lastCheck, config);
    QTEST(schedule.check(lastCheck.addSecs(secondsLater), config), "isDue");
}

} // namespace flitmark

QTEST_APPLESS_MAIN(flitmark::DailyReviewScheduleTest)
#include "DailyReviewScheduleTest.moc"
