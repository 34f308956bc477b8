// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/VaultDiscovery.h>
#include <support/TestFiles.h>

using namespace flitmark;

class VaultDiscoveryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_home = std::make_unique<QTemporaryDir>(); }
    void list_isReadAndSorted_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QString>("names");
        const auto row = [](const char* name, const char* vaults, const char* names) {
            QTest::newRow(name) << QByteArray("{\"x\": 1, \"vaults\": ") + vaults + '}' << QString::fromUtf8(names);
        };
        row("two", R"({"1": {"path": "/u/Notes", "ts": 1, "open": true}, "2": {"path": "/u/A"}})", "A|Notes");
        row("none", "{}", "");
        row("capitals first", R"({"1": {"path": "/archive"}, "2": {"path": "/Zettel"}})", "Zettel|archive");
        row("by code point, not by UTF-16 unit", "{\"1\": {\"path\": \"/\U0001F4A1\"}, \"2\": {\"path\": \"/\uFF5E\"}}",
            "\uFF5E|\U0001F4A1");
        row("other shapes are passed over", R"({"1": 1, "2": null, "3": {}, "4": {"path": 7}, "5": ["path"]})", "");
        row("one folder twice", R"({"1": {"path": "/u/A/"}, "2": {"path": "/u/A"}})", "A|A");
        row("a list", R"([{"path": "/u"}])", "no list");
        row("cut off", R"({"1": {"path": "/u")", "no list");
        QTest::newRow("empty file") << QByteArray() << QStringLiteral("no list");
        QTest::newRow("empty object") << QByteArray("{}") << QStringLiteral("no list");
    }
    void list_isReadAndSorted()
    {
        QFETCH(const QByteArray, list);
        QVERIFY(!detect());
        writeList("xdg", list);
        QStringList found;
        const auto vaults = detect();
        for (const DetectedVault& vault : vaults.value_or(QList<DetectedVault>())) {
            found.append(vault.name);
        }
        QTEST(vaults ? found.join(u'|') : QStringLiteral("no list"), "names");
    }
    void firstPlaceWithAFile_counts()
    {
        // From the last place to the first: each outdoes the one before.
        for (const char* place : {"snap/obsidian/common/.config", "snap/obsidian/current/.config",
                                  ".var/app/md.obsidian.Obsidian/config", "xdg", "Library/Application Support"}) {
            writeList(place, R"({"vaults": {"1": {"path": ")" + QByteArray(place) + R"("}}})");
            QCOMPARE(detect().value().at(0).path, QString::fromUtf8(place));
        }
        // A file that makes no sense is not made up for by another.
        writeList("Library/Application Support", "oops");
        QVERIFY(!detect());
    }
    void pathsAndIds_areKept()
    {
        writeList("xdg", R"({"vaults": {"1": {"path": "/u/../gone/Notes/"}, "2": {"path": "/"}}})");
        const auto first = detect().value();
        QCOMPARE(first[1].path, QStringLiteral("/u/../gone/Notes/"));
        QVERIFY(first[0].id != first[1].id && detect().value()[0].id != first[0].id);
    }

private:
    std::optional<QList<DetectedVault>> detect() const
    {
        return detectObsidianVaults(m_home->path(), m_home->filePath(QStringLiteral("xdg")));
    }
    void writeList(const char* place, const QByteArray& bytes) const
    {
        writeTestFile(m_home->filePath(QString::fromUtf8(place) + QStringLiteral("/obsidian/obsidian.json")), bytes);
    }

    std::unique_ptr<QTemporaryDir> m_home;
};

QTEST_GUILESS_MAIN(VaultDiscoveryTest)
#include "VaultDiscoveryTest.moc"
