// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusMessage>
#include <QObject>

namespace flitmark {

/// Whether the desktop asks for dark or light windows, as its portal tells. Some desktops say so there alone. Main
/// thread only.
class PortalColorScheme final : public QObject
{
    Q_OBJECT

public:
    enum class Preference { None, Dark, Light };

    explicit PortalColorScheme(QObject* parent);
    Q_DISABLE_COPY_MOVE(PortalColorScheme)

    /// Asks, and listens from then on. Without a portal nothing ever comes.
    void start();

Q_SIGNALS:
    void told(Preference wish);

private:
    // Found by its name, as the bus library asks for it. Before it has sent a variant, it takes no slots with variants.
    Q_SLOT void settingChanged(const QDBusMessage& signal);

    void tell(const QVariant& value);
};

} // namespace flitmark
