// The multibyte code page of the run-time library, set for a while.
#pragma once

#include <mbctype.h>

// Sets the page (0: single bytes only) for as long as it lives.
class MultibytePage
{
public:
    explicit MultibytePage(int page) { _setmbcp(page); }
    ~MultibytePage() { _setmbcp(m_before); }
    MultibytePage(const MultibytePage&) = delete;
    MultibytePage& operator=(const MultibytePage&) = delete;

private:
    int m_before = _getmbcp();
};
