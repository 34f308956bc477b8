// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardModel.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

using namespace flitmark;

class SetupWizardModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void start_offersVaultsAndTags();
    void start_withoutVaults_waitsForAPath();
    void steps_stayInTheirLine();
    void customPath_guardsTheVaultStep();
    void vaultPathProblem_saysWhatIsWrong_data();
    void vaultPathProblem_saysWhatIsWrong();
    void quickTags_areEdited();
    void finishSetup_storesFourSettings();
    void finishSetup_emptyFields_data();
    void finishSetup_emptyFields();
    void nothing_isWrittenBeforeTheEnd();

private:
    void writeVaults();

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<SetupWizardModel> m_model;
};

void SetupWizardModelTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    const Directories directories{.home = m_home->path(),
                                  .applicationSupport = m_home->filePath(QStringLiteral("conf")),
                                  .cache = {},
                                  .configHome = m_home->filePath(QStringLiteral("xdg"))};
    m_config = std::make_unique<ConfigManager>(directories);
    m_model = std::make_unique<SetupWizardModel>(*m_config, directories);
}

void SetupWizardModelTest::writeVaults()
{
    writeTestFile(m_home->filePath(QStringLiteral("xdg/obsidian/obsidian.json")),
                  R"({"vaults": {"1": {"path": "/u/Notes"}, "2": {"path": "/u/Archive"}}})");
}

void SetupWizardModelTest::start_offersVaultsAndTags()
{
    writeVaults();
    m_config->update([](AppConfig& config) { config.quickTags.clear(); });
    QSignalSpy changed(m_model.get(), &SetupWizardModel::changed);
    m_model->start();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_model->detectedVaults().size(), 2);
    QCOMPARE(m_model->selectedVaultPath(), QStringLiteral("/u/Archive"));
    QCOMPARE(m_model->quickTags().size(), 4);
    m_model->forward();
    QVERIFY(m_model->canProceed());
    m_model->selectVault(QStringLiteral("/u/Notes"));
    QCOMPARE(m_model->getFinalVaultPath(), QStringLiteral("/u/Notes"));
}

void SetupWizardModelTest::start_withoutVaults_waitsForAPath()
{
    m_model->start();
    m_model->forward();
    QCOMPARE(m_model->currentStep(), SetupWizardModel::vaultStep);
    QVERIFY(!m_model->canProceed());
    m_model->forward();
    QCOMPARE(m_model->currentStep(), SetupWizardModel::vaultStep);
}

void SetupWizardModelTest::steps_stayInTheirLine()
{
    writeVaults();
    m_model->start();
    QSignalSpy stepped(m_model.get(), &SetupWizardModel::stepChanged);
    m_model->back();
    QCOMPARE(m_model->currentStep(), SetupWizardModel::welcomeStep);
    for (int i = 0; i < 5; ++i) {
        m_model->forward();
    }
    QCOMPARE(m_model->currentStep(), SetupWizardModel::finishStep);
    m_model->back();
    QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);
    QCOMPARE(stepped.count(), 4);
}

void SetupWizardModelTest::customPath_guardsTheVaultStep()
{
    writeVaults();
    m_model->start();
    m_model->forward();
    m_model->setUseCustomPath(true);
    QVERIFY(!m_model->canProceed());
    m_model->setCustomVaultPath(QStringLiteral("/custom"));
    QVERIFY(m_model->canProceed());
    QCOMPARE(m_model->getFinalVaultPath(), QStringLiteral("/custom"));
    m_model->setCustomVaultPath(QString());
    m_model->setUseCustomPath(false);
    QVERIFY(m_model->canProceed());
    m_model->setUseCustomPath(true);
    m_model->selectVault(m_model->selectedVaultPath());
    QVERIFY(!m_model->useCustomPath());
}

void SetupWizardModelTest::vaultPathProblem_saysWhatIsWrong_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("problem");
    QTest::newRow("folder") << QStringLiteral("%1") << QString();
    QTest::newRow("empty") << QString() << QStringLiteral("Choose the folder of your vault.");
    const QString relative = QStringLiteral("This is not a full path: it has to begin with a slash.");
    QTest::newRow("relative") << QStringLiteral("Notes") << relative;
    QTest::newRow("home") << QStringLiteral("~/Notes") << relative;
    QTest::newRow("missing") << QStringLiteral("%1/missing") << QStringLiteral("There is no folder at this path.");
    QTest::newRow("file") << QStringLiteral("%1/file") << QStringLiteral("This is a file, not a folder.");
}

