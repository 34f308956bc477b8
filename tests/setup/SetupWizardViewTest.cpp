// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/Dialogs.h>
#include <setup/SetupWizardModel.h>
#include <setup/SetupWizardView.h>
#include <support/TestFiles.h>
#include <ui/Fonts.h>
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
#include <QSignalSpy>

using namespace flitmark;

namespace {

/// Answers at once with the folder it was given, or as a user who cancels.
class PreparedDialogs final : public Dialogs
{
public:
    QString folder;
    QStringList messages;

    void chooseFolder(QWidget&, const QString& message, FolderChosen onChosen) override
    {
        messages.append(message);
        if (!folder.isEmpty()) {
            onChosen(folder);
        }
    }
};

QString nameOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

class SetupWizardViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void mouse_leadsThroughAllSteps();
    void return_leadsThroughAllSteps();
    void back_keepsWhatWasChosen();
    void controls_haveNamesAndRoles_data();
    void controls_haveNamesAndRoles();
    void tab_reachesEveryControl_data();
    void tab_reachesEveryControl();
    void arrows_chooseAVault();
    void customPath_takesOver();
    void customPath_problemIsSaidAndDoesNotBlock();
    void browse_fillsThePath();
    void subfolder_isEchoed();
    void star_keepsTheFocus();
    void trash_movesTheFocusOn();
    void newTag_needsBothFields();
    void newTag_isAddedByReturn();
    void lastStep_sumsUp();
    void scheme_isFollowed();
    void texts_areNeverCut_data();
    void texts_areNeverCut();
    void manyVaults_scroll();
    void step_fadesInAndIsLiveAtOnce();

private:
    void openWizard(int vaults);
    void goTo(int step);
    template<typename T = QWidget>
    T* find(const QString& name, int index = 0);
    void click(const char* name, int index = 0);
    QStringList labels();

    std::unique_ptr<QTemporaryDir> m_home;
    PreparedDialogs m_dialogs;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<SetupWizardModel> m_model;
    std::unique_ptr<SetupWizardView> m_view;
    QFont m_font;
    QPalette m_palette;
};

void SetupWizardViewTest::initTestCase()
{
    m_font = QApplication::font();
    m_palette = QApplication::palette();
}

void SetupWizardViewTest::init()
{
    motion::set(motion::Setting::Never);
    m_dialogs.folder.clear();
    m_dialogs.messages.clear();
}

void SetupWizardViewTest::cleanup()
{
    m_view.reset();
    m_model.reset();
    QApplication::setFont(m_font);
    QApplication::setPalette(m_palette);
}

