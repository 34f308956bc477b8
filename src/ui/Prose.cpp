// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Prose.h>
#include <ui/ThemeScope.h>

#include <QFontMetricsF>

#include <algorithm>

namespace flitmark {

Prose::Prose(const QString& prose, TextRole role, ColorToken color, QWidget* parent)
    : QLabel(parent)
    , m_role(role)
    , m_color(color)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Reached by a click: among dozens of texts the Tab key would lose its way.
    setFocusPolicy(Qt::ClickFocus);
    setProse(prose);
}

void Prose::setProse(const QString& prose)
{
    m_prose = prose;
    setAccessibleName(prose);
    renew();
}

void Prose::selectAll()
{
    setSelection(0, static_cast<int>(m_prose.size()));
}

QSize Prose::minimumSizeHint() const
{
    return {scaled(32), rowHeight(m_role)};
}

QSize Prose::sizeHint() const
{
    return QLabel::sizeHint() - QSize(0, m_shift);
}

int Prose::heightForWidth(int width) const
{
    return QLabel::heightForWidth(width) - m_shift;
}

/// Rich text, because only that lets the height of rows be set.
void Prose::renew()
{
    const Theme& theme = ThemeScope::of(*this);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, theme.*m_color);
    colors.setColor(QPalette::Text, theme.*m_color);
    colors.setColor(QPalette::Highlight, theme.sel);
    colors.setColor(QPalette::HighlightedText, theme.text);
    setPalette(colors);
    const QFont font = fontOf(m_role);
    setFont(font);
    QString lines = m_prose.toHtmlEscaped();
    lines.replace(u'\n', QStringLiteral("<br/>"));
    // The toolkit puts what a row has left below its text; half of it belongs above.
    const QFontMetricsF metrics(font);
    const int left = rowHeight(m_role) - qCeil(metrics.ascent() + metrics.descent());
    m_shift = std::max(0, left / 2);
    setContentsMargins(0, m_shift, 0, 0);
    setText(QStringLiteral("<p style=\"margin:0; white-space:pre-wrap; line-height:%1px;"
                           "-qt-line-height-type:line-distance\">%2</p>")
                .arg(left)
                .arg(lines));
}

bool Prose::event(QEvent* event)
{
    if (event->type() == ThemeScope::changeEvent() || event->type() == QEvent::Polish) {
        renew();
    }
    return QLabel::event(event);
}

} // namespace flitmark
