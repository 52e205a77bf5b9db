// The device contexts of a thread.
#pragma once

#include "HandleMap.h"

#include <afxgdi_.h>

inline void SetContexts(CDC& object, HDC dc)
{
    object.m_hDC = object.m_hAttribDC = dc;
}

using ContextMap = HandleMap<CDC, CDC, SetContexts>;
