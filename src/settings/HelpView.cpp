// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpPage.h>
#include <settings/HelpView.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/ReadingMargins.h>
#include <ui/ScrollArea.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace flitmark {

namespace {

constexpr int sidebarWidth = 192;
constexpr int widestSidebar = 288;
constexpr int sidebarMargin = 8;
constexpr double sheetRadius = 16;

/// The card the sections are listed on; it fills its place up to the corners of the ground.
class Sidebar final : public QWidget
{
public:
    explicit Sidebar(double radius)
        : m_radius(radius)
    {
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath shape;
        shape.setFillRule(Qt::WindingFill);
        shape.addRoundedRect(rect(), m_radius, m_radius);
        shape.addRect(rect().adjusted(0, 0, 0, -qCeil(m_radius)));
        shape.addRect(rect().adjusted(qCeil(m_radius), 0, 0, 0));
        painter.fillPath(shape, ThemeScope::of(*this).card);
    }

private:
    double m_radius;
};

} // namespace

HelpView::HelpView(const HelpServices& services, Corners corners, QWidget* parent)
    : QWidget(parent)
    , m_services(services)
    , m_content(new ScrollArea)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addLayout(makeHeader());
    column->addWidget(new Divider);
    auto* body = new QHBoxLayout;
    body->setSpacing(0);
    body->addWidget(makeSidebar(corners));
    body->addWidget(m_content, 1);
    column->addLayout(body, 1);
    select(HelpSection::overview);
}

QLayout* HelpView::makeHeader() const
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(readingMargins(16, 8, 24, 8));
    row->setSpacing(12);
    row->addWidget(new SymbolView(QStringLiteral("questionmark.circle.fill"), 20));
    auto* title = new Label(tr("Flitmark Help"), TextRole::Title);
    title->setElideMode(Qt::ElideRight);
    row->addWidget(title, 1);
    auto* done = new Button(tr("Done"));
    connect(done, &Button::clicked, this, &HelpView::doneAsked);
    row->addWidget(done);
    return row;
}

QWidget* HelpView::makeSidebar(Corners corners)
{
    auto* sidebar = new Sidebar(corners == Corners::Round ? sheetRadius : 0);
    auto* column = new QVBoxLayout(sidebar);
    column->setContentsMargins(sidebarMargin, 12, sidebarMargin, 12);
    column->setSpacing(4);
    int width = scaled(sidebarWidth);
    for (const HelpHeading& heading : helpHeadings()) {
        auto* row = new ListRow({
            .symbol = heading.symbol,
            .symbolColor = &Theme::text2,
            .title = heading.title,
            .titleColor = &Theme::text2,
            .isSelected = heading.section == HelpSection::overview,
            .trailingSymbol = QString(),
            .height = 32,
        });
        connect(row, &ListRow::toggled, this, [this, section = heading.section](bool isChosen) {
            if (isChosen) {
                select(section);
            }
        });
        column->addWidget(row);
        width = std::max(width, row->wholeWidth() + 2 * sidebarMargin);
        if (row->isChecked()) {
            m_firstRow = row;
        }
    }
    sidebar->setFixedWidth(std::min(width, scaled(widestSidebar)));
    column->addStretch();
    auto* version = new Label(tr("Version %1").arg(QStringLiteral(FLITMARK_VERSION)), TextRole::Caption);
    version->setContentsMargins(8, 0, 8, 0);
    column->addWidget(version);
    return sidebar;
}

void HelpView::takeKeyboard()
{
    m_firstRow->setFocus();
}

void HelpView::select(HelpSection section)
{
    m_page = new HelpPage(helpContent(section), m_services);
    m_content->setWidget(m_page);
    m_content->verticalScrollBar()->setValue(0);
}

void HelpView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::SelectAll)) {
        m_page->selectAll();
    } else if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(m_page->selectedText());
    } else if (!m_content->scrollBy(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace flitmark
