// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <ui/ComboBox.h>
#include <ui/Painting.h>
#include <ui/Symbols.h>
#include <ui/ThemeScope.h>

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace flitmark {

namespace {

constexpr double sidePadding = 12;
constexpr double arrowSize = 20;
constexpr double arrowInset = 8;

/// Draws the rows of the list that opens.
class RowDelegate final : public QStyledItemDelegate
{
public:
    explicit RowDelegate(ComboBox& box)
        : QStyledItemDelegate(&box)
        , m_box(box)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const Theme& theme = ThemeScope::of(m_box);
        const QRectF box = QRectF(option.rect).adjusted(4, 0, -4, 0);
        painter->fillRect(option.rect, theme.background);
        const bool isCurrent = index.row() == m_box.currentIndex();
        if (isCurrent) {
            painting::fillRounded(*painter, box, painting::controlRadius, theme.sel);
        }
        if (option.state.testFlag(QStyle::State_Selected)) {
            painting::fillRounded(*painter, box, painting::controlRadius, theme.hover);
        }
        painting::drawLine(*painter, box.adjusted(sidePadding - 4, 0, 0, 0), index.data().toString(),
                           fontOf(TextRole::Body), theme.text);
        if (isCurrent) {
            const QRectF square(box.right() - 8 - 16, box.center().y() - 8, 16, 16);
            Symbols::draw(*painter, QStringLiteral("checkmark"), square, theme.selMark);
        }
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return {m_box.width(), controlHeight()};
    }

private:
    ComboBox& m_box;
};

/// Tells screen readers the box's name apart from what is chosen, which Qt's own gives for the name.
class ComboBoxInterface final : public QAccessibleWidget
{
public:
    explicit ComboBoxInterface(ComboBox& box)
        : QAccessibleWidget(&box, QAccessible::ComboBox)
        , m_box(box)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const bool isChoice = kind == QAccessible::Value || kind == QAccessible::Description;
        return isChoice ? m_box.currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == showMenuAction()) {
            m_box.showPopup();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    ComboBox& m_box;
};

QAccessibleInterface* makeComboBoxInterface(const QString& /*className*/, QObject* object)
{
    auto* box = qobject_cast<ComboBox*>(object);
    return box != nullptr ? new ComboBoxInterface(*box) : nullptr;
}

} // namespace

ComboBox::ComboBox(const QString& name, QWidget* parent)
    : QComboBox(parent)
    , m_state(*new ControlState(*this))
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeComboBoxInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
    setAccessibleName(name);
    view()->setAccessibleName(name);
    connect(this, &QComboBox::currentTextChanged, this, [this] {
        // What Qt says of a new choice, a new value, screen readers expect of numbers alone.
        QAccessibleEvent chosen(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&chosen);
    });
    setItemDelegate(new RowDelegate(*this));
    setMaxVisibleItems(12);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ComboBox::sizeHint() const
{
    double widest = scaled(280) - sidePadding - arrowSize - 2 * arrowInset;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, painting::lineWidth(itemText(index), fontOf(TextRole::Body)));
    }
    return {static_cast<int>(std::ceil(sidePadding + widest + arrowSize + 2 * arrowInset)), controlHeight()};
}

void ComboBox::showPopup()
{
    const Theme& theme = ThemeScope::of(*this);
    QPalette colors = view()->palette();
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window}) {
        colors.setColor(role, theme.background);
    }
    view()->setPalette(colors);
    view()->window()->setPalette(colors);
    QComboBox::showPopup();
}

void ComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ComboBox::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = ThemeScope::of(*this);
    const QRectF box = rect();
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : painting::disabledOpacity);
    painting::fillRounded(painter, box, painting::controlRadius, theme.background);
    if (m_state.showsFocus()) {
        painting::strokeRounded(painter, box, painting::controlRadius, painting::focusWidth, theme.mark);
    } else {
        painting::strokeRounded(painter, box, painting::controlRadius, 1,
                                mix(theme.edge, theme.outline, std::min(1.0, m_state.level())));
    }
    const QRectF arrow(box.right() - arrowInset - arrowSize, box.center().y() - arrowSize / 2, arrowSize, arrowSize);
    Symbols::draw(painter, QStringLiteral("chevron.down"), arrow, theme.text2);
    painting::drawLine(painter, QRectF(sidePadding, 0, arrow.left() - sidePadding, height()), currentText(),
                       fontOf(TextRole::Body), theme.text);
}

} // namespace flitmark
