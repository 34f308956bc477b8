// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/HelpSheet.h>
#include <settings/HelpView.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

constexpr QMargins around(16, 16, 16, 16);

} // namespace

HelpSheet::HelpSheet(QWidget& host, const QSize& size, const HelpServices& services)
    : Sheet(tr("Flitmark Help"), host, size.width(), size.height())
{
    // Made inside the sheet, so that it wears its theme from the start.
    auto* view = new HelpView(services, HelpView::Corners::Round, this);
    content().addWidget(view);
    connect(view, &HelpView::doneAsked, this, &HelpSheet::close);
    connect(this, &Sheet::closeAsked, this, &HelpSheet::close);
}

void HelpSheet::present(QWidget& host, const HelpServices& services)
{
    auto* sheet = new HelpSheet(host, host.size().shrunkBy(around), services);
    sheet->open();
}

void HelpSheet::close()
{
    dismiss();
    deleteLater();
}

} // namespace flitmark
