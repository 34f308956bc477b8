// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Dialogs.h>
#include <setup/SetupWizardModel.h>
#include <setup/VaultStep.h>
#include <ui/AccessibleRole.h>
#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>

#include <QSignalBlocker>

namespace flitmark {

namespace {

/// Sets a field's text where it differs, so that typing never moves the caret.
void setFieldText(TextField& field, const QString& text)
{
    if (field.text() != text) {
        field.setText(text);
    }
}

} // namespace

VaultStep::VaultStep(SetupWizardModel& model, Dialogs& dialogs, QWidget* parent)
    : StepColumn(parent)
    , m_model(model)
    , m_dialogs(dialogs)
{
    addTitle(tr("Select Your Obsidian Vault"));
    addVaults();
    addCustomPath();
    addSubfolder();
    finish();
    showModel();
    connect(&model, &SetupWizardModel::changed, this, &VaultStep::showModel);
}

QWidget* VaultStep::firstFocus() const
{
    if (m_model.useCustomPath()) {
        return m_customPath;
    }
    for (ListRow* row : m_vaults) {
        if (row->isChecked()) {
            return row;
        }
    }
    return m_useCustomPath;
}

void VaultStep::addVaults()
{
    if (m_model.detectedVaults().isEmpty()) {
        return;
    }
    addText(tr("We found these Obsidian vaults on your system:"), TextRole::Body, &Theme::text2, 4);
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    for (const DetectedVault& vault : m_model.detectedVaults()) {
        RowContent content;
        content.symbol = QStringLiteral("folder.fill");
        content.symbolColor = &Theme::text2;
        content.title = vault.name;
        content.second = vault.path;
        content.secondElideMode = Qt::ElideMiddle;
        content.ground = RowGround::Card;
        content.height = 52;
        auto* row = new ListRow(content);
        row->setToolTip(vault.path);
        column->addWidget(row);
        m_vaults.append(row);
        connect(row, &ListRow::toggled, this, [this, path = vault.path](bool isChecked) {
            if (isChecked) {
                m_model.selectVault(path);
            }
        });
    }
    add(list, 12);
}

void VaultStep::addCustomPath()
{
    m_useCustomPath = new CheckBox(tr("Use custom folder path"));
    auto* check = new QHBoxLayout;
    check->addWidget(m_useCustomPath);
    check->addStretch();
    add(check, 16 - CheckBox::ringRoom, sideMargin - CheckBox::ringRoom);
    // Only a click: showing the model must not ask the model to change.
    connect(m_useCustomPath, &CheckBox::clicked, this, [this](bool isChecked) {
        m_model.setUseCustomPath(isChecked);
        if (isChecked && m_model.customVaultPath().isEmpty()) {
            m_customPath->setFocus();
        }
    });

    m_customPathRow = new QWidget;
    auto* row = new QHBoxLayout(m_customPathRow);
    row->setContentsMargins(0, 8 - CheckBox::ringRoom, 0, 0);
    row->setSpacing(8);
    m_customPath = new TextField(tr("Vault path"));
    m_customPath->setPlaceholderText(tr("Path to vault..."));
    auto* browse = new Button(tr("Browse"));
    row->addWidget(m_customPath, 1);
    row->addWidget(browse);
    add(m_customPathRow, 0);
    connect(m_customPath, &TextField::textChanged, &m_model, &SetupWizardModel::setCustomVaultPath);
    connect(browse, &Button::clicked, this, &VaultStep::browseForFolder);

    m_problemRow = new QWidget;
    auto* problem = new QHBoxLayout(m_problemRow);
    problem->setContentsMargins(0, 8, 0, 0);
    problem->setSpacing(4);
    auto* symbol = new SymbolView(QStringLiteral("exclamationmark.triangle.fill"), 16, &Theme::orange);
    m_problem = new Label({}, TextRole::Caption);
    setAccessibleRole(*m_problem, QAccessible::Notification);
    m_problem->setWordWrap(true);
    problem->addWidget(symbol, 0, Qt::AlignTop);
    problem->addWidget(m_problem, 1);
    add(m_problemRow, 0);
}

void VaultStep::addSubfolder()
{
    addText(tr("Save notes to subfolder:"), TextRole::Strong, &Theme::text, 16 - CheckBox::ringRoom)
        ->setContentsMargins(0, CheckBox::ringRoom, 0, 0);
    m_subfolder = new TextField(tr("Subfolder"));
    m_subfolder->setPlaceholderText(QStringLiteral("Inbox"));
    add(m_subfolder, 4);
    m_destination = addText({}, TextRole::Caption, &Theme::text2, 8);
    m_captureDestination = addText({}, TextRole::Caption, &Theme::text2, 4);
    connect(m_subfolder, &TextField::textChanged, &m_model, &SetupWizardModel::setSaveSubfolder);
}

void VaultStep::browseForFolder()
{
    m_dialogs.chooseFolder(*this, tr("Select your Obsidian vault folder"),
                           [this](const QString& path) { m_model.setCustomVaultPath(path); });
}

void VaultStep::showModel()
{
    const bool usesCustomPath = m_model.useCustomPath();
    for (qsizetype i = 0; i < m_vaults.size(); ++i) {
        const bool isSelected = !usesCustomPath && m_model.detectedVaults().at(i).path == m_model.selectedVaultPath();
        const QSignalBlocker blocker(m_vaults[i]);
        // While a custom path is used no vault is selected, which radio buttons allow only so.
        m_vaults[i]->setAutoExclusive(false);
        m_vaults[i]->setChecked(isSelected);
        m_vaults[i]->setAutoExclusive(true);
    }
    m_useCustomPath->setChecked(usesCustomPath);
    m_customPathRow->setVisible(usesCustomPath);
    setFieldText(*m_customPath, m_model.customVaultPath());
    setFieldText(*m_subfolder, m_model.saveSubfolder());
    m_destination->setText(tr("Notes will be saved to: vault/%1").arg(m_model.effectiveSubfolder()));
    m_captureDestination->setText(
        tr("What you write in the panel goes to vault/%1. The settings' Notes page changes that.")
            .arg(m_model.captureSubfolder()));
    showProblem();
}

void VaultStep::showProblem()
{
    // An empty field is a step not done yet, no mistake.
    const bool isGiven = m_model.useCustomPath() && !m_model.customVaultPath().isEmpty();
    const QString problem = isGiven ? m_model.vaultPathProblem() : QString();
    m_problem->setText(problem);
    m_problemRow->setVisible(!problem.isEmpty());
}

} // namespace flitmark
