// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/FlitmarkApp.h>
#include <platform/SharedServices.h>

namespace flitmark {

FlitmarkApp::FlitmarkApp(int& argc, char** argv)
    : m_application(argc, argv)
{
    // What we do not draw ourselves, such as the menus of text fields, looks alike everywhere.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.flitmark.Flitmark"));
    QCoreApplication::setApplicationName(QStringLiteral("flitmark"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FLITMARK_VERSION));
    // Windows come and go; the program stays until it is told to quit.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_appDelegate = std::make_unique<AppDelegate>(AppServices::shared());
}

FlitmarkApp::~FlitmarkApp()
{
    m_appDelegate.reset();
    SharedServices::endAll();
}

int FlitmarkApp::run()
{
    m_appDelegate->applicationDidFinishLaunching();
    return QApplication::exec();
}

} // namespace flitmark
