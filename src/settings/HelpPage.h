// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpContent.h>
#include <settings/HelpServices.h>

#include <QWidget>

class QBoxLayout;
class QVBoxLayout;

namespace flitmark {

class Prose;
enum class TextRole;

/// One section of the help, built from its blocks.
class HelpPage final : public QWidget
{
    Q_OBJECT

public:
    explicit HelpPage(const QList<HelpBlock>& blocks, const HelpServices& services, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(HelpPage)

    void selectAll();
    /// The selected texts, one a line; empty when nothing is selected.
    QString selectedText() const;

private:
    /// Where the next block goes: a space below `previous`, or into the card or row that `previous` opened.
    QBoxLayout& placeFor(const HelpBlock& block, const HelpBlock* previous);
    QWidget* makeWidget(const HelpBlock& block);
    QWidget* makeRow(const HelpBlock& block);
    QWidget* makeLead(const HelpBlock& block);
    QLayout* makeTexts(const HelpBlock& block);
    QWidget* makeControl(const HelpBlock& block);
    QWidget* makeGroupHead(const HelpBlock& block);
    QWidget* makeLink(const HelpBlock& block);
    QWidget* makeConfigFolderButton(const HelpBlock& block);
    Prose* makeFact(LocalFact fact);
    QString textOf(LocalFact fact) const;

    HelpServices m_services;
    QVBoxLayout* m_column;
    /// What neighbours of one kind share.
    QBoxLayout* m_group = nullptr;
};

} // namespace flitmark