/// Shows the wizard on a machine with so many vaults, the last named "Vault 1" and so on.
void SetupWizardViewTest::openWizard(int vaults)
{
    m_home = std::make_unique<QTemporaryDir>();
    QStringList entries;
    for (int i = 1; i <= vaults; ++i) {
        entries.append(QStringLiteral(R"("%1": {"path": "%2/Vault %1"})").arg(i).arg(m_home->path()));
    }
    const QString list = QStringLiteral(R"({"vaults": {%1}})").arg(entries.join(u','));
    writeTestFile(m_home->filePath(QStringLiteral("xdg/obsidian/obsidian.json")), list.toUtf8());
    const Directories directories{.home = m_home->path(),
                                  .applicationSupport = m_home->filePath(QStringLiteral("conf")),
                                  .cache = {},
                                  .configHome = m_home->filePath(QStringLiteral("xdg"))};
    m_view.reset();
    m_config = std::make_unique<ConfigManager>(directories);
    m_model = std::make_unique<SetupWizardModel>(*m_config, directories);
    m_view = std::make_unique<SetupWizardView>(*m_model, m_dialogs, ColorPalette::obsidianNative);
    m_view->setLocalHotkeyLine(QStringLiteral("On this computer: ⌥N is Alt+N."));
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

/// Walks forward to `step`, past a vault step that has a vault.
void SetupWizardViewTest::goTo(int step)
{
    while (m_model->currentStep() < step) {
        const int before = m_model->currentStep();
        click(before == SetupWizardModel::welcomeStep ? "Get Started" : "Next");
        QCOMPARE(m_model->currentStep(), before + 1);
    }
    // What the former step leaves behind goes with the next turn.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

template<typename T>
T* SetupWizardViewTest::find(const QString& name, int index)
{
    for (T* widget : m_view->findChildren<T*>()) {
        if (widget->isVisible() && nameOf(widget) == name && index-- == 0) {
            return widget;
        }
    }
    return nullptr;
}

void SetupWizardViewTest::click(const char* name, int index)
{
    auto* button = find<QAbstractButton>(QString::fromUtf8(name), index);
    QVERIFY2(button != nullptr, name);
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList SetupWizardViewTest::labels()
{
    QStringList result;
    for (const QLabel* label : m_view->findChildren<QLabel*>()) {
        if (label->isVisible()) {
            result.append(label->text());
        }
    }
    return result;
}

void SetupWizardViewTest::mouse_leadsThroughAllSteps()
{
    openWizard(2);
    QSignalSpy completed(m_model.get(), &SetupWizardModel::completed);
    QVERIFY(find(QStringLiteral("Back")) == nullptr);
    QVERIFY(labels().contains(QStringLiteral("Quick Note Capture for Obsidian")));
    goTo(SetupWizardModel::vaultStep);
    click("Vault 2");
    goTo(SetupWizardModel::finishStep);
    QVERIFY(!m_config->config().hasCompletedSetup);
    click("Start Using Flitmark");
    QCOMPARE(completed.count(), 1);
    QVERIFY(m_config->config().hasCompletedSetup);
    QCOMPARE(m_config->config().vaultPath, m_home->filePath(QStringLiteral("Vault 2")));
}

void SetupWizardViewTest::return_leadsThroughAllSteps()
{
    openWizard(1);
    QSignalSpy completed(m_model.get(), &SetupWizardModel::completed);
    for (int step = 0; step <= SetupWizardModel::finishStep; ++step) {
        QCOMPARE(m_model->currentStep(), step);
        QWidget* focused = QApplication::focusWidget();
        QVERIFY(focused != nullptr && focused->isVisible());
        QTest::keyClick(focused, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    QCOMPARE(completed.count(), 1);

    // From inside a field as well, but not past the one guard there is.
    openWizard(0);
    goTo(SetupWizardModel::vaultStep);
    QTest::keyClick(find(QStringLiteral("Subfolder")), Qt::Key_Return);
    QCOMPARE(m_model->currentStep(), SetupWizardModel::vaultStep);
    click("Use custom folder path");
    QTest::keyClicks(find(QStringLiteral("Vault path")), QStringLiteral("/v"));
    QTest::keyClick(find(QStringLiteral("Subfolder")), Qt::Key_Return);
    QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);
}

void SetupWizardViewTest::back_keepsWhatWasChosen()
{
    openWizard(2);
    goTo(SetupWizardModel::vaultStep);
    click("Vault 2");
    QTest::keyClicks(find(QStringLiteral("Subfolder")), QStringLiteral("/New"));
    goTo(SetupWizardModel::quickTagsStep);
    QTest::keyClicks(find(QStringLiteral("New tag text")), QStringLiteral("#a"));
    click("Back");
    QCoreApplication::processEvents();
    QVERIFY(find<QAbstractButton>(QStringLiteral("Vault 2"))->isChecked());
    QCOMPARE(find<QLineEdit>(QStringLiteral("Subfolder"))->text(), QStringLiteral("Inbox/New"));
    goTo(SetupWizardModel::quickTagsStep);
    QCOMPARE(find<QLineEdit>(QStringLiteral("New tag text"))->text(), QStringLiteral("#a"));
}

void SetupWizardViewTest::controls_haveNamesAndRoles_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("description");
    const auto row = [](int step, const char* name, QAccessible::Role role, const char* description = "") {
        QTest::addRow("%d %s", step, name)
            << step << QString::fromUtf8(name) << int(role) << QString::fromUtf8(description);
    };
    row(0, "Get Started", QAccessible::Button);
    row(1, "Vault 1", QAccessible::RadioButton, "/Vault 1");
    row(1, "Use custom folder path", QAccessible::CheckBox);
    row(1, "Vault path", QAccessible::EditableText);
    row(1, "Browse", QAccessible::Button);
    row(1, "Subfolder", QAccessible::EditableText);
    row(1, "Back", QAccessible::Button);
    row(1, "Next", QAccessible::Button);
    row(2, "Set as default", QAccessible::Button, "#priority/high");
    row(2, "Delete", QAccessible::Button, "#priority/high");
    row(2, "New tag icon", QAccessible::EditableText);
    row(2, "New tag text", QAccessible::EditableText);
    row(2, "Add tag", QAccessible::Button, "Add tag");
    row(3, "Start Using Flitmark", QAccessible::Button);
}

void SetupWizardViewTest::controls_haveNamesAndRoles()
{
    QFETCH(const int, step);
    QFETCH(const QString, name);
    QFETCH(const int, role);
    QFETCH(const QString, description);
    openWizard(1);
    goTo(step);
    if (step == SetupWizardModel::vaultStep) {
        m_model->setCustomVaultPath(m_home->path());
        m_model->setUseCustomPath(true);
    }
    QWidget* widget = find(name);
    QVERIFY(widget != nullptr);
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    QCOMPARE(int(interface->role()), role);
    if (!description.isEmpty()) {
        QVERIFY(interface->text(QAccessible::Description).endsWith(description));
    }
}

void SetupWizardViewTest::tab_reachesEveryControl_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QStringList>("names");
    const auto row = [](int step, const char* names) {
        QTest::addRow("%d", step) << step << QString::fromUtf8(names).split(u',');
    };
    row(0, "Get Started");
    row(1, "Vault 1,Use custom folder path,Vault path,Browse,Subfolder,Back,Next");
    row(2, "Set as default,Delete,Set as default,Delete,Set as default,Delete,Set as default,Delete,New tag icon,"
           "New tag text,Add tag,Back,Next");
    row(3, "Back,Start Using Flitmark");
}

void SetupWizardViewTest::tab_reachesEveryControl()
{
    QFETCH(const int, step);
    QFETCH(const QStringList, names);
    openWizard(2);
    goTo(step);
    if (step == SetupWizardModel::vaultStep) {
        click("Use custom folder path");
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("/v"));
    }
    // Round from the last control to itself.
    find(names.last())->setFocus();
    for (const QString& name : names) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(nameOf(QApplication::focusWidget()), name);
    }
}

