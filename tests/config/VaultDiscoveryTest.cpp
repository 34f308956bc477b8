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
    void list_isReadAndSorted_data();
    void list_isReadAndSorted();
    void list_withoutSense_isNoList_data();
    void list_withoutSense_isNoList();
    void firstPlaceWithAFile_counts();
    void pathsAndIds_areKept();

private:
    std::optional<QList<DetectedVault>> detect() const
    {
        return detectObsidianVaults(m_home->path(), m_home->filePath(QStringLiteral("xdg")));
    }
    void writeList(const QByteArray& bytes) const
    {
        writeTestFile(m_home->filePath(QStringLiteral("xdg/obsidian/obsidian.json")), bytes);
    }

    std::unique_ptr<QTemporaryDir> m_home;
};

void VaultDiscoveryTest::list_isReadAndSorted_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char* name, const char* list, const char* names) {
        QTest::newRow(name) << QByteArray(list) << QString::fromUtf8(names).split(u'|', Qt::SkipEmptyParts);
    };
    row("two", R"({"vaults": {"1": {"path": "/u/Notes", "ts": 1, "open": true}, "2": {"path": "/u/Archive"}}, "x": 1})",
        "Archive|Notes");
    row("none", R"({"vaults": {}})", "");
    row("capitals first", R"({"vaults": {"1": {"path": "/archive"}, "2": {"path": "/Zettel"}}})", "Zettel|archive");
    row("by code point, not by UTF-16 unit",
        "{\"vaults\": {\"1\": {\"path\": \"/\U0001F4A1\"}, \"2\": {\"path\": \"/\uFF5E\"}}}", "\uFF5E|\U0001F4A1");
    row("slash at the end", R"({"vaults": {"1": {"path": "/u/Notes//"}}})", "Notes");
    row("other shapes are passed over",
        R"({"vaults": {"1": 1, "2": null, "3": {}, "4": {"path": 7}, "5": ["path"], "6": {"path": "/u/Fine"}}})",
        "Fine");
    row("one folder twice", R"({"vaults": {"1": {"path": "/u/A"}, "2": {"path": "/u/A"}}})", "A|A");
}

void VaultDiscoveryTest::list_isReadAndSorted()
{
    QFETCH(const QByteArray, list);
    QFETCH(const QStringList, names);
    writeList(list);
    QStringList found;
    const QList<DetectedVault> vaults = detect().value();
    for (const DetectedVault& vault : vaults) {
        found.append(vault.name);
    }
    QCOMPARE(found, names);
}

void VaultDiscoveryTest::list_withoutSense_isNoList_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"vaults": {"1": {"path": "/u)");
    QTest::newRow("list") << QByteArray("[]");
    QTest::newRow("empty object") << QByteArray("{}");
    QTest::newRow("vaults a list") << QByteArray(R"({"vaults": [{"path": "/u"}]})");
}

void VaultDiscoveryTest::list_withoutSense_isNoList()
{
    QFETCH(const QByteArray, list);
    QVERIFY(!detect());
    writeList(list);
    QVERIFY(!detect());
}

void VaultDiscoveryTest::firstPlaceWithAFile_counts()
{
    // From the last place to the first: each outdoes the one before.
    const QStringList places = {
        QStringLiteral("snap/obsidian/common/.config"),         QStringLiteral("snap/obsidian/current/.config"),
        QStringLiteral(".var/app/md.obsidian.Obsidian/config"), QStringLiteral("xdg"),
        QStringLiteral("Library/Application Support"),
    };
    for (const QString& place : places) {
        const QString file = m_home->filePath(place + QStringLiteral("/obsidian/obsidian.json"));
        const QByteArray bytes = R"({"vaults": {"1": {"path": "/)" + place.toUtf8().replace('/', '_') + R"("}}})";
        writeTestFile(file, bytes);
        QCOMPARE(detect().value().at(0).path.mid(1), QString(place).replace(u'/', u'_'));
        QCOMPARE(readTestFile(file), bytes);
    }
    // A file that makes no sense is not made up for by another.
    writeTestFile(m_home->filePath(QStringLiteral("Library/Application Support/obsidian/obsidian.json")), "oops");
    QVERIFY(!detect());
}

void VaultDiscoveryTest::pathsAndIds_areKept()
{
    writeList(R"({"vaults": {"1": {"path": "/u/../gone//Notes/"}, "2": {"path": "/"}}})");
    const auto first = detect().value();
    QCOMPARE(first[1].path, QStringLiteral("/u/../gone//Notes/"));
    QVERIFY(first[0].id != first[1].id);
    QVERIFY(detect().value()[0].id != first[0].id);
}

QTEST_GUILESS_MAIN(VaultDiscoveryTest)
#include "VaultDiscoveryTest.moc"
