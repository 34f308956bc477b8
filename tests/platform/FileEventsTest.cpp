// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/InotifyFileEventSource.h>
#include <support/TestFiles.h>

#include <QMutex>
#include <QThread>

#include <fcntl.h>

namespace flitmark {

using Event = FileEventSource::Event;
using Events = FileEventSource::Events;

namespace {

/// Collects events from the background thread.
class Record
{
public:
    FileEventSource::Handler handler()
    {
        return [this](Events events) {
            const QMutexLocker lock(&m_mutex);
            m_all.append(events);
            m_isOffThread = m_isOffThread && QThread::currentThread() != m_thread;
        };
    }
    qsizetype count() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_all.size();
    }
    Events all() const
    {
        const QMutexLocker lock(&m_mutex);
        Events sum;
        for (const Events events : m_all) {
            sum |= events;
        }
        return sum;
    }
    bool isOffThread() const { return m_isOffThread; }

private:
    mutable QMutex m_mutex;
    QList<Events> m_all;
    QThread* m_thread = QThread::currentThread();
    bool m_isOffThread = true;
};

} // namespace

class FileEventsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void events_data();
    void events();
    void renamedOver_isSilentAndFollowsTheOldFile();
    void twoWatchesOnOneFile_areApart();
    void cancel_closesAndSilences();
    void missingFile_isAnError();
    void cancelDuringEvents_neverCallsAfter();

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    InotifyFileEventSources m_sources;
};

void FileEventsTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    writeTestFile(path("a"), "old text");
}

void FileEventsTest::events_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("expected");

    const int all = int(Event::Written) | int(Event::Grown) | int(Event::Renamed);
    QTest::newRow("append") << QByteArray("append") << all << (int(Event::Written) | int(Event::Grown));
    QTest::newRow("overwrite") << QByteArray("overwrite") << all << int(Event::Written);
    QTest::newRow("cut") << QByteArray("cut") << all << int(Event::Written);
    QTest::newRow("rename") << QByteArray("rename") << all << int(Event::Renamed);
    QTest::newRow("rename, not wanted") << QByteArray("rename") << (int(Event::Written) | int(Event::Grown)) << 0;
    QTest::newRow("overwrite, only growth wanted") << QByteArray("overwrite") << int(Event::Grown) << 0;
    QTest::newRow("delete") << QByteArray("delete") << all << 0;
    QTest::newRow("permissions") << QByteArray("permissions") << all << 0;
    QTest::newRow("read") << QByteArray("read") << all << 0;
}

void FileEventsTest::events()
{
    QFETCH(QByteArray, action);
    QFETCH(int, wanted);
    QFETCH(int, expected);
    Record record;
    const auto source = m_sources.open(path("a"), Events(wanted), record.handler());
    QVERIFY(source);
    // Events come in order: once this file's is there, those of the other have been.
    writeTestFile(path("marker"), "");
    Record marker;
    const auto markerSource = m_sources.open(path("marker"), Event::Written, marker.handler());

    QFile file(path("a"));
    if (action == "append" || action == "overwrite") {
        QVERIFY(file.open(action == "append" ? QIODevice::Append : QIODevice::ReadWrite | QIODevice::ExistingOnly));
        file.write("new");
        file.close();
    } else if (action == "cut") {
        QVERIFY(file.resize(2));
    } else if (action == "rename") {
        QVERIFY(file.rename(path("b")));
    } else if (action == "delete") {
        QVERIFY(file.remove());
    } else if (action == "permissions") {
        QVERIFY(file.setPermissions(QFile::ReadOwner));
    } else {
        QCOMPARE(readTestFile(path("a")), QByteArray("old text"));
    }
    writeTestFile(path("marker"), "x");
    QTRY_VERIFY(marker.count() > 0);
    QCOMPARE(record.all(), Events(expected));
    QVERIFY(record.isOffThread());
}

void FileEventsTest::renamedOver_isSilentAndFollowsTheOldFile()
{
    Record record;
    const auto source = m_sources.open(path("a"), Event::Written | Event::Grown | Event::Renamed, record.handler());
    QFile old(path("a"));
    QVERIFY(old.open(QIODevice::Append));
    writeTestFile(path("new"), "new");
    QCOMPARE(::rename(qPrintable(path("new")), qPrintable(path("a"))), 0);
    writeTestFile(path("a"), "newer");
    QTest::qWait(50);
    QCOMPARE(record.count(), 0);
    old.write("x");
    old.close();
    QTRY_COMPARE(record.count(), 1);
}

void FileEventsTest::twoWatchesOnOneFile_areApart()
{
    Record first;
    Record second;
    auto one = m_sources.open(path("a"), Event::Written, first.handler());
    const auto two = m_sources.open(path("a"), Event::Renamed, second.handler());
    QVERIFY((*one)->descriptor() != (*two)->descriptor());
    QVERIFY(QFile::rename(path("a"), path("b")));
    QTRY_COMPARE(second.count(), 1);
    QCOMPARE(first.count(), 0);
    (*one)->cancel();
    QVERIFY(QFile::rename(path("b"), path("a")));
    QTRY_COMPARE(second.count(), 2);
}

void FileEventsTest::cancel_closesAndSilences()
{
    Record record;
    const auto source = m_sources.open(path("a"), Event::Written, record.handler());
    const int descriptor = (*source)->descriptor();
    QVERIFY(::fcntl(descriptor, F_GETFD) >= 0);
    (*source)->cancel();
    QCOMPARE((*source)->descriptor(), -1);
    QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
    writeTestFile(path("a"), "x");
    QTest::qWait(50);
    QCOMPARE(record.count(), 0);
    (*source)->cancel();
}

void FileEventsTest::missingFile_isAnError()
{
    const auto source = m_sources.open(path("none"), Event::Written, [](Events) {});
    QVERIFY(!source);
    QCOMPARE(source.error().message, QStringLiteral("No such file or directory"));
    QVERIFY(!m_sources.open(QStringLiteral("/a") + QChar(u'\0'), Event::Written, [](Events) {}));
}

void FileEventsTest::cancelDuringEvents_neverCallsAfter()
{
    std::atomic<bool> isWriting = true;
    std::thread writer([&] {
        QFile file(path("a"));
        while (isWriting && file.open(QIODevice::Append)) {
            file.write("x");
            file.close();
        }
    });
    for (int round = 0; round < 300; ++round) {
        std::atomic<bool> isOver = false;
        std::atomic<bool> wasCalledAfter = false;
        auto source =
            m_sources.open(path("a"), Event::Written, [&](Events) { wasCalledAfter = wasCalledAfter || isOver; });
        QVERIFY(source);
        QThread::usleep(100);
        (*source)->cancel();
        isOver = true;
        QThread::usleep(50);
        QVERIFY(!wasCalledAfter);
    }
    isWriting = false;
    writer.join();
}

} // namespace flitmark

QTEST_GUILESS_MAIN(flitmark::FileEventsTest)
#include "FileEventsTest.moc"
