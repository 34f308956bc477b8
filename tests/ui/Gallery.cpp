// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

// Draws every component in every state, in every theme, at scale 1 and 2, into the folder given as its argument. For
// the eyes of developers: run it after a change to the toolkit and look at the pictures.

#include <config/ConfigManager.h>
#include <platform/Dialogs.h>
#include <setup/SetupWizardModel.h>
#include <setup/SetupWizardView.h>
#include <support/TestFiles.h>
#include <ui/Button.h>
#include <ui/CheckBox.h>
#include <ui/ChipButton.h>
#include <ui/ControlState.h>
#include <ui/IconButton.h>
#include <ui/Label.h>
#include <ui/ListRow.h>
#include <ui/Painting.h>
#include <ui/ScrollArea.h>
#include <ui/SegmentedTabs.h>
#include <ui/Surfaces.h>
#include <ui/Symbols.h>
#include <ui/TextField.h>
#include <ui/ThemeScope.h>

#include <QApplication>
#include <QDir>
#include <QGridLayout>

#include "PanelPictures.h"

#include <cstdio>
#include <functional>

using namespace flitmark;

namespace {

using Appearance = ControlState::Appearance;
using Maker = std::function<QWidget*()>;

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

ListRow* makeRow(bool isSelected)
{
    RowContent content;
    content.symbol = QStringLiteral("folder.fill");
    content.title = QStringLiteral("Inbox");
    content.isSelected = isSelected;
    auto* row = new ListRow(content);
    row->setFixedWidth(isSelected ? 116 : 92);
    return row;
}

void addInputs(QGridLayout& grid)
{
    addStates(grid, QStringLiteral("Row"), [] { return makeRow(false); });
    addStates(grid, QStringLiteral("Row, selected"), [] { return makeRow(true); });
    addStates(grid, QStringLiteral("Field"), [] {
        auto* field = new TextField(QStringLiteral("Subfolder"));
        field->setText(QStringLiteral("Inbox"));
        field->setFixedWidth(92);
        return field;
    });
    addStates(grid, QStringLiteral("Field, empty"), [] {
        auto* field = new TextField(QStringLiteral("Subfolder"));
        field->setPlaceholderText(QStringLiteral("Inbox"));
        field->setFixedWidth(92);
        return field;
    });
    addStates(grid, QStringLiteral("Check box"), [] { return new CheckBox(QStringLiteral("Use it")); });
    addStates(grid, QStringLiteral("Check box, on"), [] {
        auto* box = new CheckBox(QStringLiteral("Use it"));
        box->setChecked(true);
        return box;
    });
}

Label* makeStatus(const char* text, ColorToken color)
{
    auto* label = new Label(QLatin1String(text), TextRole::Strong);
    label->setColor(color);
    return label;
}

QWidget* makeScrollArea()
{
    auto* area = new ScrollArea;
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 16, 0);
    column->setSpacing(4);
    for (int i = 0; i < 8; ++i) {
        RowContent content;
        content.symbol = QStringLiteral("folder.fill");
        content.title = QStringLiteral("A vault with a rather long name, number %1 of eight in all").arg(i);
        content.second = QStringLiteral("/home/mara/Documents/A very long folder name/Notes/Inbox/Archive %1").arg(i);
        content.secondElideMode = Qt::ElideMiddle;
        content.ground = RowGround::Card;
        content.height = 52;
        content.isSelected = i == 1;
        column->addWidget(new ListRow(content));
    }
    area->setWidget(list);
    area->setFixedSize(300, 160);
    return area;
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
    return texts;
}

QWidget* makeSymbols()
{
    auto* card = new Card;
    auto* grid = new QGridLayout(card);
    grid->setSpacing(8);
    int index = 0;
    for (const QString& name : Symbols::names()) {
        grid->addWidget(new SymbolView(name, 20, &Theme::mark), index / 9, index % 9);
        ++index;
    }
    return card;
}

