// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/Text.h>
#include <ui/Painting.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QEvent>
#include <QValidator>

#include <algorithm>

namespace flitmark {

namespace {

/// What QLineEdit adds left and right of the text by itself.
constexpr int ownMargin = 2;

/// Takes any text, on one line. Qt asks it about every change before it tells of it, whichever way the text came.
class OneLineValidator final : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override
    {
        cursor = static_cast<int>(onOneLine(QStringView(text).first(cursor)).size());
        text = onOneLine(text);
        return Acceptable;
    }
};

} // namespace

TextField::TextField(const QString& name, QWidget* parent)
    : QLineEdit(parent)
    , m_state(*new ControlState(*this))
{
    setAccessibleName(name);
    setFrame(false);
    setValidator(new OneLineValidator(this));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setPadding(12);
    applyLook();
}

void TextField::setForIcon()
{
    m_isForIcon = true;
    setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setPadding(4);
    applyLook();
}

void TextField::setMarkedWrong(bool isWrong)
{
    if (m_isMarkedWrong != isWrong) {
        m_isMarkedWrong = isWrong;
        update();
    }
}

void TextField::setPadding(int points)
{
    const int margin = std::max(0, points - ownMargin);
    setTextMargins(margin, 0, margin, 0);
}

QSize TextField::sizeHint() const
{
    return {m_isForIcon ? scaled(40) : scaled(160), controlHeight()};
}

QSize TextField::minimumSizeHint() const
{
    return {scaled(40), controlHeight()};
}

void TextField::applyLook()
{
    QFont font = fontOf(TextRole::Body);
    if (m_isForIcon) {
        font.setPixelSize(scaled(17));
    }
    setFont(font);
    const Theme& theme = ThemeScope::of(*this);
    QPalette colors = palette();
    // The ground is painted here, below what QLineEdit paints.
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Text, theme.text);
    colors.setColor(QPalette::Disabled, QPalette::Text, theme.off);
    colors.setColor(QPalette::PlaceholderText, theme.text2);
    colors.setColor(QPalette::Disabled, QPalette::PlaceholderText, theme.off);
    colors.setColor(QPalette::Highlight, theme.sel);
    colors.setColor(QPalette::HighlightedText, theme.text);
    if (colors != palette()) {
        setPalette(colors);
    }
}

void TextField::paintEvent(QPaintEvent* event)
{
    const Theme& theme = ThemeScope::of(*this);
    {
        QPainter painter(this);
        const QRectF box = rect();
        painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
        painting::fillRounded(painter, box, painting::controlRadius, theme.background);
        if (m_state.hasFocus()) {
            painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth,
                                    m_isMarkedWrong ? theme.red : theme.mark);
        } else if (m_isMarkedWrong) {
            painting::strokeRounded(painter, box, painting::controlRadius, 1, theme.red);
        } else {
            painting::strokeRounded(painter, box, painting::controlRadius, 1,
                                    mix(theme.edge, theme.outline, std::min(1.0, m_state.level())));
        }
    }
    QLineEdit::paintEvent(event);
}

bool TextField::event(QEvent* event)
{
    // Put into another window, it learns of the new look when it is shown there.
    if (event->type() == ThemeScope::changeEvent() || event->type() == QEvent::Show) {
        applyLook();
    }
    return QLineEdit::event(event);
}

} // namespace flitmark
