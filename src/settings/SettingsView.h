// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/SchemeFollower.h>

#include <QWidget>

class QStackedLayout;

namespace flitmark {

class Dialogs;
class KeyMonitor;
class ScrollArea;
class SettingsModel;
class SettingsSection;
class TabTiles;

/// The content of the settings window: the header, seven tabs and the section of the selected one. A section is made
/// when its tab is selected for the first time.
class SettingsView final : public QWidget
{
    Q_OBJECT

public:
    /// `palette` colours it, in the desktop's scheme. The others must outlive it.
    SettingsView(SettingsModel& model, Dialogs& dialogs, const KeyMonitor& keyMonitor, ColorPalette palette,
                 QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(SettingsView)

    /// More than the usual where texts are larger: there is no way to scroll sideways.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The settings are saved; the window may go.
    void done();
    /// The user wants the window away without saving.
    void closeAsked();
    void helpAsked();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* makeHeader() const;
    QLayout* makeTabs();
    SettingsSection* makeSection();
    void showSelectedTab();
    void finish();

    SettingsModel& m_model;
    Dialogs& m_dialogs;
    const KeyMonitor& m_keyMonitor;
    SchemeFollower m_scheme;
    TabTiles* m_tabs = nullptr;
    QStackedLayout* m_pages = nullptr;
    /// One per tab; null until it is made.
    QList<ScrollArea*> m_sections;
    bool m_isLoaded = false;
};

} // namespace flitmark
