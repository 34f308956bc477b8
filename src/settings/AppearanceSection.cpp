// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/AppearanceSection.h>
#include <ui/ListRow.h>

namespace flitmark {

namespace {

QColor colorOf(const Rgb& rgb)
{
    return QColor::fromRgbF(static_cast<float>(rgb.red), static_cast<float>(rgb.green), static_cast<float>(rgb.blue));
}

} // namespace

AppearanceSection::AppearanceSection(SettingsModel& model)
    : SettingsSection(model)
{
    addHeading(tr("Appearance"));
    addText(tr("Color Palette"), TextRole::Strong, 12);
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins({});
    column->setSpacing(4);
    for (const ColorPalette palette : allColorPalettes()) {
        RowContent content;
        content.swatches = {colorOf(primary(palette)), colorOf(accent(palette)), colorOf(background(palette))};
        content.title = label(palette);
        content.second = description(palette);
        content.ground = RowGround::Card;
        content.height = 56;
        auto* row = new ListRow(content);
        column->addWidget(row);
        follow([this, row, palette] { row->setChecked(this->model().state().selectedPalette == palette); });
        connect(row, &ListRow::toggled, this, [this, palette](bool isChecked) {
            if (isChecked) {
                this->model().set(&SettingsState::selectedPalette, palette);
            }
        });
    }
    add(list, 8);
    finish();
}

} // namespace flitmark
