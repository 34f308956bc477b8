// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QStackedLayout;

namespace flitmark {

class BrowseList;
class BrowseModel;
class BrowseTrail;
class Label;

/// The Browse tab of the note panel: the trail, the entries of the folder, and how many they are.
class BrowseView final : public QWidget
{
    Q_OBJECT

public:
    /// `model` must outlive it.
    explicit BrowseView(BrowseModel& model);
    Q_DISABLE_COPY_MOVE(BrowseView)

    /// To be called when the tab is selected: lists the folder again.
    void appeared();
    void takeKeyboard();
    /// Keeps the last `width` points at the right of the footer free of text; 0 keeps nothing free.
    void setCornerReserve(int width);

private:
    QWidget* makeHead();
    QWidget* makeEmptyView();
    void showItems();

    BrowseModel& m_model;
    BrowseTrail* m_trail;
    QStackedLayout* m_body;
    BrowseList* m_list;
    Label* m_summary;
};

} // namespace flitmark
