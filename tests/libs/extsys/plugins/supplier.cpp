// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

int suppliedOther();

SUPPLIER_EXPORT int suppliedOther()
{
    return 1;
}

#ifdef SUPPLIER_HAS_FUNCTION
int supplied();

SUPPLIER_EXPORT int supplied()
{
    return 2;
}
#endif
