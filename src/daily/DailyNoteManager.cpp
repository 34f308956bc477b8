// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <core/ObsidianLink.h>
#include <daily/DailyNoteManager.h>
#include <daily/DailyNoteParser.h>
#include <daily/NoteBytes.h>
#include <platform/Files.h>
#include <platform/Print.h>
#include <platform/RunLoop.h>
#include <platform/Workspace.h>

#include <QLocale>

namespace flitmark {

namespace {

using namespace std::chrono_literals;

// Long enough for an editor to finish what it is writing.
constexpr auto reloadDelay = 500ms;
// Long enough for Obsidian to start and to make a note.
constexpr int looksForNewNote = 30;

} // namespace

DailyNoteManager::DailyNoteManager(const Services& services)
    : m_configManager(services.configManager)
    , m_signalManager(services.signalManager)
    , m_runLoop(services.runLoop)
    , m_fileEvents(services.fileEvents)
    , m_workspace(services.workspace)
{
    connect(&m_configManager, &ConfigManager::configChanged, this, &DailyNoteManager::loadTodayNoteIfMoved);
    loadTodayNote();
}

DailyNoteManager::~DailyNoteManager()
{
    // Before anything else goes: the watch calls from another thread.
    m_fileWatcher.reset();
}

DailyNotePlace DailyNoteManager::locate() const
{
    return placeIn(m_configManager.config().vaultPath);
}

DailyNotePlace DailyNoteManager::placeIn(const QString& vault) const
{
    return m_locator.locate(vault, m_runLoop.now().date(), QLocale::system().uiLanguages());
}

bool DailyNoteManager::openInObsidian()
{
    const auto link = obsidianLink(m_configManager.config().vaultPath, m_todayNote.path);
    return !link || m_workspace.open(*link);
}

bool DailyNoteManager::createInObsidian()
{
    const DailyNotePlace place = locate();
    const QString& vault = m_configManager.config().vaultPath;
    const auto link =
        place.rule == DailyNoteRule::DailyNotes ? obsidianDailyLink(vault) : obsidianNewNoteLink(vault, place.newNote);
    if (link && !m_workspace.open(*link)) {
        return false;
    }
    lookForNewNote(looksForNewNote);
    return true;
}

void DailyNoteManager::lookForNewNote(int looksLeft)
{
    if (looksLeft == 0 || m_todayNote.exists) {
        return;
    }
    m_runLoop.after(1s, this, [this, looksLeft] {
        if (locate().exists) {
            loadTodayNote();
        } else {
            lookForNewNote(looksLeft - 1);
        }
    });
}

bool DailyNoteManager::openLink(const TextSpan& link)
{
    if (link.kind == TextSpan::Kind::WebLink) {
        return m_workspace.open(QUrl(link.target));
    }
    // A heading of this note is named without the note.
    const QString note = link.target.startsWith(u'#') ? m_todayNote.pathInVault + link.target : link.target;
    const auto url = obsidianNoteLink(m_configManager.config().vaultPath, note);
    return !url || m_workspace.open(*url);
}

QString DailyNoteManager::runningTask() const
{
    return m_todayNote.rule == DailyNoteRule::FixedPlace ? QString() : m_runningTask;
}

void DailyNoteManager::openFile()
{
    m_workspace.open(QUrl::fromLocalFile(m_todayNote.path));
}

DailyNoteManager::Parsed DailyNoteManager::parseMarkdown(const QString& content)
{
    return parseDailyNote(content);
}

tl::expected<DailyNoteManager::Loaded, QString> DailyNoteManager::readNote(const DailyNote& place)
{
    auto bytes = readFile(place.path);
    if (!bytes) {
        return tl::unexpected(bytes.error().message);
    }
    std::optional<QString> text = noteText(*bytes);
    if (!text) {
        return tl::unexpected(QStringLiteral("The file is not valid UTF-8 text."));
    }
    Loaded loaded;
    loaded.note = place;
    static_cast<ParsedDailyNote&>(loaded.note) = layoutOf(place.rule).parse(*text);
    loaded.note.exists = true;
    loaded.note.content = *std::move(text);
    loaded.bytes = *std::move(bytes);
    return loaded;
}

void DailyNoteManager::loadTodayNote()
{
    setLoading(true);
    setLastError(std::nullopt);
    const DailyNotePlace place = locate();
    m_loadedPath = place.path;
    Loaded missing;
    missing.note.path = place.path;
    missing.note.rule = place.rule;
    missing.note.pathInVault = place.pathInVault;
    missing.note.places = place.places;
    missing.note.newNote = place.newNote;
    if (!place.exists) {
        missing.note.focus = QStringLiteral("No daily note for today");
        m_runLoop.async(this, [this, missing] { publish(missing); });
        return;
    }
    // Opened before the note is read, so that nothing written from now on goes unseen.
    Watch watch = openWatch(place.path);
    const auto loaded = readNote(missing.note);
    if (!loaded) {
        m_runLoop.async(this, [this, reason = loaded.error()] {
            fail(QStringLiteral("Failed to load daily note: ") + reason);
            setLoading(false);
        });
        return;
    }
    m_runLoop.async(this, [this, found = *loaded] { publish(found); });
    adoptWatch(std::move(watch));
}

void DailyNoteManager::loadTodayNoteIfMoved()
{
    if (m_loadedPath != getTodayNotePath()) {
        loadTodayNote();
    }
}

void DailyNoteManager::publish(Loaded loaded)
{
    m_todayNote = std::move(loaded.note);
    m_bytes = std::move(loaded.bytes);
    m_editedTasks.clear();
    Q_EMIT todayNoteChanged();
    setLoading(false);
}

DailyNoteManager::Watch DailyNoteManager::openWatch(const QString& path)
{
    using Event = FileEventSource::Event;
    const auto reload = [this, writes = m_writes] {
        // A write of our own moves the old file away, and has been followed by what is due already.
        if (writes == m_writes) {
            m_runLoop.after(reloadDelay, this, [this] { loadTodayNote(); });
        }
    };
    // The watch is cancelled before this object goes, so the handler always finds it there.
    return m_fileEvents.open(path, Event::Written | Event::Renamed,
                             [this, reload](FileEventSource::Events) { m_runLoop.async(this, reload); });
}

void DailyNoteManager::adoptWatch(Watch watch)
{
    if (!watch) {
        printLine(QStringLiteral("DailyNoteManager: Failed to open file for watching"));
    }
    m_fileWatcher = watch ? *std::move(watch) : nullptr;
}

void DailyNoteManager::setLoading(bool isLoading)
{
    if (m_isLoading != isLoading) {
        m_isLoading = isLoading;
        Q_EMIT isLoadingChanged();
    }
}

void DailyNoteManager::fail(const QString& error)
{
    printLine(error);
    setLastError(error);
}

void DailyNoteManager::setLastError(std::optional<QString> error)
{
    if (m_lastError != error) {
        m_lastError = std::move(error);
        Q_EMIT lastErrorChanged();
    }
}

} // namespace flitmark
