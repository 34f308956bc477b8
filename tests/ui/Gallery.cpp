// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// Draws every component in every state, in every theme, at scale 1 and 2, into the folder given as its argument. For
// the eyes of developers: run it after a change to the toolkit and look at the pictures.

#include <ui/Button.h>
#include <ui/ChipButton.h>
#include <ui/ControlState.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/Painting.h>
#include <ui/SegmentedTabs.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QPaintEvent>

#include <cstdio>
#include <functional>

using namespace flitmark;

namespace {

using Appearance = ControlState::Appearance;
using Maker = std::function<QWidget*()>;

/// A window's ground.
class Frame final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter(this).fillRect(event->rect(), ThemeScope::of(*this).background);
    }
};

void fixState(QWidget& widget, Appearance appearance, bool isEnabled)
{
    widget.setEnabled(isEnabled);
    for (ControlState* state : widget.findChildren<ControlState*>()) {
        state->setAppearance(appearance);
    }
}

QWidget* inRow(const QList<QWidget*>& widgets)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    layout->addStretch();
    return row;
}

void addStates(QGridLayout& grid, const QString& name, const Maker& make)
{
    const int row = grid.rowCount();
    grid.addWidget(new Label(name, TextRole::Caption), row, 0);
    int column = 1;
    for (const Appearance appearance :
         {Appearance::Rest, Appearance::Hovered, Appearance::Pressed, Appearance::Focused, Appearance::Rest}) {
        QWidget* widget = make();
        fixState(*widget, appearance, column < 5);
        grid.addWidget(widget, row, column++, Qt::AlignLeft);
    }
}

Button* makeButton(const char* text, ButtonKind kind, const char* symbol = "")
{
    auto* button = new Button(QLatin1String(text), kind);
    button->setSymbol(QLatin1String(symbol));
    return button;
}

ChipButton* makeChip(bool isOn)
{
    auto* chip = new ChipButton(QStringLiteral("🔥"), QStringLiteral("#priority/high"));
    chip->setChecked(isOn);
    return chip;
}

void addButtons(QGridLayout& grid)
{
    addStates(grid, QStringLiteral("Filled button"),
              [] { return makeButton("Save", ButtonKind::Filled, "arrow.up.circle.fill"); });
    addStates(grid, QStringLiteral("Soft button"), [] { return makeButton("Browse", ButtonKind::Soft); });
    addStates(grid, QStringLiteral("Ghost button"), [] { return makeButton("Clear", ButtonKind::Ghost); });
    addStates(grid, QStringLiteral("Icon button"), [] {
        auto* button = new IconButton(QStringLiteral("Settings"));
        button->setSymbol(QStringLiteral("gear"));
        return button;
    });
    addStates(grid, QStringLiteral("Boxed icon"), [] {
        auto* button = new IconButton(QStringLiteral("Start"));
        button->setEmoji(QStringLiteral("🍅"));
        button->setGround(IconButtonGround::Boxed);
        return button;
    });
    addStates(grid, QStringLiteral("Quick tag"), [] { return makeChip(false); });
    addStates(grid, QStringLiteral("Quick tag, on"), [] { return makeChip(true); });
}

QWidget* makeTabs()
{
    auto* tabs = new SegmentedTabs;
    tabs->add(QStringLiteral("New"), QStringLiteral("plus.circle.fill"));
    tabs->add(QStringLiteral("Browse"), QStringLiteral("folder.fill"));
    tabs->add(QStringLiteral("Daily"), QStringLiteral("calendar"));
    return tabs;
}

QWidget* makeTexts()
{
    auto* texts = new QWidget;
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    constexpr TextRole roles[] = {TextRole::Display, TextRole::Title,    TextRole::Heading,
                                  TextRole::Note,    TextRole::Body,     TextRole::Strong,
                                  TextRole::Caption, TextRole::Overline, TextRole::Code};
    for (const TextRole role : roles) {
        column->addWidget(new Label(QStringLiteral("Finalize ⌥N 🍅🍅 release notes ❤️"), role));
    }
    auto* wrapped =
        new Label(QStringLiteral("Flitmark helps you capture fleeting thoughts 🔥 instantly. Notes are saved "
                                 "as markdown files to your Obsidian vault."));
    wrapped->setWordWrap(true);
    wrapped->setColor(&Theme::text2);
    column->addWidget(wrapped);
    auto* path =
        new Label(QStringLiteral("/home/mara/Documents/A very long folder name/Notes/Inbox/Archive/2026/January"),
                  TextRole::Caption);
    path->setElideMode(Qt::ElideMiddle);
    column->addWidget(path);
    auto* struck = new Label(QStringLiteral("Review release notes"));
    struck->setStruck(true);
    struck->setColor(&Theme::text2);
    column->addWidget(struck);
    texts->setFixedWidth(300);
    return texts;
}

std::unique_ptr<QWidget> makeComponents()
{
    auto frame = std::make_unique<Frame>();
    auto* column = new QVBoxLayout(frame.get());
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(12);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(12);
    int head = 0;
    for (const char* name : {"", "REST", "HOVER", "PRESSED", "FOCUS", "DISABLED"}) {
        grid->addWidget(new Label(QLatin1String(name), TextRole::Overline), 0, head++);
    }
    addButtons(*grid);
    column->addLayout(grid);
    column->addWidget(inRow({makeTabs()}));
    column->addWidget(makeTexts());
    return frame;
}

bool save(QWidget& widget, const QString& path, double scale)
{
    widget.ensurePolished();
    widget.adjustSize();
    QImage image(widget.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image.save(path);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: gallery FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    motion::set(motion::Setting::Never);

    QList<std::pair<QString, Theme>> themes;
    for (const ColorPalette palette : allColorPalettes()) {
        themes.append({rawValue(palette), themeOfPalette(palette)});
    }
    themes.append({QStringLiteral("window_light"), themeOfWindow(ColorPalette::obsidianNative, Scheme::Light)});
    themes.append({QStringLiteral("window_dark"), themeOfWindow(ColorPalette::obsidianNative, Scheme::Dark)});

    bool isComplete = true;
    for (const auto& [name, theme] : themes) {
        const std::unique_ptr<QWidget> components = makeComponents();
        ThemeScope::set(*components, theme);
        for (const int scale : {1, 2}) {
            const QString file = QStringLiteral("components-%1@%2.png").arg(name).arg(scale);
            isComplete = save(*components, folder.filePath(file), scale) && isComplete;
        }
    }
    return isComplete ? 0 : 1;
}
