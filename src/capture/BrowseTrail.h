// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>

#include <vector>

class QHBoxLayout;

namespace flitmark {

class BrowseModel;
class Button;

/// The way from the vault to the listed folder, one button for each folder. A way that is too long shows its end.
class BrowseTrail final : public QScrollArea
{
    Q_OBJECT

public:
    /// `browse` must outlive it.
    explicit BrowseTrail(BrowseModel& browse);
    Q_DISABLE_COPY_MOVE(BrowseTrail)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Gives the keyboard to the button of the listed folder.
    void takeKeyboard();

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    /// A folder on the way and the arrow before it.
    struct Step
    {
        QWidget* arrow;
        Button* button;
    };

    void showPath();
    Step makeStep(qsizetype index);
    static void label(Button& button, const QString& name);

    BrowseModel& m_browse;
    QHBoxLayout* m_row;
    Button* m_root;
    std::vector<Step> m_steps;
};

} // namespace flitmark
