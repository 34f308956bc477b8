// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <setup/StepColumn.h>

namespace flitmark {

class CheckBox;
class Dialogs;
class ListRow;
class SetupWizardModel;
class TextField;

/// The wizard's second step: which vault, and which folder in it.
class VaultStep final : public StepColumn
{
    Q_OBJECT

public:
    VaultStep(SetupWizardModel& model, Dialogs& dialogs, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(VaultStep)

    QWidget* firstFocus() const override;

private:
    void addVaults();
    void addCustomPath();
    void addSubfolder();
    void browseForFolder();
    void showModel();
    void showProblem();

    SetupWizardModel& m_model;
    Dialogs& m_dialogs;
    QList<ListRow*> m_vaults;
    CheckBox* m_useCustomPath = nullptr;
    QWidget* m_customPathRow = nullptr;
    TextField* m_customPath = nullptr;
    QWidget* m_problemRow = nullptr;
    Label* m_problem = nullptr;
    TextField* m_subfolder = nullptr;
    Label* m_destination = nullptr;
    Label* m_captureDestination = nullptr;
};

} // namespace flitmark
