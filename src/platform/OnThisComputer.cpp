// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/OnThisComputer.h>

#include <QCoreApplication>

namespace flitmark::onThisComputer {

namespace {

QString line(const QString& text)
{
    return QCoreApplication::translate("OnThisComputer", "On this computer: %1").arg(text);
}

QString tr(const char* text)
{
    return QCoreApplication::translate("OnThisComputer", text);
}

QString sentences(QStringList texts)
{
    texts.removeAll(QString());
    return line(texts.join(u' '));
}

QString bindingCommand()
{
    return tr("Bind this command to a key in the desktop's settings: "
              "gapplication action org.flitmark.Flitmark toggle-panel");
}

} // namespace

QString hotkey(const KeyMonitor::State& state)
{
    switch (state.status) {
    case KeyMonitor::Status::Working:
        return sentences({tr("the hotkey works. Option is the Alt key."), state.reason});
    case KeyMonitor::Status::Waiting:
        return sentences({tr("the hotkey waits for your desktop's consent."), state.reason});
    case KeyMonitor::Status::Refused:
        return sentences({tr("the desktop refused the hotkey."), state.reason, bindingCommand()});
    case KeyMonitor::Status::NotOffered:
        break;
    }
    return sentences({tr("this desktop offers no hotkeys to programs."), state.reason, bindingCommand()});
}

QString systems()
{
    return line(tr("Flitmark runs on Linux desktops, with X11 or with Wayland and XWayland."));
}

QString keys()
{
    return line(tr("⌘ is the Ctrl key, ⌥ and Option are the Alt key. Ctrl+Return saves a note. No permission has to "
                   "be granted."));
}

QString configFile(const Directories& directories)
{
    QString path = directories.ownFolder() + QStringLiteral("/config.json");
    if (path.startsWith(directories.home + QLatin1Char('/'))) {
        path.replace(0, directories.home.size(), QStringLiteral("~"));
    }
    return line(path);
}

QString windowModes()
{
    return line(tr("Normal lets other windows cover the panel; the other two keep it above them."));
}

QString updates(bool isOffered)
{
    return line(isOffered ? tr("Flitmark asks its own feed for new versions and opens the download page; it installs "
                               "nothing by itself.")
                          : tr("updates come with your system's packages."));
}

} // namespace flitmark::onThisComputer
