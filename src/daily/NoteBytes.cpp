// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteBytes.h>

#include <QStringDecoder>

namespace flitmark {

namespace {

constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");

} // namespace

std::optional<QString> noteText(const QByteArray& bytes)
{
    // The mark at the start is dropped by the decoder, one anywhere else is a character.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

QByteArray noteBytes(const QString& text, const QByteArray& old)
{
    const QByteArray bytes = text.toUtf8();
    return old.startsWith(byteOrderMark) ? byteOrderMark.toByteArray() + bytes : bytes;
}

} // namespace flitmark
