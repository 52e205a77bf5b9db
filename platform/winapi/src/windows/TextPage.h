// Which characters the bytes of a text stand for when it is shown or measured.
//
// Texts are in the ANSI code page. Where that is UTF-8, as Linux has it, hosts and message libraries that
// were written for one language still hand over texts whose bytes are of the code page which goes with it. A
// text that is not UTF-8 is therefore shown by the code page of the user interface's language: 949, 932, 936
// and 950 for Korean, Japanese and Chinese, 1250 and 1251 for languages of Central Europe and in Cyrillic
// letters, 1252 for all others. Its bytes stay as they are wherever they are stored, and come back the same.
//
// Differs: a text of such a page that happens to be UTF-8 as well is taken for UTF-8.
//
// Threads: any.
#pragma once

#include <windef.h>

#include <string>
#include <string_view>

// The number of the text's code page. A text that is UTF-8 but for a character that its end cuts is UTF-8.
__attribute__((visibility("default"))) UINT TextCodePage(std::string_view text);

// Its characters; a default character for what the code page does not know.
__attribute__((visibility("default"))) std::u16string ShownText(std::string_view text);
