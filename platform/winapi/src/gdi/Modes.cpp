#include "Objects.h"
#include "Screen.h"

#include "../Error.h"

#include <algorithm>
#include <vector>

namespace {

using Extent = LONG MappingAxis::*;
using Convert = bool (MappingAxis::*)(LONG, LONG&) const;

// Reads x and y of a member as a SIZE or a POINT.
template <class Pair>
BOOL Get(HDC dc, LONG MappingAxis::*member, Pair* pair)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    const Mapping& mapping = context->state.mapping;
    *pair = {mapping.x.*member, mapping.y.*member};
    return TRUE;
}

BOOL SetExtent(HDC dc, Extent member, int x, int y, LPSIZE old)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    Mapping& mapping = context->state.mapping;
    if (old)
        *old = {mapping.x.*member, mapping.y.*member};
    if (!mapping.HasFreeExtents())
        return TRUE;
    if (!x || !y)
        return Fail(ERROR_INVALID_PARAMETER);
    mapping.x.*member = x;
    mapping.y.*member = y;
    if (mapping.mode == MM_ISOTROPIC)
        mapping.Equalize(Screen());
    return TRUE;
}

// `isOffset`: x and y are added to the origin, else they replace it.
BOOL SetOrigin(HDC dc, LONG MappingAxis::*member, int x, int y, LPPOINT old, bool isOffset)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    Mapping& mapping = context->state.mapping;
    const POINT before = {mapping.x.*member, mapping.y.*member};
    if (old)
        *old = before;
    if (isOffset && (__builtin_add_overflow(x, before.x, &x) || __builtin_add_overflow(y, before.y, &y)))
        return Fail(ERROR_ARITHMETIC_OVERFLOW);
    mapping.x.*member = x;
    mapping.y.*member = y;
    return TRUE;
}

BOOL ConvertPoints(HDC dc, LPPOINT points, int count, Convert convert)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    const Mapping& mapping = context->state.mapping;
    std::vector<POINT> results(count > 0 ? static_cast<size_t>(count) : 0);
    for (size_t i = 0; i < results.size(); ++i)
        if (!(mapping.x.*convert)(points[i].x, results[i].x) ||
            !(mapping.y.*convert)(points[i].y, results[i].y))
            return Fail(ERROR_ARITHMETIC_OVERFLOW);
    std::copy(results.begin(), results.end(), points);
    return TRUE;
}

} // namespace

int WINAPI GetMapMode(HDC dc)
{
    const auto context = FindContext(dc);
    return context ? context->state.mapping.mode : 0;
}

int WINAPI SetMapMode(HDC dc, int mode)
{
    const auto context = FindContext(dc);
    if (!context)
        return 0;
    if (mode < MM_MIN || mode > MM_MAX)
        return Fail(ERROR_INVALID_PARAMETER);
    const int old = context->state.mapping.mode;
    const bool needsScreen = mode != MM_TEXT && mode != MM_ANISOTROPIC;
    context->state.mapping.SetMode(mode, needsScreen ? Screen() : ScreenScale{});
    return old;
}

BOOL WINAPI GetWindowExtEx(HDC dc, LPSIZE size)
{
    return Get(dc, &MappingAxis::windowExtent, size);
}

BOOL WINAPI SetWindowExtEx(HDC dc, int x, int y, LPSIZE old)
{
    return SetExtent(dc, &MappingAxis::windowExtent, x, y, old);
}

BOOL WINAPI GetViewportExtEx(HDC dc, LPSIZE size)
{
    return Get(dc, &MappingAxis::viewportExtent, size);
}

BOOL WINAPI SetViewportExtEx(HDC dc, int x, int y, LPSIZE old)
{
    return SetExtent(dc, &MappingAxis::viewportExtent, x, y, old);
}

BOOL WINAPI GetWindowOrgEx(HDC dc, LPPOINT point)
{
    return Get(dc, &MappingAxis::windowOrigin, point);
}

BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT old)
{
    return SetOrigin(dc, &MappingAxis::windowOrigin, x, y, old, false);
}

BOOL WINAPI OffsetWindowOrgEx(HDC dc, int dx, int dy, LPPOINT old)
{
    return SetOrigin(dc, &MappingAxis::windowOrigin, dx, dy, old, true);
}

BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT point)
{
    return Get(dc, &MappingAxis::viewportOrigin, point);
}

BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old)
{
    return SetOrigin(dc, &MappingAxis::viewportOrigin, x, y, old, false);
}

BOOL WINAPI OffsetViewportOrgEx(HDC dc, int dx, int dy, LPPOINT old)
{
    return SetOrigin(dc, &MappingAxis::viewportOrigin, dx, dy, old, true);
}

BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count)
{
    return ConvertPoints(dc, points, count, &MappingAxis::ToDevice);
}

BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count)
{
    return ConvertPoints(dc, points, count, &MappingAxis::ToLogical);
}
