// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

class QVBoxLayout;

namespace flitmark {

/// A dialog inside a window: a frame in the middle of its host, over a scrim that keeps clicks and the keyboard from
/// the rest, shortcuts among it; only Ctrl+Q goes by. Escape asks to close it. To screen readers it is a modal dialog.
class Sheet : public QWidget
{
    Q_OBJECT

public:
    /// `name` is the accessible name, `width` that of the frame; it is as high as what is in it, unless `height` is
    /// given. `host` is covered by it and must outlive it.
    Sheet(const QString& name, QWidget& host, int width, int height = 0);
    Q_DISABLE_COPY_MOVE(Sheet)

    bool isOpen() const { return !isHidden(); }
    /// Opens the sheet and gives it the keyboard, without choosing any of its controls: what is being typed answers
    /// nothing.
    void open();
    /// Closes it and gives the keyboard back to what had it before; to the host where that is gone.
    void dismiss();

Q_SIGNALS:
    /// The user wants the sheet away. It stays until `dismiss`.
    void closeAsked();

protected:
    /// Where the sheet's own widgets live, from edge to edge.
    QVBoxLayout& content() { return *m_content; }
    /// The row at the top: `title` at its left, the close button at its right.
    QWidget* makeHead(const QString& title, const QString& symbol = {}) const;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class Frame;

    QWidget& m_host;
    Frame* m_frame;
    QVBoxLayout* m_content;
    QPointer<QWidget> m_previousFocus;
};

} // namespace flitmark
