// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <app/AppDelegate.h>

#include <QApplication>

#include <memory>

namespace flitmark {

/// The application object: the toolkit, the delegate, and the end of all services.
class FlitmarkApp final
{
public:
    FlitmarkApp(int& argc, char** argv);
    ~FlitmarkApp();
    Q_DISABLE_COPY_MOVE(FlitmarkApp)

    /// Runs until the program is told to quit. Returns the exit status.
    int run();

private:
    QApplication m_application;
    std::unique_ptr<AppDelegate> m_appDelegate;
};

} // namespace flitmark
