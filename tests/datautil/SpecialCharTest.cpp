#include "SpecialChar.h"

#include <LocaleLib.h>

#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace {

CString* const kSymbols[] = {
    &CSpecialChar::m_csMulSign, &CSpecialChar::m_cs2Square, &CSpecialChar::m_cs3Square,
    &CSpecialChar::m_cs4Square, &CSpecialChar::m_cs6Square, &CSpecialChar::m_csAlpha,
    &CSpecialChar::m_csBeta,    &CSpecialChar::m_csGamma,   &CSpecialChar::m_csDelta,
    &CSpecialChar::m_csTheta,   &CSpecialChar::m_csRho,     &CSpecialChar::m_csSigma,
    &CSpecialChar::m_csPhi,     &CSpecialChar::m_csTau,     &CSpecialChar::m_csDegree,
    &CSpecialChar::m_csNu,      &CSpecialChar::m_csMu,      &CSpecialChar::m_csLamda,
    &CSpecialChar::m_csGammaC,  &CSpecialChar::m_csEta};

// All of them in the order above, a stroke behind each.
std::string Symbols()
{
    std::string all;
    for (const CString* symbol : kSymbols)
        all += std::string(*symbol) + "|";
    return all;
}

const std::string kAtLoad = Symbols();

const struct Language {
    const char *locale, *symbols;
} kLanguages[] = {
    {"0412", "\xA1\xA4|\xA9\xF7|\xA9\xF8|\xA9\xF9|^6|\xA5\xE1|\xA5\xE2|\xA5\xE3|\xA5\xE4|\xA5\xE8|\xA5\xF1|"
             "\xA5\xF2|\xA5\xF5|\xA5\xF3|\xA1\xC6|\xA5\xED|\xA5\xEC|\xA5\xEB|Gamma|\xA5\xE7|"},
    {"0411", "*|^2|^3|^4|^6|\x84\xBF|\x83\xC0|\x83\xC1|\x83\xC2|\x83\xC6|\x83\xCF|"
             "\x83\xD0|\x83\xD3|\x83\xD1|\x81\x8B|\x83\xCB|\x83\xCA|\x83\xC9|\x83\xA1|\x83\xC5|"},
    {"0804", ".|^2|^3|^4|^6|Alpha|Beta|Gamma|Delta|Theta|Rou|Sigma|Fi|Tau|Deg|Nu|Mu|\xA6\xCB|\xA7\xA4|"
             "\xA6\xC7|"},
    {"0409", "\xB7|^2|^3|^4|^6|Alpha|Beta|Gamma|Delta|Theta|Rho|Sigma|Phi|Tau|Deg.|Nu|\xE6|Lamda|Gamma|Eta|"},
    {"0407", "*|^2|^3|^4|^6|Alpha|Beta|Gamma|Delta|Theta|Rho|Sigma|Phi|Tau|Deg.|Nu|Mu|Lamda|Gamma|Eta|"},
};
const Language& kOther = *std::rbegin(kLanguages);

std::string SymbolsOf(const CString& locale)
{
    for (const Language& language : kLanguages)
        if (locale == language.locale)
            return language.symbols;
    return kOther.symbols;
}

// The protected member, as derived classes use it.
class OpenSpecialChar : public CSpecialChar
{
public:
    using CSpecialChar::InitSpecialChar;
};

TEST(SpecialChar, AreSetAtLoad)
{
    EXPECT_EQ(kAtLoad, SymbolsOf(CLocaleLib::GetSystemLocale()));
    EXPECT_EQ(CSpecialChar::m_bInit, 1);
}

TEST(SpecialChar, FollowTheLocaleOfTheMoment)
{
    for (const char* locale : {"0412", "0411", "0804", "0409", "0407", "", "412", "0412 ", "0c04", "ABCD"}) {
        SCOPED_TRACE(locale);
        CLocaleLib::csLocale = locale;
        EXPECT_EQ(OpenSpecialChar::InitSpecialChar(), 1);
        EXPECT_EQ(Symbols(), SymbolsOf(locale));
    }
    CLocaleLib::csLocale = CLocaleLib::GetSystemLocale();
    OpenSpecialChar::InitSpecialChar();
    EXPECT_EQ(Symbols(), kAtLoad);
}

} // namespace
