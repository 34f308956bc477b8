// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

class QInputMethodEvent;
class QKeyEvent;

namespace flitmark {

/// Installed on the application, it looks after what an input method is still composing in a text field. Escape gives
/// the composition up and Return takes it over, and neither does more. It is taken over as well before any shortcut
/// works, before the field loses the keyboard, and before it is hidden.
class CompositionFilter final : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isRepeated(const QInputMethodEvent& input);
    bool filterKey(const QKeyEvent& key, QEvent& event);
    void takeOver();
    void giveUp();
    /// Ends the composition in the field, with `text` in its place.
    void replaceBy(const QString& text);

    /// The field in which a text is composed; null while none is.
    QPointer<QObject> m_field;
    /// What is composed in it, or was last.
    QString m_composed;
    /// What was composed and is committed, until something else is entered.
    QString m_ended;
    /// The Escape that is pressed now was for an input method that committed its composition by it and handed it on.
    bool m_isEscapeSpent = false;
};

} // namespace flitmark
