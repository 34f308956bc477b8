// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/SharedServices.h>
#include <platform/Updater.h>
#ifdef FLITMARK_UPDATE_FEED
#include <platform/UserDefaults.h>
#include <platform/linux/FeedUpdater.h>
#endif

namespace flitmark {

#ifdef FLITMARK_UPDATE_FEED

Updater& Updater::shared()
{
    return SharedServices::get<Updater>([] {
        FeedUpdater::Feed feed;
        feed.address = QUrl(QStringLiteral(FLITMARK_UPDATE_FEED));
        feed.ownVersion = QStringLiteral(FLITMARK_VERSION);
        return std::make_unique<FeedUpdater>(feed, UserDefaults::shared(), RunLoop::shared());
    });
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

Updater& Updater::shared()
{
    return SharedServices::get<Updater>([] { return std::make_unique<NoUpdater>(); });
}

#endif

} // namespace flitmark
