// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/RunLoop.h>
#include <platform/Updater.h>

#include <QByteArray>
#include <QVersionNumber>

#include <functional>
#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace flitmark {

class UserDefaults;

/// Asks an update feed on the network, by HTTPS. The network is touched by a check alone.
class FeedUpdater final : public Updater
{
    Q_OBJECT

public:
    struct Feed
    {
        QUrl address;
        /// The version of this program.
        QString ownVersion;
        /// Where a check may go, redirections included.
        std::function<bool(const QUrl& url)> isAllowed = [](const QUrl& url) {
            return url.scheme() == QLatin1String("https");
        };
        /// A larger answer is refused.
        qint64 longestAnswer = qint64(1024) * 1024;
        /// A slower one too.
        RunLoop::Duration patience = std::chrono::seconds(15);
    };

    /// The services must outlive it.
    FeedUpdater(Feed feed, UserDefaults& userDefaults, RunLoop& runLoop);
    ~FeedUpdater() override;
    Q_DISABLE_COPY_MOVE(FeedUpdater)

    void startUpdater() override;
    /// Off unless the user has switched it on.
    bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool checks) override;
    void checkForUpdates() override;
    State state() const override { return m_state; }

private:
    enum class Asker { User, Clock };

    void scheduleCheck();
    void check(Asker asker);
    void receive(QNetworkReply& reply);
    void fail(const QString& reason);
    void finish(QNetworkReply& reply);
    void judge(const QByteArray& xml);
    void setState(const State& state);

    Feed m_feed;
    UserDefaults& m_userDefaults;
    RunLoop& m_runLoop;
    State m_state;
    Asker m_asker = Asker::User;
    QByteArray m_answer;
    QString m_problem;
    bool m_isStarted = false;
    std::unique_ptr<RunLoop::Timer> m_nextCheck;
    std::unique_ptr<QNetworkAccessManager> m_network;
};

} // namespace flitmark
