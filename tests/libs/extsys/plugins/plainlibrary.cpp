// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// A library without plugin metadata. Its code must not run: only the metadata
// is read before it is decided whether a file is a plugin.
[[gnu::constructor]] static void onLoad()
{
    __builtin_trap();
}