void SetupWizardViewTest::arrows_chooseAVault()
{
    openWizard(3);
    goTo(SetupWizardModel::vaultStep);
    QCOMPARE(nameOf(QApplication::focusWidget()), QStringLiteral("Vault 1"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(m_model->selectedVaultPath(), m_home->filePath(QStringLiteral("Vault 2")));
    QCOMPARE(nameOf(QApplication::focusWidget()), QStringLiteral("Vault 2"));
}

void SetupWizardViewTest::customPath_takesOver()
{
    openWizard(2);
    goTo(SetupWizardModel::vaultStep);
    auto* next = find<QAbstractButton>(QStringLiteral("Next"));
    auto* first = find<QAbstractButton>(QStringLiteral("Vault 1"));
    QVERIFY(first->isChecked() && next->isEnabled());
    QVERIFY(find(QStringLiteral("Vault path")) == nullptr);

    click("Use custom folder path");
    QVERIFY(!first->isChecked());
    QVERIFY(!next->isEnabled());
    QVERIFY(find(QStringLiteral("Vault path"))->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("/some/where"));
    QVERIFY(next->isEnabled());
    QCOMPARE(m_model->getFinalVaultPath(), QStringLiteral("/some/where"));

    // A vault that is clicked counts again, also the one that counted before; the path that was typed is kept.
    click("Vault 1");
    QVERIFY(first->isChecked());
    QVERIFY(!find<QAbstractButton>(QStringLiteral("Use custom folder path"))->isChecked());
    QCOMPARE(m_model->getFinalVaultPath(), m_home->filePath(QStringLiteral("Vault 1")));
    click("Use custom folder path");
    QCOMPARE(find<QLineEdit>(QStringLiteral("Vault path"))->text(), QStringLiteral("/some/where"));
    click("Use custom folder path");
    QVERIFY(first->isChecked());
    QVERIFY(next->isEnabled());
}

void SetupWizardViewTest::customPath_problemIsSaidAndDoesNotBlock()
{
    openWizard(0);
    goTo(SetupWizardModel::vaultStep);
    click("Use custom folder path");
    auto* field = find<QLineEdit>(QStringLiteral("Vault path"));
    const qsizetype calm = labels().size();
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("/no/such/folder"));
    QVERIFY(labels().contains(m_model->vaultPathProblem()));
    QVERIFY(find<QAbstractButton>(QStringLiteral("Next"))->isEnabled());
    field->selectAll();
    QTest::keyClicks(field, m_home->path());
    QCOMPARE(labels().size(), calm);
    // Typing in the middle leaves the caret where it is.
    field->setCursorPosition(1);
    QTest::keyClicks(field, QStringLiteral("xy"));
    QCOMPARE(field->cursorPosition(), 3);
}

void SetupWizardViewTest::browse_fillsThePath()
{
    openWizard(1);
    goTo(SetupWizardModel::vaultStep);
    click("Use custom folder path");
    click("Browse");
    QCOMPARE(m_dialogs.messages, {QStringLiteral("Select your Obsidian vault folder")});
    QCOMPARE(m_model->customVaultPath(), QString());

    m_dialogs.folder = m_home->path();
    click("Browse");
    QCOMPARE(find<QLineEdit>(QStringLiteral("Vault path"))->text(), m_home->path());
    QCOMPARE(m_model->getFinalVaultPath(), m_home->path());
}

void SetupWizardViewTest::subfolder_isEchoed()
{
    openWizard(1);
    goTo(SetupWizardModel::vaultStep);
    auto* field = find<QLineEdit>(QStringLiteral("Subfolder"));
    QCOMPARE(field->text(), QStringLiteral("Inbox"));
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("Ideas/50%1"));
    QVERIFY(labels().contains(QStringLiteral("Notes will be saved to: vault/Ideas/50%1")));
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QVERIFY(labels().contains(QStringLiteral("Notes will be saved to: vault/Inbox")));
    QCOMPARE(field->text(), QString());
}

