// Prints what the library has found out about languages at its load.
#include <LocaleLib.h>

#include <cstdio>

int main()
{
    std::printf("[%s %d %d %s]\n", LPCSTR(CLocaleLib::csLocale), CLocaleLib::bKorean,
                CLocaleLib::bKoreanUILanguage, LPCSTR(CLocaleLib::GetUILanguage()));
    return 0;
}
