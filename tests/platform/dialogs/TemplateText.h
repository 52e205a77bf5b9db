// Writes dialog templates in memory, in either form.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Numbers of control classes.
constexpr WORD kButton = 0x80;
constexpr WORD kEdit = 0x81;
constexpr WORD kStatic = 0x82;
constexpr WORD kListBox = 0x83;
constexpr WORD kComboBox = 0x85;

class TemplateText
{
public:
    TemplateText(bool extended, DWORD style, short x, short y, short cx, short cy, const char* title = "");

    // A control with WS_CHILD and WS_VISIBLE besides `style`; `data` goes to WM_CREATE.
    TemplateText& Add(WORD kind, DWORD style, short x, short y, short cx, short cy, WORD id,
                      const char* text = "", const std::vector<WORD>& data = {});
    TemplateText& AddNamed(const char* kind, DWORD style, short x, short y, short cx, short cy, WORD id);

    LPCDLGTEMPLATEA Get() const { return reinterpret_cast<LPCDLGTEMPLATEA>(m_words.data()); }
    const std::vector<WORD>& Words() const { return m_words; }

private:
    void Word(int value) { m_words.push_back(static_cast<WORD>(value)); }
    void Long(DWORD value);
    void Text(const char* text);
    void Start(DWORD style, short x, short y, short cx, short cy, WORD id);

    bool m_extended;
    std::vector<WORD> m_words;
};
