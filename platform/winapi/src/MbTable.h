// The multibyte code page of the _mbs... functions.
#pragma once

#include "CodePage.h"

#include <atomic>

struct MbPage {
    UINT codePage; // 0: single bytes only
    const LeadTable* leads;
    // The full-width Latin letters, as pairs: capital A and the distance to small a; 0 if there are none.
    unsigned wideCapitalA, wideDistance;
};

// The active one; at first that of the ANSI code page.
const MbPage& ActiveMbPage();
