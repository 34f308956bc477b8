// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/SettingsModel.h>
#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QVBoxLayout>
#include <QWidget>

namespace flitmark {

class Label;
class SegmentedTabs;
class Switch;
class SwitchRow;
class TextField;

/// What one tab of the settings shows: things below each other, with the window's margins around them. What is bound to
/// a field of the working copy shows it and changes it.
class SettingsSection : public QWidget
{
    Q_OBJECT

public:
    /// The margin at both sides of all that the window holds, in points.
    static constexpr int sideMargin = 24;

    /// The model must outlive it.
    explicit SettingsSection(SettingsModel& model);
    Q_DISABLE_COPY_MOVE(SettingsSection)

protected:
    /// One setting of a choice: the value that is stored, and the text for the user.
    struct Choice
    {
        QString value;
        QString text;
    };

    SettingsModel& model() const { return m_model; }

    /// Adds `widget` or `row`, `space` below what is there.
    void add(QWidget* widget, int space);
    void add(QLayout* row, int space);
    /// Adds a text that wraps.
    Label* addText(const QString& text, TextRole role, int space, ColorToken color = &Theme::text);
    Label* addHeading(const QString& text, int space = 0);
    /// The name of the setting below it.
    Label* addLabel(const QString& text, int space = 16);
    /// A remark on the setting above it.
    Label* addCaption(const QString& text, int space = 8);
    /// A remark that something is wrong with the setting above it, with a sign before it; hidden while it has no text.
    Label* addWarning(int space = 8);
    /// Shows `text` in a label made by `addWarning`.
    static void showWarning(Label& label, const QString& text);
    /// Adds a card with `rows` divided by lines.
    void addCard(const QList<QWidget*>& rows, int space);
    /// Adds a row of choices bound to `field`. A value that is none of them leaves all unchosen.
    SegmentedTabs* addChoices(const QList<Choice>& choices, QString SettingsState::*field);
    /// Keeps what was added at the top.
    void finish();

    /// A field of any length named `name`.
    static TextField* makeField(const QString& name, const QString& placeholder);
    /// Sets a field's text where it differs, so that typing never moves the caret.
    static void setFieldText(TextField& field, const QString& text);

    void bind(TextField* field, QString SettingsState::*text);
    void bind(SwitchRow* row, bool SettingsState::*value);
    /// Calls `show` now and with every change of the model.
    template<typename Show>
    void follow(Show show)
    {
        show();
        connect(&m_model, &SettingsModel::changed, this, show);
    }

private:
    SettingsModel& m_model;
    QVBoxLayout* m_column;
};

} // namespace flitmark
