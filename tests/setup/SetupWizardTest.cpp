// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardModel.h>
#include <setup/SetupWizardView.h>
#include <support/Accessible.h>
#include <support/DesktopDoubles.h>
#include <support/TestFiles.h>
#include <ui/Motion.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>

using namespace flitmark;

class SetupWizardTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { motion::set(motion::Setting::Never); }
    void cleanup()
    {
        m_view.reset();
        QApplication::setFont(m_font);
    }

    void return_leadsOnWhereTheStepIsComplete()
    {
        openWizard(0, SetupWizardModel::welcomeStep);
        QTest::keyClick(m_view.get(), Qt::Key_Return);
        type(field("Subfolder"), {});
        QTest::keyClick(field("Subfolder"), Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::vaultStep);
        click("Use custom folder path");
        type(field("Vault path"), "/v");
        press(Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);

        // Here Return adds the tag that is being written.
        type(field("New tag icon"), "x");
        press(Qt::Key_Return);
        QVERIFY(field("New tag text")->hasFocus());
        type(field("New tag text"), "#a & b");
        press(Qt::Key_Return);
        QCOMPARE(m_model->quickTags().last().appendText, "#a & b");
        QVERIFY(field("New tag icon")->hasFocus());
        click("Back"); // and what was entered is still there
        QCOMPARE(field("Vault path")->text(), "/v");
        click("Next");
        press(Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::finishStep);
        QSignalSpy completed(m_model.get(), &SetupWizardModel::completed);
        press(Qt::Key_Return);
        press(Qt::Key_Return); // too often
        QCOMPARE(completed.size(), 1);
        QVERIFY(m_config->config().hasCompletedSetup);
        QCOMPARE(m_config->config().vaultPath, "/v");
        QCOMPARE(m_config->config().saveSubfolder, "Inbox");
    }

    void everyStep_isReachedByTabAndNeverCut()
    {
        const char* const steps[] = {
            "Get Started",
            "Vault 1,Use custom folder path,Vault path,Browse,Subfolder,Back,Next",
            "Set as default,Delete,Set as default,Delete,Set as default,Delete,Set as default,Delete,"
            "New tag icon,New tag text,Add tag,Back,Next",
            "Back,Start Using Flitmark",
        };
        QFont font = m_font;
        font.setPointSizeF(16.5);
        QApplication::setFont(font);
        for (int step = 0; step <= SetupWizardModel::finishStep; ++step) {
            openWizard(2, step);
            QCOMPARE(m_view->size(), QSize(500, 550));
            QCOMPARE(cutOff(*m_view), QStringList());
            // Scrolled by keyboard also where nothing in it takes the focus.
            const QScrollBar* bar = m_view->findChild<QScrollArea*>()->verticalScrollBar();
            QTest::keyClick(m_view.get(), Qt::Key_PageDown);
            QTest::keyClick(m_view.get(), Qt::Key_PageDown);
            QCOMPARE(bar->value(), bar->maximum());
            if (step == SetupWizardModel::vaultStep) {
                click("Use custom folder path");
                type(field("Vault path"), "/v");
            }
            const QStringList stops = QString::fromLatin1(steps[step]).split(u',');
            find(stops.last())->setFocus(); // round from the last control to itself
            for (const QString& stop : stops) {
                press(Qt::Key_Tab);
                QCOMPARE(spoken(QApplication::focusWidget()), stop);
            }
        }
    }

    void customPath_takesOverAndSaysWhatIsWrongWithIt()
    {
        openWizard(2, SetupWizardModel::vaultStep);
        click("Use custom folder path");
        QVERIFY(!find<QAbstractButton>("Vault 1")->isChecked() && field("Vault path")->hasFocus());
        type(field("Subfolder"), "Ideas");
        QVERIFY(shows(*m_view, "Notes will be saved to: vault/Ideas"));
        QVERIFY(
            shows(*m_view, "What you write in the panel goes to vault/Inbox. The settings' Notes page changes that."));
        field("Vault path")->setFocus();
        for (const auto& [path, problem] : {
                 std::pair("", "Choose the folder of your vault."),
                 {"/usr", ""},
                 {"~/Notes", "This is not a full path: it has to begin with a slash."},
                 {"/missing", "There is no folder at this path."},
                 {"/etc/passwd", "This is a file, not a folder."},
             }) {
            m_model->setCustomVaultPath(path);
            QCOMPARE(m_model->vaultPathProblem(), problem);
            QVERIFY(*path == 0 || *problem == 0 || shows(*m_view, problem));
            QCOMPARE(find<QAbstractButton>("Next")->isEnabled(), *path != 0);
        }
        type(field("Vault path"), "/no/such");
        // Typing in the middle leaves the caret where it is.
        field("Vault path")->setCursorPosition(3);
        QTest::keyClicks(field("Vault path"), "xy");
        QCOMPARE(field("Vault path")->cursorPosition(), 5);
        click("Vault 1"); // counts again; the path that was typed is kept
        QCOMPARE(m_model->getFinalVaultPath(), m_home->filePath("Vault 1"));
        click("Use custom folder path");
        QCOMPARE(m_model->getFinalVaultPath(), "/noxy/such");
        m_dialogs.answer = m_home->path();
        click("Browse");
        QCOMPARE(field("Vault path")->text(), m_home->path());
    }
    void tagRows_keepTheFocusAndMayAllGo()
    {
        openWizard(1, SetupWizardModel::quickTagsStep);
        auto* star = find<QAbstractButton>("Set as default", 2);
        star->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Space);
        QVERIFY(m_model->quickTags()[2].isDefault && star->hasFocus() && shows(*m_view, "Default"));
        find("Delete", 1)->setFocus(Qt::TabFocusReason);
        for (const char* next : {"💡 #type/idea", "✅ #type/task", "🔥 #priority/high"}) {
            press(Qt::Key_Space);
            QCOMPARE(spoken(QApplication::focusWidget(), QAccessible::Description), next);
            settle();
        }
        press(Qt::Key_Space);
        QCOMPARE(spoken(QApplication::focusWidget()), "New tag icon");
        m_model->setSaveSubfolder(" "); // not empty, so it is kept
        m_model->finishSetup();
        QVERIFY(m_config->config().quickTags.isEmpty());
        QCOMPARE(m_config->config().saveSubfolder, " ");
    }
    void manyVaults_areChosenByArrowsAndScroll()
    {
        openWizard(30, SetupWizardModel::vaultStep);
        const auto* area = m_view->findChild<QScrollArea*>();
        for (int i = 0; i < 15; ++i) {
            press(Qt::Key_Down);
        }
        QWidget* focused = QApplication::focusWidget();
        QCOMPARE(m_model->selectedVaultPath(), m_home->filePath(spoken(focused)));
        QVERIFY(area->viewport()->rect().contains({focused->mapTo(area->viewport(), QPoint()), focused->size()}));
    }

