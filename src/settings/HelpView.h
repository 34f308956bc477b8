// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpContent.h>
#include <settings/HelpServices.h>

#include <QWidget>

class QLayout;

namespace flitmark {

class HelpPage;
class ScrollArea;

/// The help: nine sections, chosen in a sidebar. It opens at the first one; a section's content is made when it is
/// chosen. It leaves its ground to the window or sheet it stands in.
class HelpView final : public QWidget
{
    Q_OBJECT

public:
    /// The ground's corners, of which the sidebar fills the lower left one.
    enum class Corners { Square, Round };

    explicit HelpView(const HelpServices& services, Corners corners, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(HelpView)

    /// Puts the keyboard into the sidebar.
    void takeKeyboard();

Q_SIGNALS:
    /// The user wants the help away.
    void doneAsked();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLayout* makeHeader() const;
    QWidget* makeSidebar(Corners corners);
    void select(HelpSection section);

    HelpServices m_services;
    ScrollArea* m_content;
    QWidget* m_firstRow = nullptr;
    HelpPage* m_page = nullptr;
};

} // namespace flitmark
