// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseModel.h>
#include <capture/BrowseTrail.h>
#include <ui/Button.h>
#include <ui/Painting.h>
#include <ui/Surfaces.h>

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QWheelEvent>

namespace flitmark {

namespace {

/// How wide a folder's name may get, at text scale 1.
constexpr int longestName = 160;

} // namespace

BrowseTrail::BrowseTrail(BrowseModel& browse)
    : m_browse(browse)
    , m_root(new Button(tr("Vault"), ButtonKind::Ghost))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    auto* content = new QWidget;
    m_row = new QHBoxLayout(content);
    m_row->setContentsMargins({});
    m_row->setSpacing(0);
    m_root->setSymbol(QStringLiteral("house.fill"));
    m_root->setButtonSize(ButtonSize::Compact);
    m_row->addWidget(m_root);
    m_row->addStretch();
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);

    connect(m_root, &Button::clicked, &browse, &BrowseModel::navigateToRoot);
    connect(&browse, &BrowseModel::currentBrowsePathChanged, this, &BrowseTrail::showPath);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int /*low*/, int high) { horizontalScrollBar()->setValue(high); });
    showPath();
}

QSize BrowseTrail::sizeHint() const
{
    return {widget()->sizeHint().width(), controlHeight()};
}

QSize BrowseTrail::minimumSizeHint() const
{
    return {m_root->sizeHint().width(), controlHeight()};
}

void BrowseTrail::takeKeyboard()
{
    (m_steps.empty() ? m_root : m_steps.back().button)->setFocus();
}

void BrowseTrail::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - turned.x() - turned.y());
}

void BrowseTrail::label(Button& button, const QString& name)
{
    // A line break in a name would make a tower of it.
    const QString line = name.simplified();
    const QString shown = QFontMetricsF(fontOf(TextRole::Strong)).elidedText(line, Qt::ElideRight, scaled(longestName));
    setPlainText(button, shown);
    button.setAccessibleName(name);
    button.setToolTip(shown == line ? QString() : name);
}

BrowseTrail::Step BrowseTrail::makeStep(qsizetype index)
{
    const Step step{new SymbolView(QStringLiteral("chevron.right"), 16, &Theme::text2),
                    new Button(QString(), ButtonKind::Ghost)};
    step.button->setButtonSize(ButtonSize::Compact);
    connect(step.button, &Button::clicked, &m_browse, [this, index] { m_browse.navigateToPath(index); });
    for (QWidget* part : {step.arrow, static_cast<QWidget*>(step.button)}) {
        m_row->insertWidget(m_row->count() - 1, part);
        // At once, not with the next layout: it may get the keyboard.
        part->show();
    }
    return step;
}

/// Changes what there is: a click on a button of the trail must not delete it, nor take the keyboard from it.
void BrowseTrail::showPath()
{
    const auto length = static_cast<std::size_t>(m_browse.browsePathStack().size());
    while (m_steps.size() > length) {
        const Step& last = m_steps.back();
        last.arrow->hide();
        last.button->hide();
        last.arrow->deleteLater();
        last.button->deleteLater();
        m_steps.pop_back();
    }
    for (std::size_t i = 0; i < length; ++i) {
        const auto index = static_cast<qsizetype>(i);
        if (i == m_steps.size()) {
            m_steps.push_back(makeStep(index));
        }
        label(*m_steps[i].button, m_browse.trailLabel(index));
        m_steps[i].button->setColor(i + 1 == length ? &Theme::text : &Theme::text2);
    }
    m_root->setColor(length == 0 ? &Theme::text : &Theme::text2);
}

} // namespace flitmark
