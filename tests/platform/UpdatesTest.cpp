// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AppUpdateController.h>
#include <platform/linux/FeedUpdater.h>
#include <support/DesktopDoubles.h>
#include <support/ManualRunLoop.h>

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest/QTest>

using namespace flitmark;
using namespace std::chrono_literals;

namespace {

const QByteArray okay("HTTP/1.1 200 OK\r\n\r\n");

QByteArray feedOf(const QByteArray& items)
{
    return "<?xml version=\"1.0\"?><rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><title>Flitmark</title>"
           "<link>https://example.org/all</link>" +
           items + "</channel></rss>";
}

QByteArray itemOf(const QByteArray& version, const QByteArray& more = {})
{
    return "<item><sparkle:version>" + version + "</sparkle:version>" + more + "</item>";
}

/// Answers every request with the same bytes and counts them.
struct Server final : QTcpServer
{
    explicit Server(const QByteArray& answer)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket* socket = nextPendingConnection();
            ++requests;
            connect(socket, &QTcpSocket::readyRead, socket, [socket, answer] {
                socket->write(answer);
                if (!answer.isEmpty()) {
                    socket->disconnectFromHost();
                }
            });
        });
    }

    int requests = 0;
};

/// An updater of version 1.2 that asks `server` on this computer.
struct Client
{
    explicit Client(const Server& server)
        : feed{.address = QUrl(QStringLiteral("http://127.0.0.1:%1/feed").arg(server.serverPort())),
               .ownVersion = "1.2",
               .isAllowed = [](const QUrl& url) { return url.host() == "127.0.0.1"; }}
    {
    }
    Updater::State settled()
    {
        [&] { QTRY_VERIFY(updater.state().status != Updater::Status::Checking); }();
        return updater.state();
    }

    FeedUpdater::Feed feed;
    ManualRunLoop loop;
    FakeUserDefaults defaults;
    FeedUpdater updater{feed, defaults, loop};
};

} // namespace

class UpdatesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void check_tellsWhatTheServerSays()
    {
        const auto moved = [](const QByteArray& place) {
            return "HTTP/1.1 302 Found\r\nLocation: " + place + "\r\n\r\n";
        };
        const auto feed = [](const QByteArray& items) { return okay + feedOf(items); };
        const QByteArray link("<link>https://example.org/1.3</link>");
        const QByteArray notes("<description><![CDATA[<p>A <b>bold</b> step</p>]]></description>");
        QByteArray bomb("<!DOCTYPE rss [<!ENTITY a0 \"aaaaaaaaaa\">");
        for (char level = '1'; level <= '9'; ++level) {
            const QByteArray below = "&a" + QByteArray(1, static_cast<char>(level - 1)) + ";";
            bomb += "<!ENTITY a" + QByteArray(1, level) + " \"" + below.repeated(10) + "\">";
        }
        for (const auto& [answer, expected] : {
                 std::pair(feed(itemOf("1.1") + itemOf("1.3", link) + itemOf("1.2.9")), "1.3 https://example.org/1.3"),
                 {feed(itemOf("1.9") + itemOf("1.10", notes)), "1.10 https://example.org/all A bold step"},
                 {feed(itemOf("4711", "<sparkle:shortVersionString>1.3</sparkle:shortVersionString>")), "1.3 https"},
                 {feed("<item><enclosure sparkle:version=\"1.3\" sparkle:os=\"linux\"/></item>"), "1.3 https"},
                 {feed(itemOf("1.2.0") + itemOf("1.1")), "up to date"},
                 {feed(itemOf("2", "<sparkle:channel>beta</sparkle:channel>") + itemOf("2.0-rc1") + itemOf("soon") +
                       "<item><enclosure sparkle:version=\"3\" sparkle:os=\"windows\"/></item>"),
                  "up to date"},
                 {feed(itemOf("1.3", "<link>file:///bin/sh</link>")), "1.3 https://example.org/all"},
                 {okay + feedOf(itemOf("1.3")).chopped(30), "makes no sense"},
                 {okay + "<html><body/></html>", "not an update feed"},
                 {okay + bomb + "]><rss><channel><item><description>&a9;</description></item></channel></rss>",
                  "makes no sense"},
                 {okay + QByteArray(2 * 1024 * 1024, ' '), "too long"},
                 {moved("http://localhost/feed"), "unsafe address"},
                 {moved("/feed"), "The update feed"},
                 {"HTTP/1.1 404 Not Found\r\n\r\n", "can't be reached"},
             }) {
            const Server server(answer);
            Client client(server);
            client.updater.checkForUpdates();
            client.updater.checkForUpdates();
            const Updater::State state = client.settled();
            const QStringList newer{state.version, state.page.toString(), state.notes};
            const QString said = state.status == Updater::Status::Available  ? newer.join(u' ')
                                 : state.status == Updater::Status::UpToDate ? "up to date"
                                                                             : state.reason;
            QVERIFY2(said.contains(expected), qPrintable(said));
            QVERIFY(server.requests == 1 || answer == moved("/feed"));
        }
    }
    void check_givesUpAndNeverAsksAnUnsafeAddress()
    {
        const Server silent({});
        Client client(silent);
        client.updater.checkForUpdates();
        QTRY_COMPARE(silent.requests, 1);
        client.loop.advance(15s);
        QVERIFY(client.settled().reason.contains("does not answer"));

        FeedUpdater plain(
            {.address = QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(silent.serverPort())), .ownVersion = "1.2"},
            client.defaults, client.loop);
        plain.checkForUpdates();
        QCOMPARE(plain.state().status, Updater::Status::Failed);
        QCOMPARE(silent.requests, 1);
    }

    void automaticCheck_comesOnceADayAndTellsOfAVersionOnce()
    {
        const Server server(okay + feedOf(itemOf("1.3")));
        Client client(server);
        QSignalSpy attention(&client.updater, &Updater::attentionAsked);
        const AppUpdateController controller(client.updater);
        client.loop.advance(48h);
        QCOMPARE(client.loop.timerCount(), 0);
        client.updater.setAutomaticallyChecksForUpdates(true);
        for (const int day : {1, 2}) {
            client.loop.advance(20s);
            QTRY_COMPARE(server.requests, day);
            QCOMPARE(client.settled().status, Updater::Status::Available);
            QCOMPARE(attention.count(), 1);
            client.loop.advance(24h - 40s);
            QCOMPARE(server.requests, day);
            client.loop.advance(20s);
        }
        // Another start waits for the day to be over.
        FeedUpdater again(client.feed, client.defaults, client.loop);
        again.startUpdater();
        client.loop.advance(19s);
        QCOMPARE(server.requests, 2);
        again.setAutomaticallyChecksForUpdates(false);
        client.updater.setAutomaticallyChecksForUpdates(false);
        QCOMPARE(client.loop.timerCount(), 0);
    }
};

QTEST_MAIN(UpdatesTest)
#include "UpdatesTest.moc"
