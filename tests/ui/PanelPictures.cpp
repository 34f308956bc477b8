// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include "PanelPictures.h"

#include <capture/BrowseModel.h>
#include <capture/DraftManager.h>
#include <capture/NoteManager.h>
#include <capture/NotePanelModel.h>
#include <capture/NotePanelView.h>
#include <daily/DailyTabModel.h>
#include <platform/Json.h>
#include <support/TestServices.h>
#include <ui/Surfaces.h>
#include <ui/ThemeScope.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

const QByteArray note = "## Today's Focus\n**Ship landing page v2 with polished visuals**\n\n## Tasks\n"
                        "- [x] Review release notes 🍅🍅\n- [ ] Finalize screenshot pack 🍅🍅🍅\n"
                        "- [ ] Publish FAQ visuals\n- [ ] Deep work 🍅🍅🍅🍅🍅🍅🍅🍅🍅\n\n## Coach Notes\n"
                        "- Two Pomodoros went into mail this morning. Visuals first?\n\n## Work Done\n"
                        "- ✅ README screenshots refreshed\n- ✅ Header clipping fix deployed\n";

/// The panel over a vault of its own.
class PanelStage final
{
public:
    explicit PanelStage(const QByteArray& dailyNote)
        : services(dailyNote)
    {
        const QString folder = services.vault + QStringLiteral("/Projects/Landing page/");
        for (const char* name : {"Archive", "Client calls", "Templates"}) {
            writeTestFile(folder + QLatin1String(name) + QStringLiteral("/x.md"), "x");
        }
        writeTestFile(folder + QStringLiteral("💡 headline ideas.md"), "Your thoughts, filed before they fade\n");
        writeTestFile(folder + QStringLiteral("2026-01-20 kickoff.md"),
                      "Agreed: one page, three sections, live before the end of the month, and not a day later\n");
        writeTestFile(folder + QStringLiteral("todo.md"), "Ask for the two missing logos\n");
        writeTestFile(folder + QStringLiteral("empty.md"), "");
        auto* layout = new QVBoxLayout(&ground);
        layout->setContentsMargins({});
        layout->addWidget(new NotePanelView({panel, browse, daily}, services.config, nullptr));
        ground.setFixedSize(460, 560);
        ground.show();
    }

    bool save(const QDir& folder, const QString& name, ColorPalette palette)
    {
        ThemeScope::set(ground, themeOfPalette(palette));
        services.loop.runQueued();
        // A change of size goes up from layout to layout, one turn each.
        for (int turn = 0; turn < 6; ++turn) {
            QCoreApplication::processEvents();
        }
        QImage image(ground.size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        ground.render(&image);
        return image.save(folder.filePath(QStringLiteral("panel-%1-%2@2.png").arg(name, rawValue(palette))));
    }

    TestServices services;
    DraftManager drafts{services.directories, services.loop};
    NoteManager notes{services.config, services.loop, services.sound};
    NotePanelModel panel{services.config, drafts, notes, services.loop};
    BrowseModel browse{services.config, services.workspace, services.loop};
    DailyTabModel daily{DailyTabModel::Services{services.daily, services.signalManager, services.controller,
                                                services.notifications, services.loop}};
    Ground ground;
};

void sendAlert(PanelStage& stage)
{
    const CoachAlert alert{QStringLiteral("a1"),
                           QStringLiteral("now"),
                           QStringLiteral("Ship landing page v2 with polished visuals"),
                           QStringLiteral("Sorting mail and the team calendar"),
                           1,
                           QStringLiteral("pending")};
    const QString path = stage.services.signalManager.coachAlertURL();
    writeTestFile(path, encodeJson(alert.toJson()));
    stage.services.events.report(path, FileEventSource::Event::Written);
    stage.services.loop.runQueued();
}

bool saveStates(const QDir& folder, ColorPalette palette)
{
    PanelStage stage(note);
    bool isComplete = true;
    const auto take = [&](const char* name) {
        isComplete = stage.save(folder, QLatin1String(name), palette) && isComplete;
    };
    stage.panel.setSelectedTab(NotePanelModel::Tab::browse);
    stage.browse.navigateIntoFolder(stage.services.vault + QStringLiteral("/Projects"));
    stage.browse.navigateIntoFolder(stage.services.vault + QStringLiteral("/Projects/Landing page"));
    take("browse-list");
    stage.browse.navigateIntoFolder(stage.services.vault + QStringLiteral("/Nowhere"));
    take("browse-empty");

    stage.panel.setSelectedTab(NotePanelModel::Tab::daily);
    take("daily-note");
    stage.daily.editFocus();
    take("daily-editing");
    stage.daily.markFocusDone();
    take("daily-next");
    stage.daily.cancelFocus();
    stage.daily.startAddingTask();
    stage.daily.setNewTaskText(QStringLiteral("Book the photo studio"));
    take("daily-addtask");
    stage.daily.cancelNewTask();
    stage.daily.setShowPomodoroTaskPicker(true);
    take("sheet-taskpicker");
    stage.daily.startPomodoro(5);
    take("daily-running");
    sendAlert(stage);
    take("sheet-focuscheck");

    PanelStage empty{QByteArray()};
    empty.panel.setSelectedTab(NotePanelModel::Tab::daily);
    return empty.save(folder, QStringLiteral("daily-empty"), palette) && isComplete;
}

} // namespace

bool savePanelPictures(const QDir& folder)
{
    bool isComplete = true;
    for (const ColorPalette palette : allColorPalettes()) {
        isComplete = saveStates(folder, palette) && isComplete;
    }
    return isComplete;
}

} // namespace flitmark
