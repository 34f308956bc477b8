// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <checkin/DailyReviewSchedule.h>
#include <config/AppConfig.h>

#include <QtTest/QTest>

using namespace flitmark;

namespace {

QDateTime at(int hour, int minute, int second = 0, int day = 22)
{
    return {QDate(2026, 1, day), QTime(hour, minute, second)};
}

/// A configuration of these times, with commas between them.
AppConfig withTimes(const char* times)
{
    AppConfig config;
    config.dailyReviewTimes = QString::fromUtf8(times).split(u',');
    return config;
}

} // namespace

class DailyReviewScheduleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spelling()
    {
        for (const char* entry : {" \t18:00 ", "18:0", "+18:-0", ":18::00:"}) {
            QVERIFY2(DailyReviewSchedule().check(at(18, 0, 40), withTimes(entry)), entry);
        }
        for (const char* entry : {"6pm", "18:00:00", "18: 00", "17:60", "42:00", "99999999999999999999:0", ""}) {
            QVERIFY2(!DailyReviewSchedule().check(at(18, 0, 40), withTimes(entry)), entry);
        }
        DailyReviewSchedule schedule;
        QVERIFY(schedule.check(at(18, 0), withTimes("18:00,18:0")));
        QVERIFY(!schedule.check(at(18, 0, 20), withTimes("18:0,18:00")));
    }

    void lateCheck()
    {
        for (const auto& [name, lastCheck, now, isDue] : {
                 std::tuple("seconds past a minute", at(17, 59, 59), at(18, 1, 1), true),
                 {"four hours late", at(17, 30), at(22, 0, 59), true},
                 {"more than four hours late", at(17, 30), at(22, 1), false},
                 {"slept since yesterday", at(23, 0, 0, 21), at(20, 0), true},
                 {"slept through it and past midnight", at(17, 30, 0, 21), at(0, 5), false},
                 {"configured after its minute", at(18, 0), at(18, 1), false},
                 {"clock set back before it", at(19, 0), at(17, 0), false},
                 {"clock set back into it", at(19, 0), at(18, 0, 10), true},
                 {"no earlier check", QDateTime(), at(18, 1), false},
             }) {
            DailyReviewSchedule schedule;
            if (lastCheck.isValid()) {
                schedule.check(lastCheck, AppConfig());
            }
            QVERIFY2(schedule.check(now, withTimes("18:00")) == isDue, name);
            QVERIFY2(!schedule.check(now.addSecs(5), withTimes("18:00")), name);
        }
    }

    void oncePerDayWhileSwitchedOn()
    {
        AppConfig config = withTimes("12:30,18:00");
        DailyReviewSchedule schedule;
        QVERIFY(schedule.check(at(12, 30, 1), config) && !schedule.check(at(12, 31), config));
        config.dailyReviewEnabled = false;
        QVERIFY(!schedule.check(at(18, 0), config));
        config.dailyReviewEnabled = true;
        QVERIFY(!schedule.check(at(18, 1), config) && !schedule.check(at(0, 0, 0, 23), config));
        QVERIFY(schedule.check(at(12, 30, 0, 23), config));
    }

    void snooze_suppressesEveryEntry()
    {
        const AppConfig config = withTimes("18:00,18:10,18:15,18:20");
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

        // After a sleep only what passed after the snooze is made up for.
        for (const char* entry : {"18:10", "18:15", "18:16"}) {
            DailyReviewSchedule slept;
            slept.check(at(18, 0), withTimes(entry));
            slept.snooze(at(18, 0, 30));
            QCOMPARE(slept.check(at(19, 0), withTimes(entry)), entry == QByteArray("18:16"));
        }
    }

    void clockChange()
    {
        // Berlin's clocks: 2:30 does not exist on the first day and comes twice on the second.
        for (const auto& [before, isDue] : {std::pair(QDateTime(QDate(2026, 3, 29), QTime(1, 59)), true),
                                            {QDateTime(QDate(2026, 10, 25), QTime(1, 59)).addSecs(3600), false}}) {
            DailyReviewSchedule schedule;
            schedule.check(before.addSecs(-1800), withTimes("02:30"));
            schedule.check(before, withTimes("02:30"));
            QCOMPARE(schedule.check(before.addSecs(60), withTimes("02:30")), isDue);
        }
    }
};

QTEST_APPLESS_MAIN(DailyReviewScheduleTest)
#include "DailyReviewScheduleTest.moc"