void SetupWizardModelTest::vaultPathProblem_saysWhatIsWrong()
{
    QFETCH(const QString, path);
    QFETCH(const QString, problem);
    writeTestFile(m_home->filePath(QStringLiteral("file")), "text");
    m_model->setUseCustomPath(true);
    m_model->setCustomVaultPath(path.contains(u"%1") ? path.arg(m_home->path()) : path);
    QCOMPARE(m_model->vaultPathProblem(), problem);
    m_model->forward();
    QCOMPARE(m_model->canProceed(), !path.isEmpty());
}

void SetupWizardModelTest::quickTags_areEdited()
{
    m_model->start();
    m_model->setNewTagText(QStringLiteral("#mine"));
    m_model->addNewTag();
    QCOMPARE(m_model->quickTags().size(), 4);
    QCOMPARE(m_model->newTagText(), QStringLiteral("#mine"));
    m_model->setNewTagIcon(QStringLiteral(" "));
    m_model->addNewTag();
    QCOMPARE(m_model->quickTags().size(), 5);
    QCOMPARE(m_model->quickTags().last().appendText, QStringLiteral("#mine"));
    QVERIFY(m_model->newTagIcon().isEmpty() && m_model->newTagText().isEmpty());

    const QUuid first = m_model->quickTags().first().id;
    const QUuid last = m_model->quickTags().last().id;
    m_model->toggleDefault(first);
    m_model->toggleDefault(last);
    QVERIFY(m_model->quickTags().first().isDefault && m_model->quickTags().last().isDefault);
    m_model->toggleDefault(first);
    QVERIFY(!m_model->quickTags().first().isDefault);
    m_model->deleteTag(first);
    QCOMPARE(m_model->quickTags().size(), 4);
    QSignalSpy changed(m_model.get(), &SetupWizardModel::changed);
    m_model->deleteTag(first);
    m_model->toggleDefault(first);
    QCOMPARE(changed.count(), 0);
}

void SetupWizardModelTest::finishSetup_storesFourSettings()
{
    writeVaults();
    m_model->start();
    m_model->setSaveSubfolder(QStringLiteral("Notes/New"));
    m_config->update([](AppConfig& config) { config.windowOpacity = 0.6; });
    AppConfig expected = m_config->config();
    expected.vaultPath = QStringLiteral("/u/Archive");
    expected.saveSubfolder = QStringLiteral("Notes/New");
    expected.quickTags = m_model->quickTags();
    expected.hasCompletedSetup = true;
    bool isSavedWhenCompleted = false;
    connect(m_model.get(), &SetupWizardModel::completed, this, [&] {
        isSavedWhenCompleted = readTestFile(m_config->configURL()).contains("\"has_completed_setup\": true");
    });
    m_model->finishSetup();
    QVERIFY(m_config->config() == expected);
    QVERIFY(isSavedWhenCompleted);
}

void SetupWizardModelTest::finishSetup_emptyFields_data()
{
    QTest::addColumn<QString>("subfolder");
    QTest::addColumn<QString>("stored");
    QTest::newRow("empty") << QString() << QStringLiteral("Inbox");
    QTest::newRow("a space is not empty") << QStringLiteral(" ") << QStringLiteral(" ");
}

void SetupWizardModelTest::finishSetup_emptyFields()
{
    QFETCH(const QString, subfolder);
    QFETCH(const QString, stored);
    m_model->start();
    m_model->setSaveSubfolder(subfolder);
    while (!m_model->quickTags().isEmpty()) {
        m_model->deleteTag(m_model->quickTags().first().id);
    }
    QCOMPARE(m_model->effectiveSubfolder(), stored);
    m_model->finishSetup();
    QCOMPARE(m_config->config().saveSubfolder, stored);
    QVERIFY(m_config->config().quickTags.isEmpty());
}

void SetupWizardModelTest::nothing_isWrittenBeforeTheEnd()
{
    writeVaults();
    const QByteArray before = readTestFile(m_config->configURL());
    const AppConfig configBefore = m_config->config();
    m_model->start();
    m_model->forward();
    m_model->forward();
    m_model->deleteTag(m_model->quickTags().first().id);
    m_model->forward();
    QCOMPARE(readTestFile(m_config->configURL()), before);
    QVERIFY(m_config->config() == configBefore);
}

QTEST_GUILESS_MAIN(SetupWizardModelTest)
#include "SetupWizardModelTest.moc"
