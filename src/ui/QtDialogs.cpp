// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <platform/Dialogs.h>
#include <platform/SharedServices.h>

#include <QDir>
#include <QFileDialog>

#include <utility>

namespace flitmark {

namespace {

/// Qt's dialogs, which are the desktop's where it offers them.
class QtDialogs final : public Dialogs
{
public:
    void chooseFolder(QWidget& parent, const QString& message, FolderChosen onChosen) override
    {
        auto* dialog = new QFileDialog(&parent, message, QDir::homePath());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::Directory);
        dialog->setOption(QFileDialog::ShowDirsOnly);
        QObject::connect(dialog, &QFileDialog::fileSelected, &parent,
                         [onChosen = std::move(onChosen)](const QString& path) {
                             if (!path.isEmpty()) {
                                 onChosen(path);
                             }
                         });
        dialog->open();
    }
};

} // namespace

Dialogs& Dialogs::shared()
{
    return SharedServices::get<Dialogs>([] { return std::make_unique<QtDialogs>(); });
}

} // namespace flitmark
