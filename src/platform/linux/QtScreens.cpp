// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Screens.h>
#include <platform/linux/Desktop.h>

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

namespace flitmark {

namespace {

/// Qt's screens, the primary one being the main one.
class QtScreens final : public Screens
{
public:
    QtScreens()
    {
        connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { follow(); });
        connect(qGuiApp, &QGuiApplication::screenAdded, this, &Screens::changed);
        connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Screens::changed);
        follow();
    }

    std::optional<ScreenFrames> mainScreen() const override
    {
        const QScreen* screen = QGuiApplication::primaryScreen();
        if (screen == nullptr) {
            return std::nullopt;
        }
        return ScreenFrames{flipped(screen->availableGeometry()), flipped(screen->geometry())};
    }

protected:
    double bottomOfMainScreen() const override
    {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return screen == nullptr ? 0 : screen->geometry().y() + screen->geometry().height();
    }

private:
    void follow()
    {
        if (m_screen != nullptr) {
            m_screen->disconnect(this);
        }
        m_screen = QGuiApplication::primaryScreen();
        if (m_screen != nullptr) {
            connect(m_screen, &QScreen::availableGeometryChanged, this, &Screens::changed);
            connect(m_screen, &QScreen::geometryChanged, this, &Screens::changed);
        }
        Q_EMIT changed();
    }

    QPointer<QScreen> m_screen;
};

} // namespace

std::unique_ptr<Screens> makeScreens()
{
    return std::make_unique<QtScreens>();
}

} // namespace flitmark
