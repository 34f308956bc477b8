// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Dialogs.h>
#include <platform/KeyMonitor.h>
#include <platform/Screens.h>
#include <platform/Updater.h>
#include <platform/UserDefaults.h>
#include <platform/WindowManager.h>

#include <QHash>
#include <QVariant>
#include <QWidget>
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

/// A desktop that leaves every window as it is.
class FakeWindowManager final : public WindowManager
{
public:
    bool composites = true;

    bool isCompositing() const override { return composites; }
    void makeCompanion(QWindow&) override {}
    void keepAbove(QWindow&, QWindow&) override {}
    void setInputArea(QWindow&, const QRect&) override {}
    void answerActivation(QWindow&, const QString&) override {}
    WindowId activeWindow() const override { return 0; }
    void activate(WindowId) override {}
};

/// Answers every question for a folder with `answer`; an empty one is a cancelled dialog. Other questions get `button`.
class FakeDialogs final : public Dialogs
{
public:
    QString answer;
    qsizetype button = 0;
    QList<Question> questions;

    void chooseFolder(QWidget&, const QString&, FolderChosen onChosen) override
    {
        if (!answer.isEmpty()) {
            onChosen(answer);
        }
    }
    void ask(const Question& question, Answered onAnswered) override
    {
        questions.append(question);
        onAnswered(button);
    }
    /// The answer comes with the next turn, as a user's comes later.
    void askOver(QWidget& parent, const Question& question, Answered onAnswered) override
    {
        questions.append(question);
        QMetaObject::invokeMethod(
            &parent, [onAnswered = std::move(onAnswered), given = button] { onAnswered(given); }, Qt::QueuedConnection);
    }
    void setQuestionsAside(bool) override {}
};

/// A hotkey that is pressed by emitting its signal.
class FakeKeyMonitor final : public KeyMonitor
{
public:
    State current{.status = Status::Working};

    void start() override {}
    State state() const override { return current; }
    void giveTypingTo(WindowId) override {}
};

/// Defaults kept in memory.
class FakeUserDefaults final : public UserDefaults
{
public:
    QHash<QString, QVariant> values;

    bool boolean(const QString& key, bool fallback) const override { return values.value(key, fallback).toBool(); }
    void setBoolean(const QString& key, bool value) override { values.insert(key, value); }
    QString text(const QString& key) const override { return values.value(key).toString(); }
    void setText(const QString& key, const QString& value) override { values.insert(key, value); }
};

/// An updater that never finds anything by itself.
class FakeUpdater final : public Updater
{
public:
    State current;
    bool automatic = true;

    bool automaticallyChecksForUpdates() const override { return automatic; }
    void setAutomaticallyChecksForUpdates(bool value) override { automatic = value; }
    void checkForUpdates() override {}
    State state() const override { return current; }
};

} // namespace flitmark
