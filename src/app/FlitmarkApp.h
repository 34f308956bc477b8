// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>
#include <app/PlatformChoice.h>

#include <QApplication>

#include <memory>

class QSessionManager;

namespace flitmark {

class RunningCopy;
struct AppServices;

/// The application object: the toolkit, the delegate, what reaches the program from outside, and the end of all
/// services.
class FlitmarkApp final : public QObject
{
    Q_OBJECT

public:
    /// `runningCopy` is this process's claim and must outlive it.
    FlitmarkApp(int& argc, char** argv, RunningCopy& runningCopy);
    ~FlitmarkApp() override;
    Q_DISABLE_COPY_MOVE(FlitmarkApp)

    /// Runs until the program is told to quit. Returns the exit status.
    int run();

private:
    class Application;

    void followSession();
    void followRequests();
    void joinBus();
    void followScheme();

    RunningCopy& m_runningCopy;
    std::unique_ptr<Application> m_application;
    std::unique_ptr<AppServices> m_services;
    std::unique_ptr<AppDelegate> m_appDelegate;
};

} // namespace flitmark
