// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ThemeScope.h>

#include <QFontMetricsF>
#include <QHash>
#include <QHelpEvent>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

/// Wide enough for any text on one line.
constexpr double unlimited = 1 << 20;

/// What a line may take beyond the widths of its parts.
constexpr double rounding = 0.25;

} // namespace

/// The text cut into lines for one width.
struct Label::Layout
{
    QString source;
    double width = 0;
    QFont font;
    bool wraps = false;
    QList<QTextLayout::FormatRange> spans;
    QTextLayout lines;
    bool isCut = false;

    int lineCount() const { return std::max(1, lines.lineCount()); }
    void breakLines(const QString& text);
};

void Label::Layout::breakLines(const QString& text)
{
    lines.setText(text);
    lines.setFont(font);
    lines.setFormats(spans + emojiFormats(text, font));
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::ManualWrap);
    lines.setTextOption(option);
    lines.beginLayout();
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLineWidth(std::max(1.0, width));
    }
    lines.endLayout();
}

/// What the layouts around the label ask for again and again, for one text in one font.
struct Label::Measures
{
    QString text;
    QFont font;
    bool wraps = false;
    /// Enough for every line to stay one.
    double naturalWidth = 0;
    /// By width.
    QHash<int, int> lineCounts;
};

Label::Label(const QString& text, TextRole role, QWidget* parent)
    : QLabel(parent)
    , m_role(role)
{
    setTextFormat(Qt::PlainText);
    setRole(role);
    setText(text);
}

Label::~Label() = default;

void Label::setRole(TextRole role)
{
    m_role = role;
    if (role == TextRole::Caption || role == TextRole::Overline) {
        m_color = &Theme::text2;
    }
    updateGeometry();
    update();
}

void Label::setColor(ColorToken color)
{
    m_color = color;
    update();
}

void Label::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    updateGeometry();
    update();
}

void Label::setMaximumRows(int rows)
{
    m_maximumRows = rows;
    m_layout.reset();
    m_measures.reset();
    updateGeometry();
    update();
}

void Label::setSpans(const QList<LabelSpan>& spans)
{
    if (m_spans != spans) {
        m_spans = spans;
        m_measures.reset();
        updateGeometry();
        update();
    }
}

QList<QTextLayout::FormatRange> Label::spanFormats() const
{
    QList<QTextLayout::FormatRange> formats;
    for (const LabelSpan& span : m_spans) {
        QTextCharFormat format;
        if (span.isStrong) {
            format.setFontWeight(QFont::DemiBold);
        }
        if (span.isSlanted) {
            format.setFontItalic(true);
        }
        format.setFontStrikeOut(span.isStruck || m_isStruck);
        format.setFontUnderline(span.isUnderlined);
        if (span.color != nullptr && isEnabled()) {
            format.setForeground(ThemeScope::of(*this).*span.color);
        }
        formats.append({static_cast<int>(span.start), static_cast<int>(span.length), format});
    }
    return formats;
}

QRect Label::rectOf(qsizetype start, qsizetype length) const
{
    const Layout& layout = layOut(contentsRect().width());
    const QTextLine line = layout.lines.lineForTextPosition(static_cast<int>(start));
    if (!line.isValid()) {
        return {};
    }
    const auto end = std::min<qsizetype>(start + length, line.textStart() + line.textLength());
    const double from = line.cursorToX(static_cast<int>(start));
    const double to = line.cursorToX(static_cast<int>(end));
    const double row = rowHeight(m_role);
    return QRectF(leftOf(line) + std::min(from, to), topOf(layout) + line.lineNumber() * row, std::abs(to - from), row)
        .toAlignedRect();
}

double Label::topOf(const Layout& layout) const
{
    const QRectF area = contentsRect();
    const bool isCentred = alignment().testFlag(Qt::AlignVCenter);
    return area.top() + (isCentred ? std::max(0.0, (area.height() - layout.lineCount() * rowHeight(m_role)) / 2) : 0);
}

double Label::leftOf(const QTextLine& line) const
{
    const QRectF area = contentsRect();
    const Qt::Alignment alignment = QStyle::visualAlignment(layoutDirection(), this->alignment());
    const double free = area.width() - line.naturalTextWidth();
    return area.left() + (alignment.testFlag(Qt::AlignHCenter) ? free / 2
                          : alignment.testFlag(Qt::AlignRight) ? free
                                                               : 0);
}

void Label::setStruck(bool isStruck)
{
    m_isStruck = isStruck;
    update();
}

void Label::setOpacity(double opacity)
{
    m_opacity = opacity;
    update();
}

QFont Label::roleFont() const
{
    QFont font = fontOf(m_role);
    font.setStrikeOut(m_isStruck);
    return font;
}

