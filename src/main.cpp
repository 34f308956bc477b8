// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <app/FlitmarkApp.h>

int main(int argc, char** argv)
{
    flitmark::FlitmarkApp app(argc, argv);
    return app.run();
}
