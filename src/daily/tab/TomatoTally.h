// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <vector>

namespace flitmark {

class Label;

/// The tomatoes of a task, each a button that takes one away, and the number of those that have none.
class TomatoTally final : public QWidget
{
    Q_OBJECT

public:
    TomatoTally();
    ~TomatoTally() override;
    Q_DISABLE_COPY_MOVE(TomatoTally)

    /// Shows `buttons` tomatoes and `more` after them.
    void setCount(qint64 buttons, const QString& more);
    /// Stands back while the task has nobody's attention.
    void setQuiet(bool isQuiet);
    /// The buttons that are shown, in their order.
    QList<QWidget*> controls() const;

Q_SIGNALS:
    void removeAsked();

private:
    class TomatoButton;

    std::vector<TomatoButton*> m_buttons;
    qint64 m_count = 0;
    Label* m_more;
};

} // namespace flitmark
