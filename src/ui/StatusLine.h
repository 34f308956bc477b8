// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Label.h>
#include <ui/Motion.h>

namespace flitmark {

/// A short message that fades in and out. Screen readers read it out, and find it for as long as it can be seen.
class StatusLine final : public QWidget
{
    Q_OBJECT

public:
    StatusLine();
    Q_DISABLE_COPY_MOVE(StatusLine)

    /// Shows `message` in place of what was shown.
    void show(const QString& message, ColorToken color);
    /// Lets the message fade away.
    void fade();

private:
    void follow();

    Label* m_label;
    Glide m_visibility;
    bool m_isFading = false;
};

} // namespace flitmark
