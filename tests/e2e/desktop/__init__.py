# SPDX-FileCopyrightText: 2026 The Flitmark authors
# SPDX-License-Identifier: MIT
"""Drives the real program on a real, private desktop and looks at it the way its users do."""
