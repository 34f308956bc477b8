// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace flitmark {

class Button;

/// Says that no program opens Obsidian's links, and offers to open the file. Hidden until it is shown.
class NoProgramBar final : public QWidget
{
    Q_OBJECT

public:
    NoProgramBar();
    Q_DISABLE_COPY_MOVE(NoProgramBar)

    /// Without a file there is nothing else to open.
    void setHasFile(bool hasFile);

Q_SIGNALS:
    void openFileAsked();

protected:
    void showEvent(QShowEvent* event) override;

private:
    Button* m_open;
};

} // namespace flitmark
