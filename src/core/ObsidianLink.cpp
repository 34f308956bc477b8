// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <core/ObsidianLink.h>

#include <QDir>
#include <QStringEncoder>

namespace flitmark {

namespace {

bool staysAsItIs(char32_t c)
{
    return QChar::isLetterOrNumber(c) || QChar::isMark(c) || c == U'-' || c == U'.' || c == U'_' || c == U'~' ||
           c == U'/';
}

/// `text` with percent escapes for all but letters, digits and a few signs; nothing when it is not valid text.
std::optional<QString> percentEncoded(const QString& text)
{
    QString encoded;
    QStringEncoder toUtf8(QStringEncoder::Utf8, QStringConverter::Flag::Stateless);
    const QList<uint> characters = text.toUcs4();
    for (const char32_t c : characters) {
        const QString character = QString::fromUcs4(&c, 1);
        if (staysAsItIs(c)) {
            encoded += character;
            continue;
        }
        const QByteArray bytes = toUtf8(character);
        if (toUtf8.hasError()) {
            return std::nullopt;
        }
        for (const char byte : bytes) {
            encoded += QStringLiteral("%%1").arg(static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0')).toUpper();
        }
    }
    return encoded;
}

/// The link that asks for `action` in the vault at `vaultPath`, on the note at `notePath` in it unless that is empty.
std::optional<QUrl> linkTo(QStringView action, QString vaultPath, QString notePath)
{
    vaultPath = QDir::cleanPath(vaultPath);
    if (vaultPath.endsWith(u'/')) {
        vaultPath.chop(1); // the root
    }
    if (notePath.startsWith(vaultPath + u'/')) {
        notePath.remove(0, vaultPath.size() + 1);
    }
    if (notePath.endsWith(QStringLiteral(".md"))) {
        notePath.chop(3);
    }
    const std::optional<QString> vault = percentEncoded(vaultPath.sliced(vaultPath.lastIndexOf(u'/') + 1));
    const std::optional<QString> note = percentEncoded(notePath);
    if (!vault || !note || !notePath.isValidUtf16() || !vaultPath.isValidUtf16()) {
        return std::nullopt;
    }
    const QString file = note->isEmpty() ? QString() : QStringLiteral("&file=") + *note;
    QUrl url(QStringLiteral("obsidian://%1?vault=").arg(action) + *vault + file, QUrl::StrictMode);
    return url.isValid() ? std::optional(std::move(url)) : std::nullopt;
}

} // namespace

std::optional<QUrl> obsidianLink(const QString& vaultPath, const QString& notePath)
{
    return linkTo(u"open", vaultPath, QDir::cleanPath(notePath));
}

std::optional<QUrl> obsidianNoteLink(const QString& vaultPath, const QString& name)
{
    return linkTo(u"open", vaultPath, name);
}

std::optional<QUrl> obsidianDailyLink(const QString& vaultPath)
{
    return linkTo(u"daily", vaultPath, QString());
}

std::optional<QUrl> obsidianNewNoteLink(const QString& vaultPath, const QString& note)
{
    return linkTo(u"new", vaultPath, note);
}

} // namespace flitmark
