// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/NoteBytes.h>
#include <support/NotePicture.h>
#include <support/OwnNoteProperties.h>

#include "Property.h"

namespace flitmark {

void checkInput(const QByteArray& bytes)
{
    const std::optional<QString> text = noteText(bytes);
    if (!text) {
        return;
    }
    const char* broken = own::check(*text, bytes.isEmpty() ? 0 : static_cast<uchar>(bytes.back()));
    require(broken == nullptr, broken);
    QString plain = *text;
    plain.replace("\r\n", "\n").replace(u'\r', u'\n');
    require(picture(parseOwnNote(plain)) == picture(parseOwnNote(*text)), "LF for any break reads the same");
}

} // namespace flitmark
