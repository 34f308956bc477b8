// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseList.h>
#include <capture/BrowseModel.h>
#include <capture/BrowseView.h>
#include <config/ConfigManager.h>
#include <support/Accessible.h>
#include <support/ManualRunLoop.h>
#include <support/TestFiles.h>
#include <support/TestWorkspace.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest/QTest>

using namespace flitmark;

namespace {

/// The tab over a vault of real files, in a window of its own.
class Tab
{
public:
    explicit Tab(const QList<std::pair<QString, QByteArray>>& files = {})
    {
        QVERIFY(QDir().mkpath(vault));
        for (const auto& [path, text] : files) {
            writeTestFile(vault + u'/' + path, text);
        }
        config.update([this](AppConfig& changed) { changed.vaultPath = vault; });
        view.resize(460, 500);
        view.show();
        view.activateWindow();
        isActive = QTest::qWaitForWindowActive(&view);
        view.appeared();
    }

    BrowseList& list() { return *view.findChild<BrowseList*>(); }
    int rowCount() { return list().model()->rowCount(); }
    QStringList names()
    {
        QStringList names;
        for (int i = 0; i < rowCount(); ++i) {
            names.append(list().model()->index(i, 0).data().toString());
        }
        return names;
    }
    QPoint middleOf(const QString& name)
    {
        return list().visualRect(list().model()->index(static_cast<int>(names().indexOf(name)), 0)).center();
    }
    void click(const QString& name) { QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middleOf(name)); }
    void press(const QString& button) { QTest::mouseClick(named<QPushButton>(view, button), Qt::LeftButton); }

    QTemporaryDir home;
    QString vault = home.filePath(QStringLiteral("My Vault"));
    Directories directories{home.path(), home.filePath(QStringLiteral("support")), {}};
    ManualRunLoop runLoop;
    TestWorkspace workspace;
    ConfigManager config{directories};
    BrowseModel model{config, workspace, runLoop};
    BrowseView view{model};
    bool isActive = false;
};

const QList<std::pair<QString, QByteArray>> smallVault{
    {QStringLiteral("Projects/Landing page/plan.md"), "# Plan\nFinalize release notes\n"},
    {QStringLiteral("Projects/todo.md"), "x"},
    {QStringLiteral("an idea.md"), "Your thoughts, filed before they fade\n"},
    {QStringLiteral("b.md"), ""},
};

} // namespace

class BrowseViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void list_tellsNamesAndTextsToScreenReaders()
    {
        Tab tab(smallVault);
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&tab.list());
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Vault items"));
        QCOMPARE(tab.names(),
                 (QStringList{QStringLiteral("Projects"), QStringLiteral("an idea.md"), QStringLiteral("b.md")}));
        QCOMPARE(list->childCount(), 3);
        QCOMPARE(list->child(0)->text(QAccessible::Name), QStringLiteral("Projects"));
        QCOMPARE(list->child(0)->text(QAccessible::Description), QString());
        QCOMPARE(list->child(1)->text(QAccessible::Name), QStringLiteral("an idea.md"));
        QCOMPARE(list->child(1)->text(QAccessible::Description),
                 QStringLiteral("Your thoughts, filed before they fade"));
        QVERIFY(visibleTexts(tab.view).contains(QStringLiteral("1 folders, 2 notes")));
    }
    void emptyFolder_saysSoAndKeepsTheKeyboardInTheTab()
    {
        Tab tab(smallVault);
        QVERIFY(QDir().mkpath(tab.vault + QStringLiteral("/0 nothing")));
        tab.press(QStringLiteral("Refresh"));
        tab.view.takeKeyboard();
        QTest::keyClick(&tab.list(), Qt::Key_Home);
        QTest::keyClick(&tab.list(), Qt::Key_Return);
        QVERIFY(!tab.list().isVisible());
        QVERIFY(visibleTexts(tab.view).contains(QStringLiteral("Empty folder")));
        QVERIFY(visibleTexts(tab.view).contains(QStringLiteral("0 notes")));
        QVERIFY(named<QPushButton>(tab.view, QStringLiteral("0 nothing"))->hasFocus());

        tab.press(QStringLiteral("Vault"));
        QVERIFY(tab.list().isVisible());
    }

    void note_opensByOneClickOrReturn_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("click") << 0;
        QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
        QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter);
    }
    void note_opensByOneClickOrReturn()
    {
        QFETCH(int, key);
        Tab tab(smallVault);
        if (key == 0) {
            tab.click(QStringLiteral("an idea.md"));
        } else {
            tab.view.takeKeyboard();
            QTest::keyClicks(&tab.list(), QStringLiteral("an"));
            QTest::keyClick(&tab.list(), static_cast<Qt::Key>(key));
        }
        QCOMPARE(tab.workspace.opened,
                 QList<QUrl>{QUrl(QStringLiteral("obsidian://open?vault=My%20Vault&file=an%20idea"))});
        QCOMPARE(tab.list().currentIndex().data().toString(), QStringLiteral("an idea.md"));
    }
    void pressElsewhereOrWithTheOtherButton_opensNothing()
    {
        Tab tab(smallVault);
        QWidget* area = tab.list().viewport();
        QTest::mouseClick(area, Qt::LeftButton, {}, QPoint(20, area->height() - 4));
        QTest::mouseClick(area, Qt::RightButton, {}, tab.middleOf(QStringLiteral("b.md")));
        QTest::mousePress(area, Qt::LeftButton, {}, tab.middleOf(QStringLiteral("b.md")));
        QTest::mouseRelease(area, Qt::LeftButton, {}, tab.middleOf(QStringLiteral("an idea.md")));
        QCOMPARE(tab.workspace.opened, QList<QUrl>());
        QCOMPARE(tab.model.browsePathStack(), QStringList());
    }
    void doubleClick_opensOnlyTheFolderUnderTheFirst()
    {
        Tab tab(smallVault);
        const QPoint place = tab.middleOf(QStringLiteral("Projects"));
        QTest::mouseClick(tab.list().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tab.list().viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(tab.model.browsePathStack().size(), 1);
    }

    void trail_leadsBackAndStaysUsable()
    {
        Tab tab(smallVault);
        tab.click(QStringLiteral("Projects"));
        tab.click(QStringLiteral("Landing page"));
        QCOMPARE(tab.names(), QStringList{QStringLiteral("plan.md")});
        tab.press(QStringLiteral("Projects"));
        QCOMPARE(tab.names(), (QStringList{QStringLiteral("Landing page"), QStringLiteral("todo.md")}));
        QVERIFY(named<QPushButton>(tab.view, QStringLiteral("Landing page")) == nullptr);
        // Again through the same place, to another depth.
        tab.click(QStringLiteral("Landing page"));
        tab.press(QStringLiteral("Vault"));
        QCOMPARE(tab.names().size(), 3);
        QVERIFY(named<QPushButton>(tab.view, QStringLiteral("Projects")) == nullptr);
    }
    void longTrail_showsItsEndAndNothingWider()
    {
        QString path;
        for (int i = 0; i < 6; ++i) {
            path += QStringLiteral("A folder with quite a long name, and number %1\n/").arg(i);
        }
        Tab tab({{path + QStringLiteral("note.md"), "x"}});
        for (int i = 0; i < 6; ++i) {
            tab.view.takeKeyboard();
            QTest::keyClick(&tab.list(), Qt::Key_Home);
            QTest::keyClick(&tab.list(), Qt::Key_Return);
        }
        QCOMPARE(tab.names(), QStringList{QStringLiteral("note.md")});
        QCOMPARE(tab.view.minimumSizeHint().width() <= 460, true);
        const QString last = QStringLiteral("A folder with quite a long name, and number 5\n");
        QTRY_VERIFY(!named<QPushButton>(tab.view, last)->visibleRegion().isEmpty());
        QVERIFY(named<QPushButton>(tab.view, QStringLiteral("Refresh"))->geometry().right() < 460);
    }

    void refresh_keepsThePlaceInALongList()
    {
        QList<std::pair<QString, QByteArray>> files;
        for (int i = 100; i < 200; ++i) {
            files.append({QStringLiteral("%1.md").arg(i), "x"});
        }
        files.append({QStringLiteral("Folder/x.md"), "x"});
        Tab tab(files);
        QScrollBar* bar = tab.list().verticalScrollBar();
        bar->setValue(1500);
        tab.press(QStringLiteral("Refresh"));
        QTest::qWait(0);
        QCOMPARE(bar->value(), 1500);
        tab.model.navigateIntoFolder(tab.vault + QStringLiteral("/Folder"));
        QTest::qWait(0);
        QCOMPARE(bar->value(), 0);
    }
    /// Only what is painted is read: the rest could be on a slow disk, or be very much.
    void hundredThousandNotes_areListedWithoutBeingRead()
    {
        Tab tab;
        // In memory where that can be: so many files take a disk half a minute.
        const QString memory = QStringLiteral("/dev/shm");
        QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                             QStringLiteral("/flitmark-XXXXXX"));
        tab.config.update([&](AppConfig& changed) { changed.vaultPath = folder.path(); });
        for (int i = 0; i < 100'000; ++i) {
            QFile file(folder.path() + QStringLiteral("/note %1.md").arg(i, 6, 10, QLatin1Char('0')));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        tab.model.refresh();
        QElapsedTimer timer;
        timer.start();
        Q_EMIT tab.model.browseItemsChanged();
        tab.view.grab();
        const qint64 shown = timer.restart();
        tab.view.takeKeyboard();
        QTest::keyClick(&tab.list(), Qt::Key_End);
        tab.view.grab();
        const qint64 jumped = timer.restart();
        qInfo("shown in %lld ms, jumped to the end in %lld ms", shown, jumped);
        QCOMPARE(tab.rowCount(), 100'000);
        QCOMPARE(tab.list().currentIndex().row(), 99'999);
        QCOMPARE(tab.list().indexAt(tab.list().viewport()->rect().center()).row() > 99'900, true);
        // A widget or a file for each row would take many times as long.
        QVERIFY2(shown < 1500, qPrintable(QString::number(shown)));
        QVERIFY2(jumped < 1500, qPrintable(QString::number(jumped)));
    }
};

QTEST_MAIN(BrowseViewTest)
#include "BrowseViewTest.moc"
