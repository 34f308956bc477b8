// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QtGlobal>

#include <functional>

class QWidget;

namespace flitmark {

class KeyMonitor;

/// The desktop's own dialogs.
class Dialogs
{
public:
    /// Is given the absolute path of the folder that was chosen.
    using FolderChosen = std::function<void(const QString& path)>;

    struct Question
    {
        QString message;
        QString details;
        /// Of which the details speak: a line says which key it is on this computer, or why there is none. None for
        /// null.
        const KeyMonitor* hotkey = nullptr;
        /// What can be answered: first what Return means, last what closing the question means.
        QStringList buttons;
    };
    /// Is given the index of the button.
    using Answered = std::function<void(qsizetype button)>;

    Dialogs() = default;
    virtual ~Dialogs() = default;
    Q_DISABLE_COPY_MOVE(Dialogs)

    /// Lets the user choose one folder, in a dialog titled `message` over the window of `parent`, and returns at once.
    /// `onChosen` is called on the main thread when the user confirms; it is not called when the user cancels or
    /// `parent` goes before.
    virtual void chooseFolder(QWidget& parent, const QString& message, FolderChosen onChosen) = 0;

    /// Asks in a window of its own, titled by the message, that keeps the user from the program's other windows until
    /// it is answered; returns at once. `onAnswered` is called on the main thread, once, unless the program ends first.
    virtual void ask(const Question& question, Answered onAnswered) = 0;

    /// Asks likewise, for what the user does in the window of `parent`: that window alone waits for the answer. It is
    /// not put aside; where `parent` goes before, `onAnswered` is not called.
    virtual void askOver(QWidget& parent, const Question& question, Answered onAnswered) = 0;

    /// Takes the questions off the screen, those to come as well, or brings them back: while the user writes, none of
    /// them may have the keyboard. They stay unanswered meanwhile.
    virtual void setQuestionsAside(bool areAside) = 0;
};

} // namespace flitmark
