// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <config/ConfigManager.h>
#include <platform/Dialogs.h>
#include <ui/QtDialogs.h>
#include <ui/QuestionWindow.h>

#include <QDir>
#include <QFileDialog>

#include <utility>

namespace flitmark {

namespace {

class QtDialogs final : public Dialogs
{
public:
    QtDialogs(const ConfigManager& configManager, RunLoop& runLoop)
        : m_configManager(configManager)
        , m_runLoop(runLoop)
    {
    }

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

    void ask(const Question& question, Answered onAnswered) override
    {
        QuestionWindow* window = makeWindow(question, std::move(onAnswered), nullptr);
        m_questions.append(window);
        if (!m_areQuestionsAside) {
            window->showCentered();
        }
    }

    void askOver(QWidget& parent, const Question& question, Answered onAnswered) override
    {
        makeWindow(question, std::move(onAnswered), parent.window())->showCentered();
    }

    void setQuestionsAside(bool areAside) override
    {
        if (std::exchange(m_areQuestionsAside, areAside) == areAside) {
            return;
        }
        for (QuestionWindow* window : std::as_const(m_questions)) {
            if (areAside) {
                window->hide();
            } else {
                window->showCentered();
            }
        }
    }

private:
    /// The window goes when it is answered.
    QuestionWindow* makeWindow(const Question& question, Answered onAnswered, QWidget* parent)
    {
        auto* window = new QuestionWindow(question, m_configManager.config().colorPalette, m_runLoop, parent);
        QObject::connect(window, &QuestionWindow::answered, window,
                         [this, window, onAnswered = std::move(onAnswered)](qsizetype button) {
                             m_questions.removeOne(window);
                             window->deleteLater();
                             onAnswered(button);
                         });
        return window;
    }

    const ConfigManager& m_configManager;
    RunLoop& m_runLoop;
    /// Those over all windows that are not answered yet.
    QList<QuestionWindow*> m_questions;
    bool m_areQuestionsAside = false;
};

} // namespace

std::unique_ptr<Dialogs> makeDialogs(const ConfigManager& configManager, RunLoop& runLoop)
{
    return std::make_unique<QtDialogs>(configManager, runLoop);
}

} // namespace flitmark
