#include "CodePage.h"
#include "Environment.h"
#include "EnvironmentLocale.h"
#include "Error.h"

#include <winnls.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

struct Language {
    const char* locale; // language, or language_TERRITORY
    LANGID id;
};

// A territory's row stands before its language's own.
constexpr Language kLanguages[] = {
    {"ko", 0x0412},    {"en_GB", 0x0809}, {"en_AU", 0x0c09}, {"en_CA", 0x1009}, {"en", 0x0409},
    {"ja", 0x0411},    {"zh_TW", 0x0404}, {"zh_HK", 0x0c04}, {"zh_SG", 0x1004}, {"zh", 0x0804},
    {"de_CH", 0x0807}, {"de_AT", 0x0c07}, {"de", 0x0407},    {"fr_BE", 0x080c}, {"fr_CA", 0x0c0c},
    {"fr_CH", 0x100c}, {"fr", 0x040c},    {"es_MX", 0x080a}, {"es", 0x0c0a},    {"it", 0x0410},
    {"pt_BR", 0x0416}, {"pt", 0x0816},    {"nl_BE", 0x0813}, {"nl", 0x0413},    {"ru", 0x0419},
    {"pl", 0x0415},    {"tr", 0x041f},    {"cs", 0x0405},    {"sv", 0x041d},    {"da", 0x0406},
    {"fi", 0x040b},    {"nb", 0x0414},    {"no", 0x0414},    {"hu", 0x040e},    {"el", 0x0408},
    {"uk", 0x0422},    {"vi", 0x042a},    {"th", 0x041e},    {"id", 0x0421},    {"ro", 0x0418}};

bool Matches(const std::string& locale, const char* row)
{
    const size_t length = std::strlen(row);
    return locale.compare(0, length, row) == 0 &&
           (locale.size() == length || std::strchr("_.@", locale[length]));
}

// A language that is not in the table, and the "C" locale, count as English.
LANGID LanguageOf(const std::string& locale)
{
    const auto found = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                    [&locale](const Language& row) { return Matches(locale, row.locale); });
    return found == std::end(kLanguages) ? LANGID{0x0409} : found->id;
}

LANGID SystemLanguage()
{
    static const LANGID id = LanguageOf(EnvironmentLocale("LC_CTYPE"));
    return id;
}

LANGID UiLanguage()
{
    static const LANGID id = LanguageOf(EnvironmentLocale("LC_MESSAGES"));
    return id;
}

LANGID LanguageOfLcid(LCID locale)
{
    const LANGID id = LANGIDFROMLCID(locale);
    const bool isDefault = id == LANG_NEUTRAL || id == LANG_SYSTEM_DEFAULT || id == LANG_USER_DEFAULT;
    return isDefault ? SystemLanguage() : id;
}

std::string Formatted(const char* form, UINT value)
{
    char text[16];
    std::snprintf(text, sizeof text, form, value);
    return text;
}

// "" for a type that is not offered. Numbers are written with a point everywhere in this adapter.
std::string LocaleText(LCID locale, LCTYPE type)
{
    switch (type) {
    case LOCALE_ILANGUAGE:
        return Formatted("%04x", LanguageOfLcid(locale));
    case LOCALE_IDEFAULTANSICODEPAGE:
        return Formatted("%u", AnsiCodePage());
    case LOCALE_IDEFAULTCODEPAGE:
        return Formatted("%u", OemCodePage());
    case LOCALE_SDECIMAL:
        return ".";
    case LOCALE_STHOUSAND:
        return ",";
    default:
        return "";
    }
}

} // namespace

std::string EnvironmentLocale(const char* category)
{
    for (const char* name : {"LC_ALL", category, "LANG"})
        if (const auto value = EnvironmentText(name); value && !value->empty())
            return *value;
    return "C";
}

LANGID WINAPI GetSystemDefaultLangID()
{
    return SystemLanguage();
}

LANGID WINAPI GetUserDefaultLangID()
{
    return SystemLanguage();
}

LANGID WINAPI GetUserDefaultUILanguage()
{
    return UiLanguage();
}

int WINAPI GetLocaleInfoA(LCID locale, LCTYPE type, LPSTR buffer, int size)
{
    if (size < 0 || (size > 0 && !buffer))
        return Fail(ERROR_INVALID_PARAMETER);
    const std::string text = LocaleText(locale, type & ~(LOCALE_NOUSEROVERRIDE | LOCALE_USE_CP_ACP));
    if (text.empty())
        return Fail(ERROR_INVALID_FLAGS);
    const int needed = static_cast<int>(text.size() + 1);
    if (size > 0 && size < needed)
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    if (size > 0)
        std::memcpy(buffer, text.c_str(), text.size() + 1);
    return needed;
}
