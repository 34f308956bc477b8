// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <capture/BrowseList.h>
#include <capture/BrowseModel.h>
#include <capture/BrowseView.h>
#include <support/Accessible.h>
#include <support/TestServices.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QScrollBar>

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
        view.resize(460, 500);
        showActive(view);
        view.appeared();
    }

    BrowseList& list() { return *view.findChild<BrowseList*>(); }
    QPoint middleOf(const QString& name)
    {
        const QAbstractItemModel& items = *list().model();
        return list().visualRect(items.match(items.index(0, 0), Qt::DisplayRole, name).value(0)).center();
    }
    void openFirst()
    {
        view.takeKeyboard();
        QTest::keyClick(&list(), Qt::Key_Home);
        QTest::keyClick(&list(), Qt::Key_Return);
    }

    TestServices services;
    const QString& vault = services.vault;
    const QList<QUrl>& opened = services.workspace.opened;
    BrowseModel model{services.config, services.workspace, services.loop};
    BrowseView view{model};
};

const QList<std::pair<QString, QByteArray>> smallVault{
    {QStringLiteral("Projects/todo.md"), "x"},
    {QStringLiteral("an idea.md"), "x"},
    {QStringLiteral("b.md"), ""},
};

} // namespace

class BrowseViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyFolder_keepsTheKeyboardInTheTab()
    {
        Tab tab(smallVault);
        QVERIFY(QDir().mkpath(tab.vault + QStringLiteral("/0 nothing")));
        click(tab.view, QStringLiteral("Refresh"));
        tab.openFirst();
        QVERIFY(!tab.list().isVisible());
        QVERIFY(named<QPushButton>(tab.view, QStringLiteral("0 nothing"))->hasFocus());
        click(tab.view, QStringLiteral("Vault"));
        QVERIFY(tab.list().isVisible());
    }
    void note_opensByReturn()
    {
        Tab tab(smallVault);
        tab.view.takeKeyboard();
        QTest::keyClicks(&tab.list(), QStringLiteral("an"));
        QTest::keyClick(&tab.list(), Qt::Key_Return);
        QCOMPARE(tab.opened, QList<QUrl>{QUrl(QStringLiteral("obsidian://open?vault=Vault&file=an%20idea"))});
    }
    void onlyAWholeClick_opensAndADoubleClickOnlyOnce()
    {
        Tab tab(smallVault);
        QWidget* area = tab.list().viewport();
        QTest::mouseClick(area, Qt::LeftButton, {}, QPoint(20, area->height() - 4));
        QTest::mouseClick(area, Qt::RightButton, {}, tab.middleOf(QStringLiteral("b.md")));
        QTest::mousePress(area, Qt::LeftButton, {}, tab.middleOf(QStringLiteral("b.md")));
        QTest::mouseRelease(area, Qt::LeftButton, {}, tab.middleOf(QStringLiteral("an idea.md")));
        QCOMPARE(tab.model.browsePathStack(), QStringList());
        const QPoint folder = tab.middleOf(QStringLiteral("Projects"));
        QTest::mouseClick(area, Qt::LeftButton, {}, folder);
        QTest::mouseDClick(area, Qt::LeftButton, {}, folder);
        QCOMPARE(tab.model.browsePathStack().size(), 1);
        QCOMPARE(tab.opened, QList<QUrl>());
    }

    void refresh_keepsThePlaceInALongList()
    {
        QList<std::pair<QString, QByteArray>> files;
        for (int i = 100; i < 200; ++i) {
            files.append({QStringLiteral("%1.md").arg(i), "x"});
        }
        Tab tab(files);
        QScrollBar* bar = tab.list().verticalScrollBar();
        bar->setValue(1500);
        click(tab.view, QStringLiteral("Refresh"));
        QTest::qWait(0);
        QCOMPARE(bar->value(), 1500);
    }
    /// Only what is painted is read: the rest could be on a slow disk, or be very much.
    void hundredThousandNotes_areListedWithoutBeingRead()
    {
        Tab tab;
        // In memory where that can be: so many files take a disk half a minute.
        const QString memory = QStringLiteral("/dev/shm");
        QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                             QStringLiteral("/flitmark-XXXXXX"));
        tab.services.config.update([&](AppConfig& changed) { changed.vaultPath = folder.path(); });
        for (int i = 0; i < 100'000; ++i) {
            QFile file(folder.path() + QStringLiteral("/note %1.md").arg(i, 6, 10, QLatin1Char('0')));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        tab.model.refresh();
        QElapsedTimer timer;
        timer.start();
        Q_EMIT tab.model.browseItemsChanged();
        tab.view.grab();
        tab.view.takeKeyboard();
        QTest::keyClick(&tab.list(), Qt::Key_End);
        tab.view.grab();
        // A widget or a file for each row would take many times as long.
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(tab.list().currentIndex().row(), 99'999);
        QVERIFY(tab.list().indexAt(tab.list().viewport()->rect().center()).row() > 99'900);
    }
};

QTEST_MAIN(BrowseViewTest)
#include "BrowseViewTest.moc"
