// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>

#include <QWidget>

class QHBoxLayout;

namespace flitmark {

class Badge;
class IconButton;
class Label;
class QuickTagEditor;
class TextField;

/// A configured quick tag: its icon, its text and what can be done with it, or fields for both while it is edited. To
/// screen readers it is a group named by the tag's text.
class QuickTagRow final : public QWidget
{
    Q_OBJECT

public:
    /// The editor must outlive it.
    QuickTagRow(QuickTagEditor& editor, const QuickTag& tag);
    Q_DISABLE_COPY_MOVE(QuickTagRow)

    QUuid id() const { return m_tag.id; }
    void showTag(const QuickTag& tag);
    void setEditing(bool isEdited);
    /// Gives the keyboard to the button that deletes the tag.
    void focusDelete();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeDisplay();
    QWidget* makeFields();
    IconButton* makeButton(const QString& name, const QString& symbol, int points = 20);
    bool isEditing() const;
    void describe();

    QuickTagEditor& m_editor;
    QuickTag m_tag;
    QHBoxLayout* m_layout;
    QWidget* m_display = nullptr;
    Label* m_text = nullptr;
    Badge* m_badge = nullptr;
    IconButton* m_star = nullptr;
    IconButton* m_edit = nullptr;
    IconButton* m_delete = nullptr;
    /// Made with the first edit.
    QWidget* m_fields = nullptr;
    TextField* m_iconField = nullptr;
    TextField* m_textField = nullptr;
};

} // namespace flitmark
