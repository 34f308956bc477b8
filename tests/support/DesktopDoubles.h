// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Dialogs.h>
#include <platform/Screens.h>
#include <platform/WindowManager.h>

#include <QWindow>

namespace flitmark {

/// A main screen of any size whose lower left corner is the origin.
class FakeScreens final : public Screens
{
public:
    std::optional<ScreenFrames> frames = ScreenFrames{QRectF(0, 0, 1440, 875), QRectF(0, 0, 1440, 900)};

    std::optional<ScreenFrames> mainScreen() const override { return frames; }

protected:
    double bottomOfMainScreen() const override { return frames ? frames->full.height() : 0; }
};

/// A desktop on which some other program's window has the keyboard.
class FakeWindowManager final : public WindowManager
{
public:
    WindowId active = 0;
    QList<WindowId> activated;

    bool composites = true;

    bool isCompositing() const override { return composites; }
    void makeCompanion(QWindow&) override {}
    void keepAbove(QWindow&, QWindow&) override {}
    void setInputArea(QWindow&, const QRect&) override {}
    WindowId activeWindow() const override { return active; }
    void activate(WindowId window) override { activated.append(window); }
};

/// Answers every question for a folder with `answer`; an empty one is a cancelled dialog.
class FakeDialogs final : public Dialogs
{
public:
    QString answer;
    QStringList messages;

    void chooseFolder(QWidget&, const QString& message, FolderChosen onChosen) override
    {
        messages.append(message);
        if (!answer.isEmpty()) {
            onChosen(answer);
        }
    }
};

} // namespace flitmark
