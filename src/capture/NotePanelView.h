// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QStackedLayout;

namespace flitmark {

class BrowseModel;
class BrowseView;
class ConfigManager;
class DailyTabModel;
class DailyTabView;
class NewTabView;
class NotePanelModel;
class SegmentedTabs;

/// What the panel and its tabs show.
struct NotePanelModels
{
    NotePanelModel& panel;
    BrowseModel& browse;
    DailyTabModel& daily;
};

/// The content of the note panel: the header with its three tabs, and the view of the selected one.
class NotePanelView final : public QWidget
{
    Q_OBJECT

public:
    /// How far controls reach up from the panel's lower edge, in points: the part a button over the corner can cover.
    static constexpr int footerReach = 60;

    /// The models and the configuration must outlive it.
    NotePanelView(const NotePanelModels& models, ConfigManager& configManager, QWidget* parent);
    Q_DISABLE_COPY_MOVE(NotePanelView)

    /// Puts the keyboard where the selected tab wants it.
    void takeKeyboard();
    /// Keeps the last `width` points at the right of the footer free of controls; 0 keeps nothing free.
    void setCornerReserve(int width);

Q_SIGNALS:
    /// The user wants the panel away.
    void closeAsked();
    void settingsAsked();
    /// The button's menu is wanted.
    void menuAsked();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QWidget* makeHeader();
    void askForContextMenu();
    void showSelectedTab();

    NotePanelModel& m_model;
    SegmentedTabs* m_tabs;
    QStackedLayout* m_pages;
    NewTabView* m_newTab;
    BrowseView* m_browse;
    DailyTabView* m_daily;
};

} // namespace flitmark
