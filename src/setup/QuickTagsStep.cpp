// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <setup/QuickTagsStep.h>
#include <setup/SetupWizardModel.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/ReadingMargins.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QKeyEvent>

#include <algorithm>

namespace flitmark {

/// One tag: its icon, its text, and what can be done with it.
class QuickTagsStep::TagRow final : public QWidget
{
public:
    TagRow(SetupWizardModel& model, const QuickTag& tag)
        : id(tag.id)
        , m_tag(tag)
        , m_badge(new Badge(QuickTagsStep::tr("Default"), Badge::Kind::Accent))
        , m_star(new IconButton({}, IconButtonSize::Small))
        , m_trash(new IconButton(QuickTagsStep::tr("Delete"), IconButtonSize::Small))
    {
        auto* text = new Label(tag.appendText);
        text->setElideMode(Qt::ElideRight);
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(readingMargins(16 + iconWidth(), 8, 8, 8));
        row->setSpacing(0);
        row->addWidget(text, 1);
        row->addWidget(m_badge);
        row->addSpacing(8);
        row->addWidget(m_star);
        row->addWidget(m_trash);
        m_trash->setSymbol(QStringLiteral("trash"));
        for (IconButton* button : {m_star, m_trash}) {
            button->setAccessibleDescription(tag.icon + u' ' + tag.appendText);
        }
        connect(m_star, &IconButton::clicked, &model, [this, &model] { model.toggleDefault(id); });
        connect(m_trash, &IconButton::clicked, &model, [this, &model] { model.deleteTag(id); });
        showTag(tag);
    }

    void showTag(const QuickTag& tag)
    {
        m_tag = tag;
        m_badge->setVisible(tag.isDefault);
        m_star->setName(tag.isDefault ? QuickTagsStep::tr("Remove as default") : QuickTagsStep::tr("Set as default"));
        m_star->setSymbol(tag.isDefault ? QStringLiteral("star.fill") : QStringLiteral("star"));
        m_star->setColor(tag.isDefault ? &Theme::mark : &Theme::text2);
        update();
    }

    bool holdsFocus() const { return m_star->hasFocus() || m_trash->hasFocus(); }
    void focusTrash() { m_trash->setFocus(Qt::TabFocusReason); }
    QWidget* star() const { return m_star; }
    QWidget* trash() const { return m_trash; }

    const QUuid id;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painting::drawIconText(painter, QRectF(12, 0, iconWidth() - 4, height()), m_tag.icon, 18,
                               ThemeScope::of(*this).text);
    }

private:
    static int iconWidth() { return scaled(18) + 18; }

    QuickTag m_tag;
    Badge* m_badge;
    IconButton* m_star;
    IconButton* m_trash;
};

QuickTagsStep::QuickTagsStep(SetupWizardModel& model, QWidget* parent)
    : StepColumn(parent)
    , m_model(model)
{
    addTitle(tr("Configure Quick Tags"));
    addText(tr("Quick tags are your note categories. Add your own tags and star the ones you want selected by "
               "default."),
            TextRole::Body, &Theme::text2, 4);
    addList();
    showTags();
    addForm();
    showForm();
    finish();
    connect(&model, &SetupWizardModel::changed, this, [this] {
        showTags();
        showForm();
    });
}

void QuickTagsStep::addList()
{
    m_list = new Card;
    auto* column = new QVBoxLayout(m_list);
    column->setContentsMargins(0, 4, 0, 4);
    column->setSpacing(0);
    add(m_list, 12);
}

void QuickTagsStep::addForm()
{
    addText(tr("Add new tag:"), TextRole::Strong, &Theme::text, 16);
    m_newIcon = new TextField(tr("New tag icon"));
    m_newIcon->setPlaceholderText(QStringLiteral("🎯"));
    m_newIcon->setForIcon();
    m_newText = new TextField(tr("New tag text"));
    m_newText->setPlaceholderText(QStringLiteral("#tag/name"));
    m_addButton = new IconButton(tr("Add tag"));
    m_addButton->setSymbol(QStringLiteral("plus.circle.fill"), 24);
    m_addButton->setColor(&Theme::mark);

    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_newIcon);
    row->addWidget(m_newText, 1);
    row->addWidget(m_addButton);
    add(row, 4);
    connect(m_newIcon, &TextField::textChanged, &m_model, &SetupWizardModel::setNewTagIcon);
    connect(m_newText, &TextField::textChanged, &m_model, &SetupWizardModel::setNewTagText);
    connect(m_addButton, &IconButton::clicked, this, &QuickTagsStep::addNewTag);
}

void QuickTagsStep::addNewTag()
{
    const qsizetype before = m_model.quickTags().size();
    m_model.addNewTag();
    if (m_model.quickTags().size() > before) {
        m_newIcon->setFocus();
    } else {
        // What is missing asks for itself.
        (m_model.newTagIcon().isEmpty() ? m_newIcon : m_newText)->setFocus();
    }
}

void QuickTagsStep::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isBegun = !m_model.newTagIcon().isEmpty() || !m_model.newTagText().isEmpty();
    // A tag that is being typed is finished first; otherwise Return goes on to the next step.
    if (isReturn && isBegun && (m_newIcon->hasFocus() || m_newText->hasFocus())) {
        addNewTag();
        return;
    }
    StepColumn::keyPressEvent(event);
}

void QuickTagsStep::showTags()
{
    removeMissingRows();
    const QList<QuickTag>& tags = m_model.quickTags();
    for (qsizetype i = 0; i < tags.size(); ++i) {
        if (i < m_rows.size()) {
            m_rows[i]->showTag(tags[i]);
        } else {
            addRow(tags[i]);
        }
    }
    m_list->setVisible(!tags.isEmpty());
}

void QuickTagsStep::addRow(const QuickTag& tag)
{
    auto* row = new TagRow(m_model, tag);
    m_list->layout()->addWidget(row);
    m_rows.append(row);
    if (m_newIcon == nullptr) {
        return;
    }
    // One that comes after the form was made still stands before it.
    QWidget* former = m_rows.size() > 1 ? m_rows[m_rows.size() - 2]->trash() : nullptr;
    if (former != nullptr) {
        setTabOrder(former, row->star());
    }
    setTabOrder(row->star(), row->trash());
    setTabOrder(row->trash(), m_newIcon);
    setTabOrder(m_newIcon, m_newText);
    setTabOrder(m_newText, m_addButton);
}

void QuickTagsStep::showForm()
{
    for (const auto& [field, text] : {std::pair{m_newIcon, m_model.newTagIcon()}, {m_newText, m_model.newTagText()}}) {
        if (field->text() != text) {
            field->setText(text);
        }
    }
}

void QuickTagsStep::removeMissingRows()
{
    for (qsizetype i = 0; i < m_rows.size();) {
        TagRow* row = m_rows[i];
        const bool isKept = std::any_of(m_model.quickTags().cbegin(), m_model.quickTags().cend(),
                                        [row](const QuickTag& tag) { return tag.id == row->id; });
        if (isKept) {
            ++i;
            continue;
        }
        const bool heldFocus = row->holdsFocus();
        m_rows.removeAt(i);
        // The row's own button may be the caller: it goes when that has returned.
        row->hide();
        row->deleteLater();
        if (heldFocus && !m_rows.isEmpty()) {
            m_rows[std::min(i, m_rows.size() - 1)]->focusTrash();
        } else if (heldFocus) {
            m_newIcon->setFocus();
        }
    }
}

} // namespace flitmark
