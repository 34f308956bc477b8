// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Directories.h>
#include <platform/Files.h>
#include <platform/SystemSound.h>
#include <platform/linux/Desktop.h>

#include <QFile>
#include <QThreadPool>

#include <canberra.h>

namespace flitmark {

namespace {

/// Plays our own sounds as desktop event sounds. Opening the sound server can take its time or fail, so all of it
/// happens on a thread of its own that ends when there is nothing to play.
class CanberraSound final : public SystemSound
{
public:
    explicit CanberraSound(QString folder)
        : m_folder(std::move(folder))
    {
        m_thread.setMaxThreadCount(1);
    }

    ~CanberraSound() override
    {
        m_thread.waitForDone();
        if (m_context != nullptr) {
            ca_context_destroy(m_context);
        }
    }
    Q_DISABLE_COPY_MOVE(CanberraSound)

    void play(const QString& name) override
    {
        m_thread.start([this, name] { playNow(name); });
    }

private:
    /// The sound server reads files, so a sound is laid out of the program into the cache on first use.
    QString fileOf(const QString& name) const
    {
        QString path = m_folder + u'/' + name + QStringLiteral(".wav");
        if (!QFile::exists(path)) {
            QFile sound(QStringLiteral(":/flitmark/sounds/%1.wav").arg(name));
            if (!sound.open(QIODevice::ReadOnly) || !createFolder(m_folder) || !replaceFile(path, sound.readAll())) {
                return {};
            }
        }
        return path;
    }

    void playNow(const QString& name)
    {
        if (m_context == nullptr) {
            if (ca_context_create(&m_context) != CA_SUCCESS) {
                m_context = nullptr;
                return;
            }
            ca_context_change_props(m_context, CA_PROP_APPLICATION_NAME, "Flitmark", CA_PROP_APPLICATION_ID,
                                    "org.flitmark.Flitmark", nullptr);
        }
        const QByteArray file = QFile::encodeName(fileOf(name));
        ca_context_play(m_context, 0, CA_PROP_MEDIA_FILENAME, file.constData(), CA_PROP_MEDIA_ROLE, "event",
                        CA_PROP_EVENT_DESCRIPTION, name.toUtf8().constData(), nullptr);
    }

    QString m_folder;
    QThreadPool m_thread;
    ca_context* m_context = nullptr;
};

} // namespace

std::unique_ptr<SystemSound> makeSystemSound(const Directories& directories)
{
    return std::make_unique<CanberraSound>(directories.cache + QStringLiteral("/flitmark"));
}

} // namespace flitmark
