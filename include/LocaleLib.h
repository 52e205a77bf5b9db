// Which language the system and its user interface speak, as Windows language identifiers in four hexadecimal
// digits: "0412" Korean, "0409" English (United States), "0411" Japanese, "0804" simplified Chinese.
//
//   if (CLocaleLib::IsKorean())
//       title = CMsgDll::pfuncLoadStr("IDS_TITLE_KR", 0);
//
// Errors: a language that cannot be asked for is an empty text. Threads: the user-interface thread, as for
// any plain data; nothing here is written after the library's load but by hosts.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CLocaleLib
{
public:
    CLocaleLib() = default;
    virtual ~CLocaleLib();
    CLocaleLib(const CLocaleLib&) {}
    CLocaleLib& operator=(const CLocaleLib&) { return *this; }

    // The system's language and what follows from it, set once, at the library's load. A host may overwrite
    // them; the members below then answer by the host's value of csLocale.
    static CString csLocale;
    static int bKorean;           // 1: csLocale was "0412"
    static int bKoreanUILanguage; // 1: GetUILanguage() answered "0412"

    // The system's default language, asked for at each call.
    static CString GetSystemLocale();
    // The user interface's language as the system numbers it (1042 is Korean); 0 where the system does not
    // know such a thing.
    static unsigned short GetUserDefaultUILanguage();
    // The user interface's language if it is Korean, English (United States) or Japanese, else the system's.
    // A Chinese user interface is therefore reported as the system's language.
    static CString GetUILanguage();

    // 1 if csLocale is exactly the language's text, else 0.
    static int IsKorean();
    static int IsEnglish();
    static int IsJapanese();
    static int IsChinese();
};
