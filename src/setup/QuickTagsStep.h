// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <config/AppConfig.h>
#include <setup/StepColumn.h>

namespace flitmark {

class Card;
class IconButton;
class SetupWizardModel;
class TextField;

/// The wizard's third step: the quick tags.
class QuickTagsStep final : public StepColumn
{
    Q_OBJECT

public:
    explicit QuickTagsStep(SetupWizardModel& model, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(QuickTagsStep)

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class TagRow;

    void addList();
    void addForm();
    void addNewTag();
    void showTags();
    void addRow(const QuickTag& tag);
    void showForm();
    void removeMissingRows();

    SetupWizardModel& m_model;
    QList<TagRow*> m_rows;
    Card* m_list = nullptr;
    TextField* m_newIcon = nullptr;
    TextField* m_newText = nullptr;
    IconButton* m_addButton = nullptr;
};

} // namespace flitmark
