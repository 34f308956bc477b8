// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

// What the library's header needs must not see the keyword renamed.
#include <xcb/xcb.h>

// The keyboard extension, whose header names a field by a keyword of C++.
#define explicit explicitFields
#include <xcb/xkb.h>
#undef explicit
