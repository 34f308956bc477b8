// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Updater.h>
#include <platform/linux/Desktop.h>
#ifdef FLITMARK_UPDATE_FEED
#include <platform/UserDefaults.h>
#include <platform/linux/FeedUpdater.h>
#endif

namespace flitmark {

#ifdef FLITMARK_UPDATE_FEED

std::unique_ptr<Updater> makeUpdater(UserDefaults& userDefaults, RunLoop& runLoop)
{
    FeedUpdater::Feed feed;
    feed.address = QUrl(QStringLiteral(FLITMARK_UPDATE_FEED));
    feed.ownVersion = QStringLiteral(FLITMARK_VERSION);
    return std::make_unique<FeedUpdater>(feed, userDefaults, runLoop);
}

#else

namespace {

/// The updater of a program that was built without an address to ask.
class NoUpdater final : public Updater
{
public:
    bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override {}
    void checkForUpdates() override { Q_EMIT attentionAsked(); }
    State state() const override
    {
        return {.status = Status::NotOffered, .reason = Updater::tr("Updates come with your system's packages.")};
    }
};

} // namespace

std::unique_ptr<Updater> makeUpdater(UserDefaults& /*userDefaults*/, RunLoop& /*runLoop*/)
{
    return std::make_unique<NoUpdater>();
}

#endif

} // namespace flitmark
