// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui/Fonts.h>
#include <ui/Theme.h>

#include <QLabel>
#include <QTextLayout>

#include <limits>
#include <memory>

namespace flitmark {

/// A part of a label's text that looks different.
struct LabelSpan
{
    qsizetype start = 0;
    qsizetype length = 0;
    bool isStrong = false;
    bool isSlanted = false;
    bool isStruck = false;
    bool isUnderlined = false;
    /// The label's own unless set.
    ColorToken color = nullptr;

    bool operator==(const LabelSpan&) const = default;
};

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
    /// Shows parts of the text in their own ways; to be set again after another text.
    void setSpans(const QList<LabelSpan>& spans);
    /// Where the part of the text stands that begins at `start`, as far as it is on its first line.
    QRect rectOf(qsizetype start, qsizetype length) const;
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
    QList<QTextLayout::FormatRange> spanFormats() const;
    double topOf(const Layout& layout) const;
    double leftOf(const QTextLine& line) const;
    bool isCut() const;
    Measures& measures() const;
    QFont roleFont() const;
    QString shownText(double width) const;

    TextRole m_role;
    ColorToken m_color = &Theme::text;
    Qt::TextElideMode m_elideMode = Qt::ElideNone;
    int m_maximumRows = std::numeric_limits<int>::max();
    bool m_isStruck = false;
    QList<LabelSpan> m_spans;
    double m_opacity = 1;
    mutable std::unique_ptr<Layout> m_layout;
    mutable std::unique_ptr<Measures> m_measures;
};

} // namespace flitmark
