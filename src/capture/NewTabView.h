// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>

#include <QWidget>

#include <vector>

class QHBoxLayout;

namespace flitmark {

class ChipButton;
class ConfigManager;
class FlowLayout;
class Label;
class NoteEditor;
class NotePanelModel;
class StatusLine;

/// The New tab of the note panel: quick tags, the editor, and a footer with the word count, the status line and the
/// buttons.
class NewTabView final : public QWidget
{
    Q_OBJECT

public:
    NewTabView(NotePanelModel& model, ConfigManager& configManager);
    Q_DISABLE_COPY_MOVE(NewTabView)

    void takeKeyboard();
    /// Keeps the last `width` points at the right of the footer free of controls; 0 keeps nothing free.
    void setCornerReserve(int width);

private:
    struct Chip
    {
        QuickTag tag;
        ChipButton* button;
    };

    QWidget* makeEditorCard();
    QWidget* makeFooter();
    void bind();
    void rebuildChips();
    void showSelection();
    void showStatus();

    NotePanelModel& m_model;
    ConfigManager& m_configManager;
    QWidget* m_tagRow;
    FlowLayout* m_tagLayout;
    std::vector<Chip> m_chips;
    NoteEditor* m_editor;
    QHBoxLayout* m_footerLayout = nullptr;
    Label* m_wordCount;
    StatusLine* m_status;
};

} // namespace flitmark