void SetupWizardViewTest::star_keepsTheFocus()
{
    openWizard(1);
    goTo(SetupWizardModel::quickTagsStep);
    auto* star = find<QAbstractButton>(QStringLiteral("Set as default"), 2);
    star->setFocus(Qt::TabFocusReason);
    QTest::keyClick(star, Qt::Key_Space);
    QVERIFY(m_model->quickTags()[2].isDefault);
    QVERIFY(star->hasFocus());
    QCOMPARE(nameOf(star), QStringLiteral("Remove as default"));
    QCOMPARE(star->toolTip(), QStringLiteral("Remove as default"));
    QCOMPARE(labels().count(QStringLiteral("Default")), 1);
    click("Set as default", 0);
    QCOMPARE(labels().count(QStringLiteral("Default")), 2);
    QTest::keyClick(star, Qt::Key_Space);
    QVERIFY(!m_model->quickTags()[2].isDefault);
    QCOMPARE(labels().count(QStringLiteral("Default")), 1);
}

void SetupWizardViewTest::trash_movesTheFocusOn()
{
    openWizard(1);
    goTo(SetupWizardModel::quickTagsStep);
    const auto describedAs = [] {
        return QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Description);
    };
    find(QStringLiteral("Delete"), 1)->setFocus(Qt::TabFocusReason);
    for (const char* next : {"#type/idea", "#type/task", "#priority/high"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(describedAs(), QString::fromUtf8(next));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(m_model->quickTags().isEmpty());
    QCOMPARE(nameOf(QApplication::focusWidget()), QStringLiteral("New tag icon"));
    goTo(SetupWizardModel::finishStep);
    QVERIFY(labels().contains(QStringLiteral("0 configured")));
}

void SetupWizardViewTest::newTag_needsBothFields()
{
    openWizard(1);
    goTo(SetupWizardModel::quickTagsStep);
    auto* icon = find<QLineEdit>(QStringLiteral("New tag icon"));
    auto* text = find<QLineEdit>(QStringLiteral("New tag text"));
    QTest::keyClicks(text, QStringLiteral("#a & b"));
    click("Add tag");
    QCOMPARE(m_model->quickTags().size(), 4);
    QCOMPARE(text->text(), QStringLiteral("#a & b"));
    QVERIFY(icon->hasFocus());

    // As assistive technology puts a text in.
    icon->setText(QStringLiteral("🎯"));
    click("Add tag");
    QCOMPARE(m_model->quickTags().size(), 5);
    QCOMPARE(m_model->quickTags().last().appendText, QStringLiteral("#a & b"));
    QCOMPARE(icon->text() + text->text(), QString());
    QCoreApplication::processEvents();
    QVERIFY(labels().contains(QStringLiteral("#a & b")));
    // The new row stands last on the way through the rows, before the fields.
    find(QStringLiteral("Delete"), 4)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(icon->hasFocus());
}

void SetupWizardViewTest::newTag_isAddedByReturn()
{
    openWizard(1);
    goTo(SetupWizardModel::quickTagsStep);
    auto* icon = find<QLineEdit>(QStringLiteral("New tag icon"));
    auto* text = find<QLineEdit>(QStringLiteral("New tag text"));
    icon->setFocus();
    QTest::keyClicks(icon, QStringLiteral("x"));
    QTest::keyClick(icon, Qt::Key_Return);
    QVERIFY(text->hasFocus());
    QTest::keyClicks(text, QStringLiteral("#x"));
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(m_model->quickTags().size(), 5);
    QCOMPARE(m_model->currentStep(), SetupWizardModel::quickTagsStep);
    QVERIFY(icon->hasFocus());
    QTest::keyClick(icon, Qt::Key_Return);
    QCOMPARE(m_model->currentStep(), SetupWizardModel::finishStep);
}

void SetupWizardViewTest::lastStep_sumsUp()
{
    openWizard(1);
    goTo(SetupWizardModel::vaultStep);
    auto* subfolder = find<QLineEdit>(QStringLiteral("Subfolder"));
    subfolder->selectAll();
    QTest::keyClick(subfolder, Qt::Key_Delete);
    goTo(SetupWizardModel::finishStep);
    const QStringList expected{m_home->filePath(QStringLiteral("Vault 1")), QStringLiteral("Inbox"),
                               QStringLiteral("4 configured"), QStringLiteral("⌥N (Option + N)"),
                               QStringLiteral("On this computer: ⌥N is Alt+N.")};
    for (const QString& text : expected) {
        QVERIFY2(labels().contains(text), qPrintable(text));
    }
    m_view->setLocalHotkeyLine(QStringLiteral("On this computer: another program has Alt+N."));
    QCoreApplication::processEvents();
    QVERIFY(labels().contains(QStringLiteral("On this computer: another program has Alt+N.")));
    QVERIFY(!labels().contains(expected.last()));
}

void SetupWizardViewTest::scheme_isFollowed()
{
    QApplication::setPalette(QPalette(Qt::white, Qt::white));
    openWizard(1);
    QVERIFY(!ThemeScope::of(*m_view).isDark);
    QApplication::setPalette(QPalette(QColor(40, 40, 42), QColor(40, 40, 42)));
    QTRY_VERIFY(ThemeScope::of(*m_view).isDark);
    QCOMPARE(ThemeScope::of(*m_view).primary, themeOfPalette(ColorPalette::obsidianNative).primary);
    QCOMPARE(m_view->grab().toImage().pixelColor(2, 2), ThemeScope::of(*m_view).background);
}

void SetupWizardViewTest::texts_areNeverCut_data()
{
    QTest::addColumn<double>("points");
    QTest::newRow("as designed") << 10.0;
    QTest::newRow("half as large again") << 16.5;
}

void SetupWizardViewTest::texts_areNeverCut()
{
    QFETCH(const double, points);
    QFont font = m_font;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    openWizard(3);
    for (int step = 0; step <= SetupWizardModel::finishStep; ++step) {
        goTo(step);
        QCOMPARE(m_view->size(), QSize(500, 550));
        for (QLabel* label : m_view->findChildren<QLabel*>()) {
            const bool isCut =
                label->isVisible() && label->wordWrap() && label->height() < label->heightForWidth(label->width());
            QVERIFY2(!isCut, qPrintable(label->text()));
        }
        for (QWidget* widget : m_view->findChildren<QAbstractButton*>()) {
            const QRect place(widget->mapTo(m_view.get(), QPoint()), widget->size());
            const bool isCut =
                widget->isVisible() && (widget->width() < widget->sizeHint().width() ||
                                        widget->height() < widget->sizeHint().height() || place.right() >= 500);
            QVERIFY2(!isCut, qPrintable(nameOf(widget)));
        }
        // All of it can be scrolled into view, also by keyboard where nothing in it takes the focus.
        const auto* area = m_view->findChild<QScrollArea*>();
        QVERIFY(area->widget()->height() >= area->widget()->layout()->heightForWidth(area->widget()->width()));
        QTest::keyClick(find(QStringLiteral("Back")) != nullptr ? find(QStringLiteral("Back")) : m_view.get(),
                        Qt::Key_PageDown);
        QTest::keyClick(m_view.get(), Qt::Key_PageDown);
        QCOMPARE(area->verticalScrollBar()->value(), area->verticalScrollBar()->maximum());
    }
}

void SetupWizardViewTest::manyVaults_scroll()
{
    openWizard(30);
    goTo(SetupWizardModel::vaultStep);
    const auto* area = m_view->findChild<QScrollArea*>();
    QVERIFY(area->verticalScrollBar()->maximum() > 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QWidget* focused = QApplication::focusWidget();
    const QRect place(focused->mapTo(area->viewport(), QPoint()), focused->size());
    QVERIFY(area->viewport()->rect().contains(place));
    QVERIFY(static_cast<QAbstractButton*>(focused)->isChecked());
    // The next step begins at its top.
    goTo(SetupWizardModel::quickTagsStep);
    QCOMPARE(area->verticalScrollBar()->value(), 0);
}

void SetupWizardViewTest::step_fadesInAndIsLiveAtOnce()
{
    motion::set(motion::Setting::AsDesktop);
    openWizard(2);
    click("Get Started");
    auto* area = m_view->findChild<QScrollArea*>();
    const QImage early = area->grab().toImage();
    click("Vault 2");
    QCOMPARE(m_model->selectedVaultPath(), m_home->filePath(QStringLiteral("Vault 2")));
    m_model->selectVault(m_home->filePath(QStringLiteral("Vault 1")));
    QTRY_VERIFY(area->grab().toImage() != early);
    const auto curtains = [area] { return area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly).size(); };
    const qsizetype during = curtains();
    QTRY_VERIFY(curtains() < during);
}

QTEST_MAIN(SetupWizardViewTest)
#include "SetupWizardViewTest.moc"
