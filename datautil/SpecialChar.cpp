// The symbols themselves are defined with the other data whose order at load counts: frame/Load.cpp.
#include "SpecialChar.h"

#include <LocaleLib.h>
#include <afxwin.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

// The columns of the table below; every other locale has the last one.
constexpr const char* kLocales[] = {"0412", "0411", "0804", "0409"};
constexpr std::size_t kColumns = std::size(kLocales) + 1;

struct Symbol {
    CString* member;
    char texts[kColumns][6];
};

// clang-format off
constexpr Symbol kSymbols[] = {
    {&CSpecialChar::m_csMulSign, {"\xA1\xA4", "*",        ".",        "\xB7",  "*"}},
    {&CSpecialChar::m_cs2Square, {"\xA9\xF7", "^2",       "^2",       "^2",    "^2"}},
    {&CSpecialChar::m_cs3Square, {"\xA9\xF8", "^3",       "^3",       "^3",    "^3"}},
    {&CSpecialChar::m_cs4Square, {"\xA9\xF9", "^4",       "^4",       "^4",    "^4"}},
    {&CSpecialChar::m_cs6Square, {"^6",       "^6",       "^6",       "^6",    "^6"}},
    {&CSpecialChar::m_csAlpha,   {"\xA5\xE1", "\x84\xBF", "Alpha",    "Alpha", "Alpha"}},
    {&CSpecialChar::m_csBeta,    {"\xA5\xE2", "\x83\xC0", "Beta",     "Beta",  "Beta"}},
    {&CSpecialChar::m_csGamma,   {"\xA5\xE3", "\x83\xC1", "Gamma",    "Gamma", "Gamma"}},
    {&CSpecialChar::m_csDelta,   {"\xA5\xE4", "\x83\xC2", "Delta",    "Delta", "Delta"}},
    {&CSpecialChar::m_csTheta,   {"\xA5\xE8", "\x83\xC6", "Theta",    "Theta", "Theta"}},
    {&CSpecialChar::m_csRho,     {"\xA5\xF1", "\x83\xCF", "Rou",      "Rho",   "Rho"}},
    {&CSpecialChar::m_csSigma,   {"\xA5\xF2", "\x83\xD0", "Sigma",    "Sigma", "Sigma"}},
    {&CSpecialChar::m_csPhi,     {"\xA5\xF5", "\x83\xD3", "Fi",       "Phi",   "Phi"}},
    {&CSpecialChar::m_csTau,     {"\xA5\xF3", "\x83\xD1", "Tau",      "Tau",   "Tau"}},
    {&CSpecialChar::m_csDegree,  {"\xA1\xC6", "\x81\x8B", "Deg",      "Deg.",  "Deg."}},
    {&CSpecialChar::m_csNu,      {"\xA5\xED", "\x83\xCB", "Nu",       "Nu",    "Nu"}},
    {&CSpecialChar::m_csMu,      {"\xA5\xEC", "\x83\xCA", "Mu",       "\xE6",  "Mu"}},
    {&CSpecialChar::m_csLamda,   {"\xA5\xEB", "\x83\xC9", "\xA6\xCB", "Lamda", "Lamda"}},
    {&CSpecialChar::m_csGammaC,  {"Gamma",    "\x83\xA1", "\xA7\xA4", "Gamma", "Gamma"}},
    {&CSpecialChar::m_csEta,     {"\xA5\xE7", "\x83\xC5", "\xA6\xC7", "Eta",   "Eta"}},
};
// clang-format on

CString TextOf(HWND window)
{
    CString text;
    const int room = ::GetWindowTextLengthA(window); // an upper bound where characters are double-byte
    const int length = ::GetWindowTextA(window, text.GetBuffer(room), room + 1);
    text.ReleaseBuffer(length);
    return text;
}

constexpr struct {
    const char* locale;
    UINT page;
} kPages[] = {{"0412", 949}, {"0411", 932}, {"0804", 936}, {"0409", 1252}};

// Empty when the text is not one of the page.
std::vector<WCHAR> Wide(UINT page, const CString& text)
{
    const int units = ::MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text, -1, nullptr, 0);
    std::vector<WCHAR> wide(static_cast<std::size_t>(units));
    ::MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text, -1, wide.data(), units);
    return wide;
}

CString InActivePage(const std::vector<WCHAR>& wide)
{
    const int bytes = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, nullptr, 0, nullptr, nullptr);
    CString text;
    ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text.GetBuffer(bytes), bytes, nullptr, nullptr);
    text.ReleaseBuffer();
    return text;
}

bool IsAscii(const CString& text)
{
    const char* const begin = text;
    return std::all_of(begin, begin + text.GetLength(), [](char c) { return (c & 0x80) == 0; });
}

bool IsOfActivePage(const CString& text)
{
    return !Wide(CP_ACP, text).empty();
}

// What goes into a caption: beside characters of the active page, bytes of another would make the whole no
// text in either.
CString Beside(const CString& caption, const CString& text)
{
    if (IsAscii(caption) || !IsOfActivePage(caption) || IsOfActivePage(text))
        return text;
    for (const auto& row : kPages)
        if (const auto wide = Wide(row.page, text); CLocaleLib::csLocale == row.locale && !wide.empty())
            return InActivePage(wide);
    return text;
}

template <class... TEXTS>
int FillCaption(const CWnd* window, int id, const TEXTS&... texts)
{
    if (!window || !::IsWindow(window->m_hWnd))
        return 0;
    const HWND control = ::GetDlgItem(window->m_hWnd, id);
    if (!control)
        return 0;
    CString filled;
    const CString caption = TextOf(control);
    filled.Format(caption, Beside(caption, texts)...);
    ::SetWindowTextA(control, filled);
    return 1;
}

} // namespace

CSpecialChar::~CSpecialChar() = default;

int CSpecialChar::InitSpecialChar()
{
    const auto column = std::find_if(std::begin(kLocales), std::end(kLocales),
                                     [](const char* locale) { return CLocaleLib::csLocale == locale; });
    for (const Symbol& symbol : kSymbols)
        *symbol.member = symbol.texts[column - std::begin(kLocales)];
    return 1;
}

int CSpecialChar::FillWindowChar(CWnd* pWnd, int nID, const CString& str1)
{
    return FillCaption(pWnd, nID, str1);
}

int CSpecialChar::FillWindowChar(CWnd* pWnd, int nID, const CString& str1, const CString& str2)
{
    return FillCaption(pWnd, nID, str1, str2);
}
