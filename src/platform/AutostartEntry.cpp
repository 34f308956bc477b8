// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/AutostartEntry.h>

#include <QHash>

namespace flitmark {

namespace {

/// A value of the type string: what can't stand in a line is escaped.
QString escaped(QString text)
{
    return text.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\t'), QLatin1String("\\t"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

QString unescaped(const QString& value)
{
    static const QHash<QChar, QChar> meanings{
        {u's', u' '}, {u'n', u'\n'}, {u't', u'\t'}, {u'r', u'\r'}, {u'\\', u'\\'}};
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value.at(i) == u'\\' && i + 1 < value.size() && meanings.contains(value.at(i + 1));
        text += isEscape ? meanings.value(value.at(++i)) : value.at(i);
    }
    return text;
}

/// `program` as the one word of a command line.
QString quoted(const QString& program)
{
    QString word;
    for (const QChar character : program) {
        if (QStringLiteral("\"`$\\").contains(character)) {
            word += u'\\';
        }
        word += character == u'%' ? QStringLiteral("%%") : QString(character);
    }
    return u'"' + word + u'"';
}

/// The first word of a command line.
QString firstWord(const QString& command)
{
    QString word;
    bool isQuoted = false;
    for (qsizetype i = 0; i < command.size(); ++i) {
        const QChar character = command.at(i);
        const bool hasNext = i + 1 < command.size();
        if (character == u'"') {
            isQuoted = !isQuoted;
        } else if (character == u' ' && !isQuoted) {
            break;
        } else if (hasNext && ((character == u'\\' && isQuoted) || (character == u'%' && command.at(i + 1) == u'%'))) {
            word += command.at(++i);
        } else {
            word += character;
        }
    }
    return word;
}

/// The plain keys of the group "Desktop Entry", without their translations.
QHash<QString, QString> keysOf(const QByteArray& text)
{
    QHash<QString, QString> keys;
    bool isInside = false;
    const QStringList lines = QString::fromUtf8(text).split(u'\n');
    for (const QString& whole : lines) {
        const QString line = whole.trimmed();
        if (line.startsWith(u'[')) {
            isInside = line == QLatin1String("[Desktop Entry]");
        } else if (const qsizetype equals = line.indexOf(u'='); isInside && !line.startsWith(u'#') && equals > 0) {
            keys.insert(line.left(equals).trimmed(), unescaped(line.mid(equals + 1).trimmed()));
        }
    }
    return keys;
}

} // namespace

QByteArray autostartEntryText(const QString& program)
{
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Flitmark\n"
                          "Comment=Capture notes and plan the day beside Obsidian\n"
                          "Icon=org.flitmark.Flitmark\n"
                          "Exec=%1\n"
                          "TryExec=%2\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-enabled=true\n")
        .arg(escaped(quoted(program)), escaped(program))
        .toUtf8();
}

std::optional<AutostartEntry> parseAutostartEntry(const QByteArray& text)
{
    const QHash<QString, QString> keys = keysOf(text);
    const QString tried = keys.value(QStringLiteral("TryExec"));
    const AutostartEntry entry{
        .program = tried.isEmpty() ? firstWord(keys.value(QStringLiteral("Exec"))) : tried,
        .isSwitchedOff = keys.value(QStringLiteral("Hidden")) == QLatin1String("true") ||
                         keys.value(QStringLiteral("X-GNOME-Autostart-enabled")) == QLatin1String("false"),
    };
    // An entry that is switched off may have been emptied by who did it.
    return entry.program.isEmpty() && !entry.isSwitchedOff ? std::nullopt : std::make_optional(entry);
}

} // namespace flitmark
