// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QLabel>

#include <limits>
#include <memory>

class QTextLayout;

namespace flitmark {

/// A text of one role, in rows of that role's fixed height: as it is, wrapped (`setWordWrap`), or cut with an ellipsis,
/// the text being the tooltip then. The text is plain; line breaks in it are kept. Emoji come in colour.
class Label final : public QLabel
{
    Q_OBJECT

public:
    explicit Label(const QString& text = {}, TextRole role = TextRole::Body, QWidget* parent = nullptr);
    ~Label() override;
    Q_DISABLE_COPY_MOVE(Label)

    void setRole(TextRole role);
    /// `Theme::text` unless set; captions and overlines start with `Theme::text2`.
    void setColor(ColorToken color);
    /// Cuts a text that is too wide: at the right for names, in the middle for paths. `Qt::ElideNone` cuts nothing.
    void setElideMode(Qt::TextElideMode mode);
    /// Cuts a wrapped text that takes more rows.
    void setMaximumRows(int rows);
    /// Draws a line through the text.
    void setStruck(bool isStruck);
    /// 0 to 1: for texts that fade.
    void setOpacity(double opacity);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Layout;
    struct Measures;
    const Layout& layOut(double width) const;
    bool isCut() const;
    Measures& measures() const;
    QFont roleFont() const;
    QString shownText(double width) const;

    TextRole m_role;
    ColorToken m_color = &Theme::text;
    Qt::TextElideMode m_elideMode = Qt::ElideNone;
    int m_maximumRows = std::numeric_limits<int>::max();
    bool m_isStruck = false;
    double m_opacity = 1;
    mutable std::unique_ptr<Layout> m_layout;
    mutable std::unique_ptr<Measures> m_measures;
};

} // namespace flitmark
