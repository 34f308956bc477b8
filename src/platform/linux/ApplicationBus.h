// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <platform/AppAction.h>

#include <QDBusContext>
#include <QObject>
#include <QVariant>

namespace flitmark {

/// The program on the session bus: the desktop's interface for applications, under the name of the desktop entry. A
/// missing bus, or one that goes away, is of no consequence. Main thread only.
class ApplicationBus final : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    explicit ApplicationBus(QObject* parent = nullptr);
    Q_DISABLE_COPY_MOVE(ApplicationBus)

    /// Takes the program's name on the bus; whether that worked is known later.
    void start();

    // What the bus calls; the names and parameters are the desktop's.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData);

Q_SIGNALS:
    void activationAsked(const QString& activationToken);
    void actionAsked(AppAction action, const QString& activationToken);
    /// Another copy has the name. It has been told to show itself.
    void nameTaken();

private:
    void requestName();
};

} // namespace flitmark
