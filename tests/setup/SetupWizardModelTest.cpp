// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardModel.h>
#include <support/TestFiles.h>

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
    void vaultStep_waitsForAVaultAndSaysWhatIsWrong()
    {
        Stage empty("");
        empty.model.forward();
        empty.model.forward();
        QCOMPARE(empty.model.currentStep(), SetupWizardModel::vaultStep);
        Stage stage;
        stage.model.forward();
        QVERIFY(stage.model.canProceed());
        stage.model.setUseCustomPath(true);
        const QString relative = QStringLiteral("This is not a full path: it has to begin with a slash.");
        for (const auto& [path, problem] : {
                 std::pair("", QStringLiteral("Choose the folder of your vault.")),
                 {"/usr", QString()},
                 {"Notes", relative},
                 {"~/Notes", relative},
                 {"/missing", QStringLiteral("There is no folder at this path.")},
                 {"/etc/passwd", QStringLiteral("This is a file, not a folder.")},
             }) {
            stage.model.setCustomVaultPath(QString::fromLatin1(path));
            QCOMPARE(stage.model.vaultPathProblem(), problem);
            QCOMPARE(stage.model.canProceed(), *path != 0);
        }
    }
    void quickTags_mayAllGo()
    {
        Stage stage;
        SetupWizardModel& model = stage.model;
        while (!model.quickTags().isEmpty()) {
            const QUuid first = model.quickTags().first().id;
            model.deleteTag(first);
            model.deleteTag(first);
            model.toggleDefault(first);
        }
        model.setSaveSubfolder(QStringLiteral(" ")); // not empty, so it is kept
        model.finishSetup();
        QVERIFY(stage.config.config().quickTags.isEmpty());
        QCOMPARE(stage.config.config().saveSubfolder, QStringLiteral(" "));
    }
};

QTEST_GUILESS_MAIN(SetupWizardModelTest)
#include "SetupWizardModelTest.moc"
