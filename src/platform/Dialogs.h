// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

class QWidget;

namespace flitmark {

/// The desktop's own dialogs.
class Dialogs
{
public:
    /// Is given the absolute path of the folder that was chosen.
    using FolderChosen = std::function<void(const QString& path)>;

    Dialogs() = default;
    virtual ~Dialogs() = default;
    Q_DISABLE_COPY_MOVE(Dialogs)

    static Dialogs& shared();

    /// Lets the user choose one folder, in a dialog titled `message` over the window of `parent`, and returns at once.
    /// `onChosen` is called on the main thread when the user confirms; it is not called when the user cancels or
    /// `parent` goes before.
    virtual void chooseFolder(QWidget& parent, const QString& message, FolderChosen onChosen) = 0;
};

} // namespace flitmark
