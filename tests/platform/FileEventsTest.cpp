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

constexpr Events everything = Event::Written | Event::Renamed;

/// Collects events from the background thread.
struct Record
{
    FileEventSource::Handler handler()
    {
        return [this](Events events) {
            all |= int(events);
            ++count;
        };
    }
    std::atomic<int> all = 0;
    std::atomic<int> count = 0;
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
    void everyEvent_reachesWhoAskedForIt()
    {
        const std::tuple<const char*, std::function<bool(QFile&)>, Events> rows[] = {
            {"append", [](QFile& a) { return a.open(QFile::Append) && a.write("x"); }, Event::Written},
            {"overwrite", [](QFile& a) { return a.open(QFile::ReadWrite) && a.write("new"); }, Event::Written},
            {"cut", [](QFile& a) { return a.resize(2); }, Event::Written},
            {"permissions", [](QFile& a) { return a.setPermissions(QFile::ReadOwner | QFile::WriteOwner); }, {}},
            {"read", [](QFile& a) { return a.open(QFile::ReadOnly) && !a.readAll().isEmpty(); }, {}},
            {"rename", [](QFile& a) { return a.rename(a.fileName() + u'b'); }, Event::Renamed},
            {"delete", [](QFile& a) { return a.remove(); }, {}},
        };
        for (const auto& [name, action, expected] : rows) {
            writeTestFile(path("a"), "old text");
            Record record;
            Record other;
            Record marker;
            const auto source = m_sources.open(path("a"), everything, record.handler());
            // A second watch hears only what it asked for.
            const auto renames = m_sources.open(path("a"), Event::Renamed, other.handler());
            // Events come in order: once this file's is there, those of the other have been.
            writeTestFile(path("marker"), "");
            const auto markerSource = m_sources.open(path("marker"), Event::Written, marker.handler());
            QFile file(path("a"));
            QVERIFY2(action(file), name);
            file.close();
            writeTestFile(path("marker"), "x");
            QTRY_VERIFY(marker.count > 0);
            QVERIFY2(record.all == int(expected) && other.all == int(expected & Event::Renamed), name);
        }
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
        QVERIFY(!m_sources.open(path("none"), Event::Written, [](Events) {}));
        QVERIFY(!m_sources.open(QStringLiteral("/a") + QChar(u'\0'), Event::Written, [](Events) {}));
    }
    void cancelDuringEvents_closesAndNeverCallsAfter()
    {
        std::jthread writer([&](const std::stop_token& stopping) {
            QFile file(path("a"));
            while (!stopping.stop_requested() && file.open(QIODevice::Append)) {
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
        writer.request_stop();
        writer.join();
        QVERIFY(!wasCalledAfter);
        const auto source = m_sources.open(path("a"), Event::Written, [](Events) {});
        QVERIFY(::fcntl((*source)->descriptor(), F_GETFD) >= 0);
        // The volume must not be kept busy.
        for (const QFileInfo& open : QDir("/proc/self/fd").entryInfoList()) {
            QVERIFY2(!open.symLinkTarget().startsWith(m_folder->path()), qPrintable(open.symLinkTarget()));
        }
        (*source)->cancel();
        (*source)->cancel();
        QCOMPARE((*source)->descriptor(), -1);
    }

private:
    QString path(const char* name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    InotifyFileEventSources m_sources;
};

QTEST_GUILESS_MAIN(FileEventsTest)
#include "FileEventsTest.moc"