QString Label::shownText(double width) const
{
    if (m_elideMode == Qt::ElideNone || wordWrap()) {
        return text();
    }
    // A line break would hide what comes after it.
    QString oneLine = text().simplified();
    if (painting::lineWidth(oneLine, roleFont()) <= width) {
        return oneLine;
    }
    return QFontMetricsF(roleFont()).elidedText(oneLine, m_elideMode, width);
}

const Label::Layout& Label::layOut(double width) const
{
    const QFont font = roleFont();
    const QString source = shownText(width);
    const QList<QTextLayout::FormatRange> spans = spanFormats();
    if (m_layout && m_layout->source == source && qFuzzyCompare(m_layout->width, width) && m_layout->font == font &&
        m_layout->wraps == wordWrap() && m_layout->spans == spans) {
        return *m_layout;
    }
    m_layout = std::make_unique<Layout>();
    m_layout->source = source;
    m_layout->width = width;
    m_layout->font = font;
    m_layout->wraps = wordWrap();
    m_layout->spans = spans;

    const QString text = QString(source).replace(u'\n', QChar::LineSeparator);
    m_layout->breakLines(text);
    m_layout->isCut = m_layout->lines.lineCount() > m_maximumRows;
    if (m_layout->isCut) {
        const int last = m_layout->lines.lineAt(m_maximumRows - 1).textStart();
        const QString rest = text.sliced(last).replace(QChar::LineSeparator, u' ');
        m_layout->breakLines(text.first(last) + QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width));
    }
    return *m_layout;
}

Label::Measures& Label::measures() const
{
    const QString whole = m_elideMode == Qt::ElideNone ? text() : text().simplified();
    const QFont font = roleFont();
    if (!m_measures || m_measures->text != whole || m_measures->font != font || m_measures->wraps != wordWrap()) {
        m_measures = std::make_unique<Measures>(Measures{whole, font, wordWrap(), 0, {}});
        for (const QString& line : whole.split(u'\n')) {
            m_measures->naturalWidth = std::max(m_measures->naturalWidth, painting::lineWidth(line, font) + rounding);
        }
    }
    return *m_measures;
}

QSize Label::sizeHint() const
{
    const QMargins margins = contentsMargins();
    const Measures& known = measures();
    const int width = static_cast<int>(std::ceil(known.naturalWidth));
    const int lines = std::min(static_cast<int>(known.text.count(u'\n')) + 1, m_maximumRows);
    return {width + margins.left() + margins.right(), lines * rowHeight(m_role) + margins.top() + margins.bottom()};
}

QSize Label::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    if (m_elideMode == Qt::ElideNone && !wordWrap()) {
        return whole;
    }
    const QMargins margins = contentsMargins();
    return {std::min(whole.width(), scaled(32)), rowHeight(m_role) + margins.top() + margins.bottom()};
}

int Label::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    const int inner = width - margins.left() - margins.right();
    Measures& whole = measures();
    auto lineCount = whole.lineCounts.constFind(inner);
    if (lineCount == whole.lineCounts.constEnd()) {
        // What is narrower need not be laid out, which takes long where there are emoji.
        const bool fits = whole.naturalWidth <= inner && m_spans.isEmpty();
        const auto count = fits ? static_cast<int>(whole.text.count(u'\n')) + 1 : layOut(inner).lineCount();
        lineCount = whole.lineCounts.insert(inner, std::min(count, m_maximumRows));
    }
    return lineCount.value() * rowHeight(m_role) + margins.top() + margins.bottom();
}

void Label::paintEvent(QPaintEvent* /*event*/)
{
    const QRectF area = contentsRect();
    const bool isWide = m_elideMode == Qt::ElideNone && !wordWrap();
    const Layout& layout = layOut(isWide ? unlimited : area.width());
    const QFontMetricsF metrics(layout.font);
    const double row = rowHeight(m_role);
    double top = topOf(layout);

    const Theme& theme = ThemeScope::of(*this);
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    painter.setPen(isEnabled() ? theme.*m_color : theme.off);
    for (int i = 0; i < layout.lines.lineCount(); ++i) {
        const QTextLine line = layout.lines.lineAt(i);
        const double baseline = top + (row + metrics.ascent() - metrics.descent()) / 2;
        line.draw(&painter, QPointF(leftOf(line), baseline - line.ascent()) - line.position());
        top += row;
    }
}

bool Label::isCut() const
{
    const int width = contentsRect().width();
    if (wordWrap()) {
        return layOut(width).isCut;
    }
    return m_elideMode != Qt::ElideNone && shownText(width) != text().simplified();
}

bool Label::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && isCut()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return QLabel::event(event);
}

} // namespace flitmark
