// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/OnThisComputer.h>

#include <QCoreApplication>

namespace flitmark::onThisComputer {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OnThisComputer)
};

QString line(const QString& text)
{
    return Texts::tr("On this computer: %1").arg(text);
}

QString sentences(QStringList texts)
{
    texts.removeAll(QString());
    return line(texts.join(u' '));
}

QString bindingCommand()
{
    return Texts::tr("Bind this command to a key in the desktop's settings: "
                     "gapplication action org.flitmark.Flitmark toggle-panel");
}

} // namespace

QString hotkey(const KeyMonitor::State& state)
{
    switch (state.status) {
    case KeyMonitor::Status::Working:
        return sentences(
            {Texts::tr("the hotkey works, and no permission has to be granted. Option is the Alt key."), state.reason});
    case KeyMonitor::Status::Waiting:
        return sentences({Texts::tr("the hotkey waits for your desktop's consent."), state.reason});
    case KeyMonitor::Status::Refused:
        return sentences({Texts::tr("the desktop refused the hotkey."), state.reason, bindingCommand()});
    case KeyMonitor::Status::Failed:
        return sentences({Texts::tr("the hotkey could not be set up."), state.reason, bindingCommand()});
    case KeyMonitor::Status::NotOffered:
        break;
    }
    return sentences({Texts::tr("this desktop offers no hotkeys to programs."), state.reason, bindingCommand()});
}

QString hotkeyToPress(const KeyMonitor::State& state)
{
    const bool isAsPromised = state == KeyMonitor::State{.status = KeyMonitor::Status::Working};
    return isAsPromised ? line(Texts::tr("Alt+N")) : hotkey(state);
}

QString systems()
{
    return line(Texts::tr("Flitmark runs on Linux desktops, with X11 or with Wayland and XWayland."));
}

QString keys()
{
    return line(Texts::tr("⌘ is the Ctrl key, ⌥ and Option are the Alt key. Ctrl+Return saves a note, F10 opens the "
                          "button's menu from the panel."));
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
    return line(Texts::tr("Normal lets other windows cover the panel; the other two keep it above them."));
}

QString updates(bool isOffered)
{
    return line(isOffered
                    ? Texts::tr("Flitmark asks its own feed for new versions and opens the download page; it installs "
                                "nothing by itself.")
                    : Texts::tr("updates come with your system's packages."));
}

} // namespace flitmark::onThisComputer
