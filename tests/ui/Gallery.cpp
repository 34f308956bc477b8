// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// Draws the components in every state and theme, at scale 2, into the folder given as its argument. For the eyes of
// developers: run it after a change to the toolkit and look at the pictures.

#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/ChipButton.h>
#include <ui/ControlState.h>
#include <ui/IconButton.h>
#include <ui/ListRow.h>
#include <ui/Surfaces.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>

using namespace flitmark;

namespace {

using Appearance = ControlState::Appearance;

/// A row for each control: at rest, under the pointer, pressed, with the keyboard, disabled.
void fillWithControls(QWidget& frame)
{
    auto* grid = new QGridLayout(&frame);
    RowContent content;
    content.title = QStringLiteral("Inbox");
    const QList<std::function<QWidget*()>> makers{
        [] { return new Button(QStringLiteral("Save"), ButtonKind::Filled); },
        [] { return new Button(QStringLiteral("Browse"), ButtonKind::Soft); },
        [] { return new Button(QStringLiteral("Clear"), ButtonKind::Ghost); },
        [] {
            auto* button = new IconButton(QStringLiteral("Settings"));
            button->setSymbol(QStringLiteral("gear"));
            return button;
        },
        [] { return new ChipButton(QStringLiteral("🔥"), QStringLiteral("#priority/high")); },
        [] { return new CheckBox(QStringLiteral("Use it")); },
        [] { return new TextField(QStringLiteral("Subfolder")); },
        [&content] { return new ListRow(content); },
    };
    for (int index = 0; index < makers.size() * 2; ++index) {
        int column = 0;
        for (const Appearance appearance :
             {Appearance::Rest, Appearance::Hovered, Appearance::Pressed, Appearance::Focused, Appearance::Rest}) {
            QWidget* widget = makers[index / 2]();
            if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
                button->setChecked(index % 2 == 1);
            }
            widget->setEnabled(column < 4);
            for (ControlState* state : widget->findChildren<ControlState*>()) {
                state->setAppearance(appearance);
            }
            grid->addWidget(widget, index, column++);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QDir folder(application.arguments().value(1));
    motion::set(motion::Setting::Never);
    bool isComplete = argc == 2 && folder.mkpath(QStringLiteral("."));
    for (const ColorPalette palette : allColorPalettes()) {
        Ground components;
        fillWithControls(components);
        ThemeScope::set(components, themeOfPalette(palette));
        components.adjustSize();
        QImage image(components.size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        components.render(&image);
        isComplete = image.save(folder.filePath(rawValue(palette) + QStringLiteral(".png"))) && isComplete;
    }
    return isComplete ? 0 : 1;
}
