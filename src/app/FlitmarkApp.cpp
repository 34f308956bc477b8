// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/AppServices.h>
#include <app/FlitmarkApp.h>
#include <app/PlatformChoice.h>
#include <app/Translations.h>
#include <platform/RunLoop.h>
#include <platform/linux/ApplicationBus.h>
#include <platform/linux/EndSignals.h>
#include <platform/linux/PortalColorScheme.h>
#include <platform/linux/RunningCopy.h>
#include <ui/Theme.h>

#include <QPalette>
#include <QSessionManager>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

/// By then the button is on screen.
constexpr RunLoop::Duration busDelay = 50ms;

/// Gives every window the colours to derive its own from. Where the toolkit knows the desktop's, those stay.
void wearScheme(PortalColorScheme::Preference wish)
{
    QGuiApplication::setPalette(QPalette());
    const Scheme known = desktopScheme();
    if (wish == PortalColorScheme::Preference::Dark && known == Scheme::Light) {
        QGuiApplication::setPalette(QPalette(QColor(0x32, 0x32, 0x34), QColor(0x20, 0x20, 0x22)));
    } else if (wish == PortalColorScheme::Preference::Light && known == Scheme::Dark) {
        QGuiApplication::setPalette(QPalette(QColor(0xef, 0xef, 0xef), QColor(0xf6, 0xf6, 0xf6)));
    }
}

} // namespace

/// Ends at once when asked to: everything is on disk already, so no window is asked whether it may close.
class FlitmarkApp::Application final : public QApplication
{
public:
    using QApplication::QApplication;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::Quit) {
            exit(0);
            return true;
        }
        return QApplication::event(event);
    }
};

FlitmarkApp::FlitmarkApp(int& argc, char** argv, RunningCopy& runningCopy)
    : m_runningCopy(runningCopy)
{
    {
        const PlatformChoice platform(argc, argv);
        m_application = std::make_unique<Application>(argc, argv);
    }
    // What we do not draw ourselves, such as the menus of text fields, looks alike everywhere.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.flitmark.Flitmark"));
    QCoreApplication::setApplicationName(QStringLiteral("flitmark"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FLITMARK_VERSION));
    // Windows come and go; the program stays until it is told to quit.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installTranslations();
    followSession();
    m_services = std::make_unique<AppServices>();
    m_appDelegate = std::make_unique<AppDelegate>(m_services->references());
}

FlitmarkApp::~FlitmarkApp() = default;

void FlitmarkApp::followSession()
{
    const auto* signals = new EndSignals(m_application.get());
    connect(signals, &EndSignals::endAsked, m_application.get(), [] { QCoreApplication::exit(0); });
    // The login item starts the program, so the session need not.
    const auto doNotRestart = [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); };
    connect(m_application.get(), &QGuiApplication::commitDataRequest, this, doNotRestart, Qt::DirectConnection);
    connect(m_application.get(), &QGuiApplication::saveStateRequest, this, doNotRestart, Qt::DirectConnection);
}

void FlitmarkApp::followRequests()
{
    if (m_runningCopy.claim() == RunningCopy::Claim::Apart) {
        return;
    }
    connect(&m_runningCopy, &RunningCopy::activationAsked, m_appDelegate.get(), &AppDelegate::activate);
    m_runningCopy.listen();
    m_services->runLoop->after(busDelay, m_appDelegate.get(), [this] { joinBus(); });
}

void FlitmarkApp::joinBus()
{
    auto* bus = new ApplicationBus(m_application.get());
    connect(bus, &ApplicationBus::activationAsked, m_appDelegate.get(), &AppDelegate::activate);
    connect(bus, &ApplicationBus::actionAsked, m_appDelegate.get(), &AppDelegate::perform);
    connect(bus, &ApplicationBus::nameTaken, m_application.get(), [] { QCoreApplication::exit(0); });
    bus->start();
}

void FlitmarkApp::followScheme()
{
    auto* scheme = new PortalColorScheme(m_application.get());
    connect(scheme, &PortalColorScheme::told, m_application.get(), wearScheme);
    m_services->runLoop->after(busDelay, scheme, [scheme] { scheme->start(); });
}

int FlitmarkApp::run()
{
    m_appDelegate->applicationDidFinishLaunching();
    followRequests();
    followScheme();
    return QApplication::exec();
}

} // namespace flitmark
