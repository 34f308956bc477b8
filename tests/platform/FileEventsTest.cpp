// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/linux/InotifyFileEventSource.h>
#include <support/TestFiles.h>

#include <QThread>

#include <fcntl.h>

#include <atomic>

using namespace flitmark;
using Event = FileEventSource::Event;
using Events = FileEventSource::Events;

namespace {

constexpr Events everything = Event::Written | Event::Grown | Event::Renamed;

/// Collects events from the background thread.
struct Record
{
    FileEventSource::Handler handler()
    {
        return [this](Events events) {
            all |= int(events);
            ++count;
            isOffThread = isOffThread && QThread::currentThread() != mainThread;
        };
    }
    QThread* mainThread = QThread::currentThread();
    std::atomic<int> all = 0;
    std::atomic<int> count = 0;
    std::atomic<bool> isOffThread = true;
};

} // namespace

class FileEventsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        writeTestFile(path("a"), "old text");
    }
    void events_data()
    {
        QTest::addColumn<std::function<bool(QFile&)>>("action");
        QTest::addColumn<int>("expected");
        const auto row = [](const char* name, std::function<bool(QFile&)> action, Events expected) {
            QTest::newRow(name) << std::move(action) << int(expected);
        };
        row(
            "append", [](QFile& a) { return a.open(QFile::Append) && a.write("x"); }, Event::Written | Event::Grown);
        row(
            "overwrite", [](QFile& a) { return a.open(QFile::ReadWrite) && a.write("new"); }, Event::Written);
        row(
            "cut", [](QFile& a) { return a.resize(2); }, Event::Written);
        row(
            "rename", [](QFile& a) { return a.rename(a.fileName() + u'b'); }, Event::Renamed);
        row("delete", [](QFile& a) { return a.remove(); }, {});
        row("permissions", [](QFile& a) { return a.setPermissions(QFile::ReadOwner); }, {});
        row("read", [](QFile& a) { return a.open(QFile::ReadOnly) && a.readAll() == "old text"; }, {});
    }
    void events()
    {
        QFETCH(std::function<bool(QFile&)>, action);
        QFETCH(int, expected);
        Record record;
        Record other;
        Record marker;
        const auto source = m_sources.open(path("a"), everything, record.handler());
        // A second watch hears only what it asked for.
        const auto renames = m_sources.open(path("a"), Event::Renamed, other.handler());
        QVERIFY(source && renames && (*source)->descriptor() != (*renames)->descriptor());
        // Events come in order: once this file's is there, those of the other have been.
        writeTestFile(path("marker"), "");
        const auto markerSource = m_sources.open(path("marker"), Event::Written, marker.handler());
        QFile file(path("a"));
        QVERIFY(action(file));
        file.close();
        writeTestFile(path("marker"), "x");
        QTRY_VERIFY(marker.count > 0);
        QCOMPARE(record.all.load(), expected);
        QCOMPARE(other.all.load(), expected & int(Event::Renamed));
        QVERIFY(record.isOffThread);
    }
    void renamedOver_isSilentAndFollowsTheOldFile()
    {
        Record record;
        const auto source = m_sources.open(path("a"), everything, record.handler());
        QFile old(path("a"));
        QVERIFY(old.open(QIODevice::Append));
        writeTestFile(path("new"), "new");
        QCOMPARE(::rename(qPrintable(path("new")), qPrintable(path("a"))), 0);
        writeTestFile(path("a"), "newer");
        QTest::qWait(50);
        QCOMPARE(record.count, 0);
        old.write("x");
        old.close();
        QTRY_COMPARE(record.count, 1);
    }
    void cancel_closesAndSilences()
    {
        Record record;
        const auto source = m_sources.open(path("a"), Event::Written, record.handler());
        const int descriptor = (*source)->descriptor();
        QVERIFY(::fcntl(descriptor, F_GETFD) >= 0);
        (*source)->cancel();
        (*source)->cancel();
        QCOMPARE((*source)->descriptor(), -1);
        QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
        writeTestFile(path("a"), "x");
        QTest::qWait(50);
        QCOMPARE(record.count, 0);
    }
    void missingFile_isAnError()
    {
        const auto source = m_sources.open(path("none"), Event::Written, [](Events) {});
        QCOMPARE(source.error().message, QStringLiteral("No such file or directory"));
        QVERIFY(!m_sources.open(QStringLiteral("/a") + QChar(u'\0'), Event::Written, [](Events) {}));
    }
    void cancelDuringEvents_neverCallsAfter()
    {
        std::atomic<bool> isWriting = true;
        std::thread writer([&] {
            QFile file(path("a"));
            while (isWriting && file.open(QIODevice::Append)) {
                file.write("x");
                file.close();
            }
        });
        std::atomic<bool> wasCalledAfter = false;
        for (int round = 0; round < 300; ++round) {
            std::atomic<bool> isOver = false;
            auto source =
                m_sources.open(path("a"), Event::Written, [&](Events) { wasCalledAfter = wasCalledAfter || isOver; });
            QThread::usleep(100);
            (*source)->cancel();
            isOver = true;
            QThread::usleep(50);
        }
        isWriting = false;
        writer.join();
        QVERIFY(!wasCalledAfter);
    }

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    InotifyFileEventSources m_sources;
};

QTEST_GUILESS_MAIN(FileEventsTest)
#include "FileEventsTest.moc"
