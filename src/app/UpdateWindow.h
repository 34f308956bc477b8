// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/Updater.h>
#include <ui/SchemeFollower.h>

#include <QWidget>

namespace flitmark {

class Button;
class Card;
class Label;
class ScrollArea;
class Workspace;

/// Tells how a check for updates stands, and leads to the download page of a newer version. An ordinary window.
class UpdateWindow final : public QWidget
{
    Q_OBJECT

public:
    /// The services must outlive it.
    UpdateWindow(Updater& updater, Workspace& workspace);
    Q_DISABLE_COPY_MOVE(UpdateWindow)

    /// Whether the window takes the keyboard; one that nobody asked for does not.
    enum class Keyboard { Take, Leave };
    /// Shows the window in the colour of `palette`, in the middle of the main screen, or brings it to the front.
    void showCentered(ColorPalette palette, Keyboard keyboard);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOutNotes();
    QLayout* makeButtons();
    void showState();
    void showNotes(const QString& notes);
    void openPage();

    SchemeFollower m_scheme;
    Updater& m_updater;
    Workspace& m_workspace;
    Label* m_headline;
    Label* m_details;
    Card* m_notesCard;
    ScrollArea* m_notesArea;
    Label* m_notes;
    Button* m_close = nullptr;
    Button* m_open = nullptr;
};

} // namespace flitmark
