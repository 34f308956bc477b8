// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteLines.h>
#include <daily/tab/TomatoTally.h>
#include <ui/ControlState.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/ThemeScope.h>

#include <QHBoxLayout>
#include <QPushButton>

namespace flitmark {

namespace {

constexpr int tallyPoints = 12;
constexpr double quietOpacity = 0.6;

} // namespace

class TomatoTally::TomatoButton final : public QPushButton
{
public:
    explicit TomatoButton(const QString& name)
        : m_state(*new ControlState(*this))
    {
        setToolTip(name);
        setAccessibleName(name);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    void setQuiet(bool isQuiet)
    {
        m_isQuiet = isQuiet;
        update();
    }
    QSize sizeHint() const override
    {
        const int growth = scaled(tallyPoints) - tallyPoints;
        return {18 + growth, 28 + growth};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        const Theme& theme = ThemeScope::of(*this);
        QPainter painter(this);
        painting::fillRounded(painter, rect(), painting::controlRadius, painting::stateLayer(theme, m_state.level()));
        painter.setOpacity(m_isQuiet ? quietOpacity : 1);
        painting::drawIconText(painter, rect(), tomato.toString(), tallyPoints, theme.text);
        painter.setOpacity(1);
        if (m_state.showsFocus()) {
            painting::strokeRounded(painter, rect(), painting::controlRadius, painting::focusWidth, theme.mark);
        }
    }

private:
    ControlState& m_state;
    bool m_isQuiet = true;
};

TomatoTally::TomatoTally()
    : m_more(new Label(QString(), TextRole::Caption))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    row->addWidget(m_more);
    m_more->setContentsMargins(readingMargins(4, 0, 0, 0));
    m_more->hide();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

TomatoTally::~TomatoTally() = default;

void TomatoTally::setCount(qint64 buttons, const QString& more)
{
    m_count = buttons;
    const auto shown = static_cast<std::size_t>(buttons);
    while (m_buttons.size() < shown) {
        auto* button = new TomatoButton(tr("Click to remove one 🍅"));
        connect(button, &QPushButton::clicked, this, &TomatoTally::removeAsked);
        static_cast<QHBoxLayout*>(layout())->insertWidget(static_cast<int>(m_buttons.size()), button);
        m_buttons.push_back(button);
    }
    // Kept for later rather than deleted: the click that took the tomato away may still be on its way out.
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        m_buttons[i]->setVisible(i < shown);
    }
    m_more->setText(more);
    m_more->setVisible(!more.isEmpty());
    setVisible(buttons > 0);
}

void TomatoTally::setQuiet(bool isQuiet)
{
    for (TomatoButton* button : m_buttons) {
        button->setQuiet(isQuiet);
    }
    m_more->setOpacity(1);
}

QList<QWidget*> TomatoTally::controls() const
{
    return {m_buttons.begin(), m_buttons.begin() + m_count};
}

} // namespace flitmark
