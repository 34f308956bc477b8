// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <daily/tab/DailyDemoView.h>
#include <daily/tab/DailyTabRows.h>
#include <daily/tab/SectionCaption.h>
#include <ui/Button.h>
#include <ui/Label.h>
#include <ui/Surfaces.h>

#include <QVBoxLayout>

namespace flitmark {

namespace {

QWidget* makeTask(const QString& text)
{
    auto* task = new QWidget;
    auto* row = new QHBoxLayout(task);
    row->setContentsMargins(0, 8, 0, 8);
    row->setSpacing(12);
    row->addWidget(new SymbolView(QStringLiteral("circle"), 20, &Theme::text2));
    row->addWidget(new Label(text), 1);
    return task;
}

QWidget* makeFocus(const QString& text)
{
    auto* card = new Card;
    auto* row = new QHBoxLayout(card);
    row->setContentsMargins(12, 12, 12, 12);
    row->addWidget(new Label(text, TextRole::Strong));
    return card;
}

} // namespace

DailyDemoView::DailyDemoView()
{
    const DailyTabDemo demo = dailyTabDemo();
    auto* column = new QVBoxLayout;
    column->setContentsMargins(16, 8, 16, 8);
    column->setSpacing(0);
    column->addWidget(makeSectionCaption(tr("Today's Focus")));
    column->addWidget(makeFocus(demo.focus));
    column->addSpacing(8);
    column->addWidget(makeSectionCaption(tr("Tasks")));
    for (const QString& task : demo.tasks) {
        column->addWidget(makeTask(task));
    }
    column->addSpacing(8);
    column->addWidget(makeSectionCaption(tr("Work Done")));
    for (const QString& line : demo.workDone) {
        column->addWidget(new Label(line));
    }
    column->addStretch();

    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(16, 8, 16, 12);
    foot->addWidget(new Label(demo.caption, TextRole::Caption), 1);
    auto* open = new Button(tr("Open in Obsidian"));
    open->setSymbol(QStringLiteral("arrow.up.right.square"));
    foot->addWidget(open);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addLayout(column, 1);
    layout->addWidget(new Divider);
    layout->addLayout(foot);
}

} // namespace flitmark