private:
    /// Shows the wizard at `step` on a machine with so many vaults, named "Vault 1" and so on.
    void openWizard(int vaults, int step)
    {
        m_home = std::make_unique<QTemporaryDir>();
        QStringList entries;
        for (int i = 1; i <= vaults; ++i) {
            entries.append(QStringLiteral(R"("%1": {"path": "%2/Vault %1"})").arg(i).arg(m_home->path()));
        }
        const QString list = QStringLiteral(R"({"vaults": {%1}})").arg(entries.join(u','));
        writeTestFile(m_home->filePath("obsidian/obsidian.json"), list.toUtf8());
        const Directories directories{m_home->path(), m_home->filePath("conf"), {}, m_home->path()};
        m_view.reset();
        m_config = std::make_unique<ConfigManager>(directories);
        m_model = std::make_unique<SetupWizardModel>(*m_config, directories);
        m_view = std::make_unique<SetupWizardView>(*m_model, m_dialogs, ColorPalette::obsidianNative);
        showActive(*m_view);
        while (m_model->currentStep() < step) {
            click(m_model->currentStep() == SetupWizardModel::welcomeStep ? "Get Started" : "Next");
        }
    }
    template<typename T = QWidget>
    T* find(QAnyStringView name, int index = 0)
    {
        return allNamed<T>(*m_view, name).value(index);
    }
    QLineEdit* field(const char* name) { return find<QLineEdit>(name); }
    void click(const char* name) { flitmark::click(*m_view, name); }

    const QFont m_font = QApplication::font();
    FakeDialogs m_dialogs;
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<SetupWizardModel> m_model;
    std::unique_ptr<SetupWizardView> m_view;
};

QTEST_MAIN(SetupWizardTest)
#include "SetupWizardTest.moc"
