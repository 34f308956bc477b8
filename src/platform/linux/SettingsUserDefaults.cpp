// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Print.h>
#include <platform/UserDefaults.h>
#include <platform/linux/Desktop.h>

#include <QSettings>

namespace flitmark {

namespace {

class SettingsUserDefaults final : public UserDefaults
{
public:
    explicit SettingsUserDefaults(const QString& path)
        : m_settings(path, QSettings::IniFormat)
    {
    }

    bool boolean(const QString& key, bool fallback) const override { return m_settings.value(key, fallback).toBool(); }

    void setBoolean(const QString& key, bool value) override { store(key, value); }
    QString text(const QString& key) const override { return m_settings.value(key).toString(); }
    void setText(const QString& key, const QString& value) override { store(key, value); }

private:
    void store(const QString& key, const QVariant& value)
    {
        m_settings.setValue(key, value);
        m_settings.sync();
        if (m_settings.status() != QSettings::NoError) {
            printLine(QStringLiteral("Failed to write %1").arg(m_settings.fileName()));
        }
    }

    QSettings m_settings;
};

} // namespace

std::unique_ptr<UserDefaults> makeUserDefaults(const Directories& directories)
{
    return std::make_unique<SettingsUserDefaults>(directories.ownFolder() + QStringLiteral("/defaults.ini"));
}

} // namespace flitmark
