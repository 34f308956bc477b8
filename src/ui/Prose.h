// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QLabel>

namespace flitmark {

/// A plain text to be read: it wraps, keeps its line breaks and spaces, and can be selected and copied by pointer and,
/// once clicked, by keyboard. Its rows have the role's height.
class Prose final : public QLabel
{
    Q_OBJECT

public:
    explicit Prose(const QString& prose = {}, TextRole role = TextRole::Body, ColorToken color = &Theme::text,
                   QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Prose)

    /// The text as it was given.
    const QString& prose() const { return m_prose; }
    void setProse(const QString& prose);
    void selectAll();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;

private:
    void renew();

    QString m_prose;
    TextRole m_role;
    ColorToken m_color;
    /// How far the text stands below the top, so that it is in the middle of its rows.
    int m_shift = 0;
};

} // namespace flitmark
