// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/RawJson.h>

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <tuple>

namespace flitmark {

namespace {

constexpr int maximumDepth = 512;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// The text of a string as written, with its quotes.
QString textOf(const QByteArray& token)
{
    RawJson json;
    json.text = token;
    return json.toValue().toString();
}

class Parser
{
public:
    explicit Parser(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_at(bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0)
    {
    }

    tl::expected<RawJson, QString> run()
    {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
        const QString text = decoder(m_bytes);
        if (decoder.hasError()) {
            return tl::unexpected(QStringLiteral("The data is not valid UTF-8."));
        }
        RawJson value;
        const bool isValue = readValue(value, 0);
        skipSpace();
        if (!m_problem.isEmpty()) {
            return tl::unexpected(m_problem);
        }
        if (!isValue || m_at != m_bytes.size()) {
            return tl::unexpected(
                m_bytes.trimmed().isEmpty()
                    ? QStringLiteral("The data is empty.")
                    : QStringLiteral("The data is not valid JSON: it makes no sense at byte %1.").arg(m_at));
        }
        return value;
    }

private:
    char peek() const { return m_at < m_bytes.size() ? m_bytes[m_at] : '\0'; }

    bool take(char c)
    {
        const bool isThere = m_at < m_bytes.size() && m_bytes[m_at] == c;
        m_at += isThere ? 1 : 0;
        return isThere;
    }

    void skipSpace()
    {
        while (take(' ') || take('\t') || take('\n') || take('\r')) {
        }
    }

    bool readValue(RawJson& value, int depth)
    {
        if (depth == maximumDepth) {
            m_problem = QStringLiteral("The data is nested too deeply.");
            return false;
        }
        skipSpace();
        switch (peek()) {
        case '{':
            return readObject(value, depth);
        case '[':
            return readArray(value, depth);
        case '"':
            return readString(value.text);
        default:
            return readWord(value.text) || readNumber(value.text);
        }
    }

    bool readObject(RawJson& value, int depth)
    {
        value.kind = RawJson::Kind::Object;
        take('{');
        skipSpace();
        if (take('}')) {
            return true;
        }
        do {
            RawJson::Member member;
            skipSpace();
            if (!readString(member.keyText)) {
                return false;
            }
            skipSpace();
            if (!take(':') || !readValue(member.value, depth + 1)) {
                return false;
            }
            member.key = textOf(member.keyText);
            value.members.push_back(std::move(member));
            skipSpace();
        } while (take(','));
        // Backwards, so that of equal keys the last is met first and stays.
        std::reverse(value.members.begin(), value.members.end());
        std::stable_sort(value.members.begin(), value.members.end(), RawJson::isBefore);
        const auto isSame = [](const auto& a, const auto& b) { return a.key == b.key; };
        value.members.erase(std::unique(value.members.begin(), value.members.end(), isSame), value.members.end());
        return take('}');
    }

    bool readArray(RawJson& value, int depth)
    {
        value.kind = RawJson::Kind::Array;
        take('[');
        skipSpace();
        if (take(']')) {
            return true;
        }
        do {
            if (!readValue(value.items.emplace_back(), depth + 1)) {
                return false;
            }
            skipSpace();
        } while (take(','));
        return take(']');
    }

    bool readString(QByteArray& text)
    {
        const qsizetype start = m_at;
        if (!take('"')) {
            return false;
        }
        while (!take('"')) {
            if (static_cast<unsigned char>(peek()) < 0x20 || (take('\\') && !isEscape())) {
                return false;
            }
            ++m_at;
        }
        text = m_bytes.sliced(start, m_at - start);
        return true;
    }

    /// What follows a backslash; all but its last character is passed over.
    bool isEscape()
    {
        if (peek() != 'u') {
            return peek() != '\0' && QByteArrayView("\"\\/bfnrt").contains(peek());
        }
        for (int digit = 0; digit < 4; ++digit) {
            ++m_at;
            if (!isHexDigit(peek())) {
                return false;
            }
        }
        return true;
    }

    bool readWord(QByteArray& text)
    {
        static constexpr std::array<const char*, 3> words = {"true", "false", "null"};
        for (const char* word : words) {
            if (QByteArrayView(m_bytes).sliced(m_at).startsWith(word)) {
                text = word;
                m_at += text.size();
                return true;
            }
        }
        return false;
    }

    bool takeDigits()
    {
        const qsizetype start = m_at;
        while (isDigit(peek())) {
            ++m_at;
        }
        return m_at > start;
    }

    bool readNumber(QByteArray& text)
    {
        const qsizetype start = m_at;
        take('-');
        if (!take('0') && !takeDigits()) {
            return false;
        }
        if (take('.') && !takeDigits()) {
            return false;
        }
        if (take('e') || take('E')) {
            std::ignore = take('+') || take('-');
            if (!takeDigits()) {
                return false;
            }
        }
        text = m_bytes.sliced(start, m_at - start);
        return true;
    }

    const QByteArray& m_bytes;
    qsizetype m_at;
    QString m_problem;
};

} // namespace

tl::expected<RawJson, QString> RawJson::parse(const QByteArray& bytes)
{
    return Parser(bytes).run();
}

} // namespace flitmark
