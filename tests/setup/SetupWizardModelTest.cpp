// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardModel.h>
#include <support/TestFiles.h>

#include <QSignalSpy>

using namespace flitmark;

namespace {

struct Stage
{
    explicit Stage(const QByteArray& vaults = R"("1": {"path": "/u/Notes"}, "2": {"path": "/u/Archive"})")
    {
        writeTestFile(home.filePath(QStringLiteral("obsidian/obsidian.json")), "{\"vaults\": {" + vaults + "}}");
        config.update([](AppConfig& changed) { changed.quickTags.clear(); });
        model.start();
    }

    QTemporaryDir home;
    Directories directories{home.path(), home.filePath(QStringLiteral("conf")), {}, home.path()};
    ConfigManager config{directories};
    SetupWizardModel model{config, directories};
};

} // namespace

class SetupWizardModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wizard_writesFourSettingsAtTheEndAndNothingBefore()
    {
        Stage stage;
        SetupWizardModel& model = stage.model;
        const QByteArray before = readTestFile(stage.config.configURL());
        QSignalSpy stepped(&model, &SetupWizardModel::stepChanged);
        model.back();
        QCOMPARE(model.currentStep(), SetupWizardModel::welcomeStep);
        for (int i = 0; i < 5; ++i) {
            model.forward();
        }
        QCOMPARE(model.currentStep(), SetupWizardModel::finishStep);
        model.back();
        QCOMPARE(model.currentStep(), SetupWizardModel::quickTagsStep);
        QCOMPARE(stepped.count(), 4);
        QCOMPARE(readTestFile(stage.config.configURL()), before);

        stage.config.update([](AppConfig& config) { config.windowOpacity = 0.6; });
        AppConfig expected = stage.config.config();
        expected.vaultPath = QStringLiteral("/u/Archive");
        expected.saveSubfolder = QStringLiteral("Inbox");
        expected.quickTags = model.quickTags();
        expected.hasCompletedSetup = true;
        QCOMPARE(expected.quickTags.size(), 4);
        model.setSaveSubfolder(QString());
        bool isSavedWhenCompleted = false;
        connect(&model, &SetupWizardModel::completed, this, [&] {
            isSavedWhenCompleted = readTestFile(stage.config.configURL()).contains("\"has_completed_setup\": true");
        });
        model.finishSetup();
        QVERIFY(stage.config.config() == expected);
        QVERIFY(isSavedWhenCompleted);
    }

    void vaultStep_waitsForAVault()
    {
        Stage stage;
        SetupWizardModel& model = stage.model;
        model.forward();
        QVERIFY(model.canProceed());
        model.setUseCustomPath(true);
        QVERIFY(!model.canProceed());
        model.selectVault(model.selectedVaultPath());
        QVERIFY(!model.useCustomPath());
        QVERIFY(model.canProceed());
        Stage empty("");
        empty.model.forward();
        empty.model.forward();
        QCOMPARE(empty.model.currentStep(), SetupWizardModel::vaultStep);
    }
    void vaultPathProblem_isSaidAndDoesNotBlock_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("problem");
        const QString relative = QStringLiteral("This is not a full path: it has to begin with a slash.");
        QTest::newRow("folder") << QStringLiteral("/usr") << QString();
        QTest::newRow("empty") << QString() << QStringLiteral("Choose the folder of your vault.");
        QTest::newRow("relative") << QStringLiteral("Notes") << relative;
        QTest::newRow("home") << QStringLiteral("~/Notes") << relative;
        QTest::newRow("missing") << QStringLiteral("/missing") << QStringLiteral("There is no folder at this path.");
        QTest::newRow("file") << QStringLiteral("/etc/passwd") << QStringLiteral("This is a file, not a folder.");
    }
    void vaultPathProblem_isSaidAndDoesNotBlock()
    {
        QFETCH(const QString, path);
        Stage stage;
        stage.model.forward();
        stage.model.setUseCustomPath(true);
        stage.model.setCustomVaultPath(path);
        QTEST(stage.model.vaultPathProblem(), "problem");
        QCOMPARE(stage.model.canProceed(), !path.isEmpty());
        QCOMPARE(stage.model.getFinalVaultPath(), path);
    }

    void quickTags_areEditedById()
    {
        Stage stage;
        SetupWizardModel& model = stage.model;
        const QUuid first = model.quickTags().first().id;
        const QUuid last = model.quickTags().last().id;
        model.toggleDefault(first);
        model.toggleDefault(last);
        QVERIFY(model.quickTags().first().isDefault && model.quickTags().last().isDefault);
        model.deleteTag(first);
        QSignalSpy changed(&model, &SetupWizardModel::changed);
        model.deleteTag(first);
        model.toggleDefault(first);
        QCOMPARE(changed.count(), 0);
        while (!model.quickTags().isEmpty()) {
            model.deleteTag(model.quickTags().first().id);
        }
        model.setSaveSubfolder(QStringLiteral(" ")); // not empty, so it is kept
        model.finishSetup();
        QVERIFY(stage.config.config().quickTags.isEmpty());
        QCOMPARE(stage.config.config().saveSubfolder, QStringLiteral(" "));
    }
};

QTEST_GUILESS_MAIN(SetupWizardModelTest)
#include "SetupWizardModelTest.moc"
