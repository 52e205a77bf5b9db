#include "MbTable.h"

#include <mbctype.h>
#include <winnls.h>

#include <algorithm>
#include <iterator>

namespace {

struct Trails {
    UINT codePage;
    unsigned first, last;
};

constexpr Trails kTrails[] = {{932, 0x40, 0x7e}, {932, 0x80, 0xfc}, {936, 0x40, 0x7e},
                              {936, 0x80, 0xfe}, {949, 0x41, 0x5a}, {949, 0x61, 0x7a},
                              {949, 0x81, 0xfe}, {950, 0x40, 0x7e}, {950, 0xa1, 0xfe}};

const MbPage* PageOf(UINT codePage)
{
    static const MbPage pages[] = {{932, &LeadBytes(932), 0x8260, 0x21},
                                   {936, &LeadBytes(936), 0xa3c1, 0x20},
                                   {949, &LeadBytes(949), 0xa3c1, 0x20},
                                   {950, &LeadBytes(950), 0, 0},
                                   {0, &LeadBytes(0), 0, 0}};
    const auto found = std::find_if(std::begin(pages), std::end(pages),
                                    [codePage](const MbPage& page) { return page.codePage == codePage; });
    return found == std::end(pages) ? std::end(pages) - 1 : found;
}

std::atomic<const MbPage*>& Active()
{
    static std::atomic<const MbPage*> active{PageOf(AnsiCodePage())};
    return active;
}

} // namespace

const MbPage& ActiveMbPage()
{
    return *Active().load(std::memory_order_relaxed);
}

int _getmbcp()
{
    return static_cast<int>(ActiveMbPage().codePage);
}

int _setmbcp(int codePage)
{
    UINT page = static_cast<UINT>(codePage);
    if (codePage == _MB_CP_ANSI)
        page = AnsiCodePage();
    if (codePage == _MB_CP_OEM)
        page = OemCodePage();
    CPINFO info;
    if (page != _MB_CP_SBCS && !GetCPInfo(page, &info))
        return -1;
    Active() = PageOf(page);
    return 0;
}

int _ismbblead(unsigned int byte)
{
    return (*ActiveMbPage().leads)[byte & 0xff];
}

int _ismbbtrail(unsigned int byte)
{
    const UINT codePage = ActiveMbPage().codePage;
    return std::any_of(std::begin(kTrails), std::end(kTrails), [=](const Trails& row) {
        return row.codePage == codePage && (byte & 0xff) >= row.first && (byte & 0xff) <= row.last;
    });
}
