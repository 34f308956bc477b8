// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <settings/HelpServices.h>
#include <ui/Sheet.h>

namespace flitmark {

/// The help as a sheet over another window. Closed, it is gone, so that it opens at its first section the next time.
class HelpSheet final : public Sheet
{
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(HelpSheet)

    /// Opens the help over `host`, with a little of `host` left around it.
    static void present(QWidget& host, const HelpServices& services);

private:
    HelpSheet(QWidget& host, const QSize& size, const HelpServices& services);
    void close();
};

} // namespace flitmark