std::unique_ptr<QWidget> makeComponents()
{
    auto frame = std::make_unique<Ground>();
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
    addInputs(*grid);
    column->addLayout(grid);
    column->addWidget(inRow({makeTabs()}));
    column->addWidget(
        inRow({new Badge(QStringLiteral("Default"), Badge::Kind::Accent), new Badge(QStringLiteral("Optional")),
               new Dots(4), makeStatus("Nothing to save", &Theme::info), makeStatus("Saved", &Theme::success),
               makeStatus("Error saving", &Theme::red)}));
    column->addWidget(new Divider);
    column->addWidget(inRow({makeScrollArea(), makeSymbols()}));
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

class NoDialogs final : public Dialogs
{
public:
    void chooseFolder(QWidget&, const QString&, FolderChosen) override {}
};

/// The wizard on a machine of its own with `vaults` vaults.
class WizardStage final
{
public:
    explicit WizardStage(int vaults)
    {
        QStringList entries;
        for (int i = 0; i < vaults; ++i) {
            const char* names[] = {"Notes", "Work", "Garden"};
            const QString name =
                i < 3 ? QLatin1String(names[i]) : QStringLiteral("Archive of the year %1").arg(2000 + i);
            const QString folder = i == 3 ? QStringLiteral("A very long folder name that goes on and on/and on")
                                          : QStringLiteral("Documents");
            entries.append(QStringLiteral("\"%1\":{\"path\":\"/home/mara/%2/%3\"}").arg(i).arg(folder, name));
        }
        writeTestFile(m_home.filePath(QStringLiteral("config/obsidian/obsidian.json")),
                      QStringLiteral("{\"vaults\":{%1}}").arg(entries.join(u',')).toUtf8());
        Directories directories;
        directories.home = m_home.path();
        directories.applicationSupport = m_home.filePath(QStringLiteral("support"));
        directories.configHome = m_home.filePath(QStringLiteral("config"));
        m_config = std::make_unique<ConfigManager>(directories);
        m_model = std::make_unique<SetupWizardModel>(*m_config, directories);
        m_view = std::make_unique<SetupWizardView>(*m_model, m_dialogs, ColorPalette::obsidianNative);
        m_view->setLocalHotkeyLine(QStringLiteral("On this computer: ⌥N is Alt+N."));
        m_view->show();
    }

    SetupWizardModel& model() { return *m_model; }
    SetupWizardView& view() { return *m_view; }

private:
    QTemporaryDir m_home;
    NoDialogs m_dialogs;
    std::unique_ptr<ConfigManager> m_config;
    std::unique_ptr<SetupWizardModel> m_model;
    std::unique_ptr<SetupWizardView> m_view;
};

bool saveWizard(const QDir& folder, const QString& kind)
{
    bool isComplete = true;
    const auto take = [&](WizardStage& stage, const QString& name) {
        QCoreApplication::processEvents();
        for (const int scale : {1, 2}) {
            const QString file = QStringLiteral("wizard-%1-%2@%3.png").arg(name, kind).arg(scale);
            isComplete = save(stage.view(), folder.filePath(file), scale) && isComplete;
        }
    };
    WizardStage stage(3);
    take(stage, QStringLiteral("0"));
    stage.model().forward();
    take(stage, QStringLiteral("1"));
    stage.model().setUseCustomPath(true);
    take(stage, QStringLiteral("1-custom"));
    stage.model().setCustomVaultPath(QStringLiteral("/home/mara/Nowhere"));
    take(stage, QStringLiteral("1-problem"));
    stage.model().setUseCustomPath(false);
    stage.model().forward();
    stage.model().toggleDefault(stage.model().quickTags()[2].id);
    take(stage, QStringLiteral("2"));
    stage.model().forward();
    take(stage, QStringLiteral("3"));

    WizardStage crowded(12);
    crowded.model().forward();
    crowded.model().selectVault(crowded.model().detectedVaults()[1].path);
    take(crowded, QStringLiteral("1-many"));
    WizardStage alone(0);
    alone.model().forward();
    take(alone, QStringLiteral("1-none"));
    return isComplete;
}

/// The wizard in both schemes, and with texts half as large again.
bool saveWizards(const QDir& folder)
{
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPointSizeF(16.5);
    const QPalette light(Qt::white, Qt::white);
    QPalette dark(QColor(40, 40, 42), QColor(40, 40, 42));
    bool isComplete = true;
    for (const auto& [scheme, palette] : {std::pair{QStringLiteral("light"), light}, {QStringLiteral("dark"), dark}}) {
        QApplication::setPalette(palette);
        QApplication::setFont(font);
        isComplete = saveWizard(folder, scheme) && isComplete;
        QApplication::setFont(large);
        isComplete = saveWizard(folder, scheme + QStringLiteral("-large")) && isComplete;
    }
    return isComplete;
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
    isComplete = savePanelPictures(folder) && isComplete;
    isComplete = saveWizards(folder) && isComplete;
    return isComplete ? 0 : 1;
}
