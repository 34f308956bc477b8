// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <setup/SetupWizardModel.h>
#include <setup/SetupWizardView.h>
#include <support/DesktopDoubles.h>
#include <support/TestFiles.h>
#include <ui/Motion.h>
#include <ui/ThemeScope.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

using namespace flitmark;

namespace {

QString spoken(QWidget* widget, QAccessible::Text what = QAccessible::Name)
{
    return QAccessible::queryAccessibleInterface(widget)->text(what);
}

void press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

void type(QLineEdit* field, const QString& text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

} // namespace

class SetupWizardViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { motion::set(motion::Setting::Never); }
    void cleanup()
    {
        m_view.reset();
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
    }

    void mouse_leadsThroughAllStepsAndBack()
    {
        openWizard(2, SetupWizardModel::vaultStep);
        click("Vault 2");
        type(field("Subfolder"), QStringLiteral("Ideas/50%1"));
        QVERIFY(shows(QStringLiteral("Notes will be saved to: vault/Ideas/50%1")));
        type(field("Subfolder"), QString());
        QVERIFY(shows(QStringLiteral("Notes will be saved to: vault/Inbox")));
        click("Next");
        type(field("New tag text"), QStringLiteral("#a"));
        click("Back");
        QVERIFY(find<QAbstractButton>("Vault 2")->isChecked());
        QCOMPARE(field("Subfolder")->text(), QString());
        click("Next");
        QCOMPARE(field("New tag text")->text(), QStringLiteral("#a"));
        click("Next");
        const QString vault = m_home->filePath(QStringLiteral("Vault 2"));
        for (const QString& text : {vault, QStringLiteral("Inbox"), QStringLiteral("4 configured"),
                                    QStringLiteral("⌥N (Option + N)"), QStringLiteral("⌥N is Alt+N.")}) {
            QVERIFY2(shows(text), qPrintable(text));
        }
        m_view->setLocalHotkeyLine(QStringLiteral("Another program has Alt+N."));
        QVERIFY(shows(QStringLiteral("Another program has Alt+N.")));
        QVERIFY(!m_config->config().hasCompletedSetup);
        click("Start Using Flitmark");
        QVERIFY(m_config->config().hasCompletedSetup);
        QCOMPARE(m_config->config().vaultPath, vault);
    }
    void return_leadsOnWhereTheStepIsComplete()
    {
        openWizard(0, SetupWizardModel::welcomeStep);
        QTest::keyClick(m_view.get(), Qt::Key_Return);
        QTest::keyClick(field("Subfolder"), Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::vaultStep);
        click("Use custom folder path");
        type(field("Vault path"), QStringLiteral("/v"));
        press(Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);

        // Here Return adds the tag that is being written.
        type(field("New tag icon"), QStringLiteral("x"));
        press(Qt::Key_Return);
        QVERIFY(field("New tag text")->hasFocus());
        type(field("New tag text"), QStringLiteral("#a & b"));
        press(Qt::Key_Return);
        QCOMPARE(m_model->quickTags().last().appendText, QStringLiteral("#a & b"));
        QVERIFY(shows(QStringLiteral("#a & b")));
        QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);
        QVERIFY(field("New tag icon")->hasFocus());
        type(field("New tag text"), QStringLiteral("#c"));
        click("Add tag");
        QCOMPARE(m_model->quickTags().size(), 5);
        QCOMPARE(field("New tag text")->text(), QStringLiteral("#c"));
        type(field("New tag text"), QString());
        press(Qt::Key_Return);
        QCOMPARE(m_model->currentStep(), SetupWizardModel::finishStep);
        press(Qt::Key_Return);
        QVERIFY(m_config->config().hasCompletedSetup);
    }

    void tab_reachesEveryControlByNameAndRole_data()
    {
        QTest::addColumn<QString>("stops");
        QTest::newRow("0") << QStringLiteral("Get Started");
        QTest::newRow("1") << QStringLiteral(
            "(Vault 1),[Use custom folder path],_Vault path,Browse,_Subfolder,Back,Next");
        QTest::newRow("2") << QStringLiteral("Set as default,Delete,").repeated(4) +
                                  QStringLiteral("_New tag icon,_New tag text,Add tag,Back,Next");
        QTest::newRow("3") << QStringLiteral("Back,Start Using Flitmark");
    }
    void tab_reachesEveryControlByNameAndRole()
    {
        QFETCH(const QString, stops);
        openWizard(2, QByteArray(QTest::currentDataTag()).toInt());
        if (m_model->currentStep() == SetupWizardModel::vaultStep) {
            QVERIFY(spoken(find("Vault 1"), QAccessible::Description).endsWith(QStringLiteral("/Vault 1")));
            click("Use custom folder path");
            type(field("Vault path"), QStringLiteral("/v"));
        }
        // Round from the last control to itself.
        find(stops.section(u',', -1).toUtf8().constData())->setFocus();
        const QHash<int, QString> marks{{QAccessible::Button, QStringLiteral("%1")},
                                        {QAccessible::RadioButton, QStringLiteral("(%1)")},
                                        {QAccessible::CheckBox, QStringLiteral("[%1]")},
                                        {QAccessible::EditableText, QStringLiteral("_%1")}};
        for (const QString& stop : stops.split(u',')) {
            press(Qt::Key_Tab);
            QWidget* focused = QApplication::focusWidget();
            QCOMPARE(marks.value(QAccessible::queryAccessibleInterface(focused)->role()).arg(spoken(focused)), stop);
        }
    }

    void customPath_takesOver()
    {
        openWizard(2, SetupWizardModel::vaultStep);
        auto* next = find<QAbstractButton>("Next");
        auto* first = find<QAbstractButton>("Vault 1");
        QVERIFY(first->isChecked() && next->isEnabled() && find("Vault path") == nullptr);
        click("Use custom folder path");
        QVERIFY(!first->isChecked() && !next->isEnabled() && field("Vault path")->hasFocus());
        type(field("Vault path"), QStringLiteral("/no/such/folder"));
        QVERIFY(shows(m_model->vaultPathProblem()));
        QVERIFY(next->isEnabled());
        // Typing in the middle leaves the caret where it is.
        field("Vault path")->setCursorPosition(3);
        QTest::keyClicks(field("Vault path"), QStringLiteral("xy"));
        QCOMPARE(field("Vault path")->cursorPosition(), 5);

        // A vault that is clicked counts again, also the one that counted before; the path that was typed is kept.
        click("Vault 1");
        QVERIFY(first->isChecked() && !find<QAbstractButton>("Use custom folder path")->isChecked());
        QCOMPARE(m_model->getFinalVaultPath(), m_home->filePath(QStringLiteral("Vault 1")));
        click("Use custom folder path");
        click("Browse"); // and cancel
        QCOMPARE(field("Vault path")->text(), QStringLiteral("/noxy/such/folder"));
        m_dialogs.answer = m_home->path();
        click("Browse");
        QCOMPARE(m_dialogs.messages.value(1), QStringLiteral("Select your Obsidian vault folder"));
        QCOMPARE(m_model->getFinalVaultPath(), m_home->path());
        QCOMPARE(field("Vault path")->text(), m_home->path());
    }
    void tagRows_keepTheFocus()
    {
        openWizard(1, SetupWizardModel::quickTagsStep);
        auto* star = find<QAbstractButton>("Set as default", 2);
        star->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Space);
        QVERIFY(m_model->quickTags()[2].isDefault && star->hasFocus() && shows(QStringLiteral("Default")));
        QCOMPARE(spoken(star), QStringLiteral("Remove as default"));
        press(Qt::Key_Space);
        QVERIFY(!m_model->quickTags()[2].isDefault && !shows(QStringLiteral("Default")));

        find("Delete", 1)->setFocus(Qt::TabFocusReason);
        for (const char* next : {"#type/idea", "#type/task", "#priority/high"}) {
            press(Qt::Key_Space);
            QCOMPARE(spoken(QApplication::focusWidget(), QAccessible::Description), QLatin1String(next));
            settle();
        }
        press(Qt::Key_Space);
        QCOMPARE(spoken(QApplication::focusWidget()), QStringLiteral("New tag icon"));
        click("Next");
        QVERIFY(shows(QStringLiteral("0 configured")));
    }
    void manyVaults_areChosenByArrowsAndScroll()
    {
        openWizard(30, SetupWizardModel::vaultStep);
        const auto* area = m_view->findChild<QScrollArea*>();
        QCOMPARE(spoken(QApplication::focusWidget()), QStringLiteral("Vault 1"));
        for (int i = 0; i < 15; ++i) {
            press(Qt::Key_Down);
        }
        QWidget* focused = QApplication::focusWidget();
        QCOMPARE(m_model->selectedVaultPath(), m_home->filePath(spoken(focused)));
        QVERIFY(area->verticalScrollBar()->value() > 0);
        QVERIFY(area->viewport()->rect().contains({focused->mapTo(area->viewport(), QPoint()), focused->size()}));
        // The next step begins at its top.
        click("Next");
        QCOMPARE(area->verticalScrollBar()->value(), 0);
    }

    void scheme_isFollowed()
    {
        QApplication::setPalette(QPalette(Qt::white, Qt::white));
        openWizard(1, SetupWizardModel::welcomeStep);
        QVERIFY(!ThemeScope::of(*m_view).isDark);
        QApplication::setPalette(QPalette(QColor(40, 40, 42), QColor(40, 40, 42)));
        QTRY_VERIFY(ThemeScope::of(*m_view).isDark);
        QCOMPARE(m_view->grab().toImage().pixelColor(2, 2), ThemeScope::of(*m_view).background);
    }
    void largeTexts_areNeverCut()
    {
        QFont font = m_font;
        font.setPointSizeF(16.5);
        QApplication::setFont(font);
        for (int step = 0; step <= SetupWizardModel::finishStep; ++step) {
            openWizard(3, step);
            QCOMPARE(m_view->size(), QSize(500, 550));
            for (const QLabel* label : m_view->findChildren<QLabel*>()) {
                QVERIFY2(!label->isVisible() || label->height() >= label->heightForWidth(label->width()),
                         qPrintable(label->text()));
            }
            for (QWidget* widget : m_view->findChildren<QAbstractButton*>()) {
                const bool isCut = widget->size().expandedTo(widget->sizeHint()) != widget->size() ||
                                   widget->mapTo(m_view.get(), widget->rect().bottomRight()).x() >= 500;
                QVERIFY2(!widget->isVisible() || !isCut, qPrintable(spoken(widget)));
            }
            // All of it can be scrolled into view, also by keyboard where nothing in it takes the focus.
            const auto* area = m_view->findChild<QScrollArea*>();
            QVERIFY(area->widget()->height() >= area->widget()->layout()->heightForWidth(area->widget()->width()));
            QTest::keyClick(m_view.get(), Qt::Key_PageDown);
            QTest::keyClick(m_view.get(), Qt::Key_PageDown);
            QCOMPARE(area->verticalScrollBar()->value(), area->verticalScrollBar()->maximum());
        }
    }
    void step_fadesInAndIsLiveAtOnce()
    {
        motion::set(motion::Setting::AsDesktop);
        openWizard(2, SetupWizardModel::vaultStep);
        auto* area = m_view->findChild<QScrollArea*>();
        const QImage early = area->grab().toImage();
        click("Vault 2");
        QCOMPARE(m_model->selectedVaultPath(), m_home->filePath(QStringLiteral("Vault 2")));
        m_model->selectVault(m_home->filePath(QStringLiteral("Vault 1")));
        QTRY_VERIFY(area->grab().toImage() != early);
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
        writeTestFile(m_home->filePath(QStringLiteral("obsidian/obsidian.json")), list.toUtf8());
        const Directories directories{m_home->path(), m_home->filePath(QStringLiteral("conf")), {}, m_home->path()};
        m_view.reset();
        m_config = std::make_unique<ConfigManager>(directories);
        m_model = std::make_unique<SetupWizardModel>(*m_config, directories);
        m_view = std::make_unique<SetupWizardView>(*m_model, m_dialogs, ColorPalette::obsidianNative);
        m_view->setLocalHotkeyLine(QStringLiteral("⌥N is Alt+N."));
        m_view->show();
        m_view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        while (m_model->currentStep() < step) {
            click(m_model->currentStep() == SetupWizardModel::welcomeStep ? "Get Started" : "Next");
        }
    }
    /// Lets go what was replaced: that happens with the next turn.
    static void settle()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    template<typename T = QWidget>
    T* find(const char* name, int index = 0)
    {
        for (T* widget : m_view->findChildren<T*>()) {
            if (widget->isVisible() && spoken(widget) == QString::fromUtf8(name) && index-- == 0) {
                return widget;
            }
        }
        return nullptr;
    }
    QLineEdit* field(const char* name) { return find<QLineEdit>(name); }
    void click(const char* name)
    {
        auto* button = find<QAbstractButton>(name);
        QVERIFY2(button != nullptr && button->isEnabled(), name);
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
    bool shows(const QString& text)
    {
        settle();
        const QList<QLabel*> labels = m_view->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
    }

    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
    FakeDialogs m_dialogs;
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<SetupWizardModel> m_model;
    std::unique_ptr<SetupWizardView> m_view;
};

QTEST_MAIN(SetupWizardViewTest)
#include "SetupWizardViewTest.moc"
