// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Appcast.h>
#include <platform/UserDefaults.h>
#include <platform/linux/FeedUpdater.h>

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTextDocumentFragment>

#include <algorithm>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

constexpr RunLoop::Duration calmAfterStart = 20s;
constexpr RunLoop::Duration checkPeriod = 24h;
constexpr int mostRedirections = 5;
constexpr qsizetype longestNotes = 20'000;

QString automaticKey()
{
    return QStringLiteral("FlitmarkAutomaticUpdateChecks");
}

QString lastCheckKey()
{
    return QStringLiteral("FlitmarkLastUpdateCheck");
}

QString toldVersionKey()
{
    return QStringLiteral("FlitmarkUpdateTold");
}

QString plainText(const QString& notes)
{
    const QString plain = Qt::mightBeRichText(notes) ? QTextDocumentFragment::fromHtml(notes).toPlainText() : notes;
    return plain.left(longestNotes).trimmed();
}

} // namespace

FeedUpdater::FeedUpdater(Feed feed, UserDefaults& userDefaults, RunLoop& runLoop)
    : m_feed(std::move(feed))
    , m_userDefaults(userDefaults)
    , m_runLoop(runLoop)
{
}

FeedUpdater::~FeedUpdater() = default;

void FeedUpdater::startUpdater()
{
    m_isStarted = true;
    scheduleCheck();
}

bool FeedUpdater::automaticallyChecksForUpdates() const
{
    return m_userDefaults.boolean(automaticKey(), false);
}

void FeedUpdater::setAutomaticallyChecksForUpdates(bool checks)
{
    m_userDefaults.setBoolean(automaticKey(), checks);
    scheduleCheck();
}

void FeedUpdater::scheduleCheck()
{
    m_nextCheck.reset();
    if (!m_isStarted || !automaticallyChecksForUpdates()) {
        return;
    }
    const QDateTime last = QDateTime::fromString(m_userDefaults.text(lastCheckKey()), Qt::ISODate);
    const RunLoop::Duration since(last.isValid() ? last.msecsTo(m_runLoop.now()) : checkPeriod.count());
    // A check in the future was made by another clock.
    const RunLoop::Duration wait = since < 0ms ? 0ms : checkPeriod - since;
    m_nextCheck = m_runLoop.every(std::max(wait, calmAfterStart), [this] { check(Asker::Clock); });
}

void FeedUpdater::checkForUpdates()
{
    check(Asker::User);
    Q_EMIT attentionAsked();
}

void FeedUpdater::check(Asker asker)
{
    if (m_network) {
        m_asker = asker == Asker::User ? asker : m_asker;
        return;
    }
    m_asker = asker;
    m_answer.clear();
    m_problem.clear();
    m_userDefaults.setText(lastCheckKey(), m_runLoop.now().toUTC().toString(Qt::ISODate));
    scheduleCheck();
    if (!m_feed.isAllowed(m_feed.address)) {
        setState({.status = Status::Failed, .reason = tr("The address of the update feed is not a safe one.")});
        return;
    }
    setState({.status = Status::Checking});

    m_network = std::make_unique<QNetworkAccessManager>();
    QNetworkRequest request(m_feed.address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Flitmark/%1").arg(m_feed.ownVersion));
    receive(*m_network->get(request));
}

void FeedUpdater::receive(QNetworkReply& reply)
{
    const auto refuse = [this, &reply](const QString& problem) {
        m_problem = problem;
        reply.abort();
    };
    connect(&reply, &QNetworkReply::redirected, this, [this, &reply, refuse, count = 0](const QUrl& url) mutable {
        if (++count > mostRedirections) {
            refuse(tr("The update feed leads in circles."));
        } else if (m_feed.isAllowed(url)) {
            Q_EMIT reply.redirectAllowed();
        } else {
            refuse(tr("The update feed leads to an unsafe address."));
        }
    });
    connect(&reply, &QNetworkReply::readyRead, this, [this, &reply, refuse] {
        m_answer += reply.read(m_feed.longestAnswer + 1 - m_answer.size());
        if (m_answer.size() > m_feed.longestAnswer) {
            refuse(tr("The update feed is too long."));
        }
    });
    connect(&reply, &QNetworkReply::finished, this, [this, &reply] { finish(reply); });
    m_runLoop.after(m_feed.patience, &reply, [refuse] { refuse(tr("The update feed does not answer.")); });
}

void FeedUpdater::finish(QNetworkReply& reply)
{
    // Both end when this call has returned to them.
    reply.deleteLater();
    m_network.release()->deleteLater();
    if (!m_problem.isEmpty()) {
        fail(m_problem);
    } else if (reply.error() != QNetworkReply::NoError) {
        fail(tr("The update feed can't be reached: %1").arg(reply.errorString()));
    } else if (const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); status != 200) {
        fail(tr("The update feed can't be reached: the server answered %1.").arg(status));
    } else {
        judge(m_answer);
    }
    m_answer.clear();
}

void FeedUpdater::judge(const QByteArray& xml)
{
    const auto items = parseAppcast(xml);
    if (!items) {
        fail(items.error());
        return;
    }
    const std::optional<AppcastItem> newer = newerThan(versionOf(m_feed.ownVersion), *items);
    if (!newer) {
        setState({.status = Status::UpToDate});
        return;
    }
    setState(
        {.status = Status::Available, .version = newer->name, .notes = plainText(newer->notes), .page = newer->page});
    // One who did not ask is told of a version once.
    if (m_asker == Asker::Clock && m_userDefaults.text(toldVersionKey()) != newer->name) {
        Q_EMIT attentionAsked();
    }
    m_userDefaults.setText(toldVersionKey(), newer->name);
}

void FeedUpdater::fail(const QString& reason)
{
    setState({.status = Status::Failed, .reason = reason});
}

void FeedUpdater::setState(const State& state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

} // namespace flitmark
