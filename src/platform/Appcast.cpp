// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Appcast.h>

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>

namespace flitmark {

namespace {

constexpr QLatin1String sparkleNamespace("http://www.andymatuschak.org/xml-namespaces/sparkle");

/// The address in `text` if a browser may be sent there, else an empty one.
QUrl pageOf(const QString& text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    return isWeb && !url.host().isEmpty() ? url : QUrl();
}

/// What an item says before it is judged.
struct RawItem
{
    QString version;
    QString shortVersion;
    QString system;
    QString channel;
    QString notes;
    QString link;
    QString notesLink;
};

class FeedReader final
{
    Q_DECLARE_TR_FUNCTIONS(Appcast)

public:
    explicit FeedReader(const QByteArray& xml)
        : m_xml(xml)
    {
    }

    tl::expected<std::vector<AppcastItem>, QString> read()
    {
        if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("rss")) {
            return tl::unexpected(m_xml.hasError() ? problem() : tr("The answer is not an update feed."));
        }
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("channel")) {
                readChannel();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        if (m_xml.hasError()) {
            return tl::unexpected(problem());
        }
        for (AppcastItem& item : m_items) {
            item.page = item.page.isEmpty() ? m_page : item.page;
        }
        return std::move(m_items);
    }

private:
    QString problem() const
    {
        return tr("The update feed makes no sense (line %1: %2).").arg(m_xml.lineNumber()).arg(m_xml.errorString());
    }

    QString text() { return m_xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed(); }

    void readChannel()
    {
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("item")) {
                readItem();
            } else if (m_xml.name() == QLatin1String("link") && m_xml.namespaceUri().isEmpty()) {
                m_page = pageOf(text());
            } else {
                m_xml.skipCurrentElement();
            }
        }
    }

    void readItem()
    {
        RawItem item;
        while (m_xml.readNextStartElement()) {
            const QString name = m_xml.name().toString();
            const bool isOurs = m_xml.namespaceUri() == sparkleNamespace;
            if (name == QLatin1String("enclosure")) {
                readEnclosure(item);
            } else if (QString* field = fieldOf(item, name, isOurs)) {
                *field = text();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        keep(item);
    }

    static QString* fieldOf(RawItem& item, const QString& name, bool isOurs)
    {
        if (!isOurs) {
            return name == QLatin1String("description") ? &item.notes
                   : name == QLatin1String("link")      ? &item.link
                                                        : nullptr;
        }
        return name == QLatin1String("version")              ? &item.version
               : name == QLatin1String("shortVersionString") ? &item.shortVersion
               : name == QLatin1String("channel")            ? &item.channel
               : name == QLatin1String("releaseNotesLink")   ? &item.notesLink
                                                             : nullptr;
    }

    /// Older feeds say there what newer ones say in elements.
    void readEnclosure(RawItem& item)
    {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        const auto take = [&attributes](QString& field, QLatin1String name) {
            if (field.isEmpty()) {
                field = attributes.value(sparkleNamespace, name).toString();
            }
        };
        take(item.version, QLatin1String("version"));
        take(item.shortVersion, QLatin1String("shortVersionString"));
        take(item.system, QLatin1String("os"));
        m_xml.skipCurrentElement();
    }

    void keep(const RawItem& item)
    {
        const QString name = item.shortVersion.isEmpty() ? item.version : item.shortVersion;
        const QVersionNumber version = versionOf(name);
        const bool isForHere =
            item.system.isEmpty() || item.system.compare(QLatin1String("linux"), Qt::CaseInsensitive) == 0;
        if (version.isNull() || !isForHere || !item.channel.isEmpty()) {
            return;
        }
        const QUrl own = pageOf(item.link);
        m_items.push_back({version, name, item.notes, own.isEmpty() ? pageOf(item.notesLink) : own});
    }

    QXmlStreamReader m_xml;
    QUrl m_page;
    std::vector<AppcastItem> m_items;
};

} // namespace

tl::expected<std::vector<AppcastItem>, QString> parseAppcast(const QByteArray& xml)
{
    return FeedReader(xml).read();
}

std::optional<AppcastItem> newerThan(const QVersionNumber& own, const std::vector<AppcastItem>& items)
{
    const auto newest = std::max_element(
        items.begin(), items.end(), [](const AppcastItem& a, const AppcastItem& b) { return a.version < b.version; });
    const bool isNewer = newest != items.end() && newest->version.normalized() > own.normalized();
    return isNewer ? std::make_optional(*newest) : std::nullopt;
}

QVersionNumber versionOf(const QString& text)
{
    const qsizetype start = text.startsWith(u'v', Qt::CaseInsensitive) ? 1 : 0;
    qsizetype suffix = 0;
    const QVersionNumber version = QVersionNumber::fromString(text.mid(start), &suffix);
    const QString rest = text.mid(start + suffix);
    return rest.isEmpty() || rest.startsWith(u'+') ? version : QVersionNumber();
}

} // namespace flitmark
