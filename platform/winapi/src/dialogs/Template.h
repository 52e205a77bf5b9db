// A dialog template, read from either of its two forms.
#pragma once

#include "../resources/ResourceFile.h"

#include <windlg_.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

struct TemplateFont {
    short pointSize = 8;
    short weight = 400;
    bool italic = false;
    BYTE charSet = 1;
    std::u16string face;
};

// Rectangles are in dialog units.
struct TemplateItem {
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0, y = 0, cx = 0, cy = 0;
    DWORD id = 0;
    ResourceId kind; // a class by number (0x80: button) or name
    ResourceId text;
    std::vector<BYTE> data; // what WM_CREATE gets, with its size before it; empty: nothing
};

struct Template {
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0, y = 0, cx = 0, cy = 0;
    ResourceId kind; // number 0: the ordinary dialog class
    std::u16string title;
    std::optional<TemplateFont> font;
    std::vector<TemplateItem> items;
};

// Nothing for a template that is damaged or reaches beyond `bytes`.
std::optional<Template> ReadTemplate(std::span<const BYTE> bytes);
