#include <LocaleLib.h>

// The data members are defined in Load.cpp, in the order in which they are set.

namespace {

constexpr const char* kKorean = "0412";
constexpr const char* kEnglish = "0409";
constexpr const char* kJapanese = "0411";
constexpr const char* kChinese = "0804";

// What GetUILanguage knows: Chinese is not among them, on purpose.
constexpr struct {
    unsigned short id;
    const char* text;
} kUILanguages[] = {{1042, kKorean}, {1033, kEnglish}, {1041, kJapanese}};

int Is(const char* language)
{
    return CLocaleLib::csLocale == language ? 1 : 0;
}

} // namespace

CLocaleLib::~CLocaleLib() = default;

CString CLocaleLib::GetSystemLocale()
{
    char text[32] = "";
    ::GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_ILANGUAGE, text, sizeof text);
    return text;
}

// Looked up when it is needed: older systems lack it.
unsigned short CLocaleLib::GetUserDefaultUILanguage()
{
    using Function = LANGID(WINAPI*)();
    const HMODULE kernel = ::GetModuleHandleA("KERNEL32.DLL");
    const FARPROC address = kernel ? ::GetProcAddress(kernel, "GetUserDefaultUILanguage") : nullptr;
    const auto ask = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(address));
    return ask ? ask() : LANGID{0};
}

CString CLocaleLib::GetUILanguage()
{
    const unsigned short id = GetUserDefaultUILanguage();
    for (const auto& language : kUILanguages)
        if (language.id == id)
            return language.text;
    return GetSystemLocale();
}

int CLocaleLib::IsKorean()
{
    return Is(kKorean);
}

int CLocaleLib::IsEnglish()
{
    return Is(kEnglish);
}

int CLocaleLib::IsJapanese()
{
    return Is(kJapanese);
}

int CLocaleLib::IsChinese()
{
    return Is(kChinese);
}
