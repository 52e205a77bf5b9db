#include "BoxLayout.h"

#include "Units.h"

#include <winnls.h>

#include <algorithm>

namespace {

// In dialog units.
constexpr int kMargin = 8;
constexpr int kIconGap = 8;
constexpr int kTextToButtons = 10;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kButtonGap = 4;
constexpr int kButtonPadding = 12;
constexpr int kUsualTextWidth = 278;
constexpr int kCaptionPadding = 40; // for the close box
constexpr short kPointSize = 9;

constexpr DWORD kWindow = WS_POPUP | WS_CAPTION;
constexpr WORD kButtonClass = 0x80;
constexpr WORD kStaticClass = 0x82;

// Pixels, dialog units rounded up.
struct Measures {
    HFONT font;
    HDC screen;
    SIZE base;

    explicit Measures(const TemplateFont& wanted)
        : font(MakeDialogFont(wanted)), screen(CreateCompatibleDC(nullptr)), base(BaseUnits(font))
    {
        SelectObject(screen, font);
    }
    ~Measures()
    {
        DeleteDC(screen);
        DeleteObject(font);
    }
    Measures(const Measures&) = delete;
    Measures& operator=(const Measures&) = delete;

    // A tab goes on to the next multiple of eight average characters.
    int Width(std::u16string_view text) const
    {
        const int stop = 8 * base.cx;
        int width = 0;
        for (size_t tab = text.find(u'\t'); tab != text.npos; tab = text.find(u'\t')) {
            width = ((width + PlainWidth(text.substr(0, tab))) / stop + 1) * stop;
            text.remove_prefix(tab + 1);
        }
        return width + PlainWidth(text);
    }
    int PlainWidth(std::u16string_view text) const
    {
        const std::string ansi = AnsiText(text);
        SIZE size = {};
        GetTextExtentPoint32A(screen, ansi.data(), static_cast<int>(ansi.size()), &size);
        return size.cx;
    }
    int UnitsAcross(int pixels) const { return (pixels * 4 + base.cx - 1) / base.cx; }
    int UnitsDown(int pixels) const { return (pixels * 8 + base.cy - 1) / base.cy; }
};

struct Extent {
    int width = 0;
    int height = 0;
};

// The lines of text that the screen has room for, with all that stands above and below it.
int LinesOnScreen(const Measures& measures)
{
    constexpr int kOther = 2 * kMargin + kTextToButtons + kButtonHeight;
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    RECT frame = {};
    AdjustWindowRectEx(&frame, kWindow, FALSE, WS_EX_DLGMODALFRAME);
    const int room = area.bottom - area.top - (frame.bottom - frame.top) - DownUnits(kOther, measures.base);
    return std::max<int>(room / measures.base.cy, 1);
}

// The width of the text: that of the longest line up to the usual width; wider only for a word that needs it,
// or where the screen is too low, but never wider than most of the screen.
int TextWidth(const std::u16string& text, int mostLines, const Measures& measures)
{
    const MeasureText measure = [&](std::u16string_view part) { return measures.Width(part); };
    const int usual = AcrossUnits(kUsualTextWidth, measures.base);
    const int widest = std::max(usual, GetSystemMetrics(SM_CXSCREEN) * 3 / 4);
    const int word = WidestWord(text, widest, measure);
    const int lines = CountLines(text, std::max(usual, word), mostLines + 1, measure);
    if (lines > mostLines)
        return widest;
    // Unless a line was broken the box need not be as wide as it may be.
    const int width = std::max(usual, word);
    if (lines != std::count(text.begin(), text.end(), u'\n') + 1)
        return width;
    int used = word;
    while (used < width && CountLines(text, used, lines + 1, measure) > lines)
        used += measures.base.cx;
    return std::min(used, width);
}

// What the screen has no room for is cut off at its end.
Extent TextExtent(const std::u16string& text, const Measures& measures)
{
    const MeasureText measure = [&](std::u16string_view part) { return measures.Width(part); };
    const int mostLines = LinesOnScreen(measures);
    const int width = TextWidth(text, mostLines, measures);
    const int lines = CountLines(text, width, mostLines, measure);
    return {measures.UnitsAcross(width) + 2, measures.UnitsDown(lines * measures.base.cy)};
}

TemplateItem Item(WORD kind, DWORD style, DWORD id, int x, int y, const Extent& size, std::u16string text)
{
    TemplateItem item;
    item.style = style | WS_CHILD | WS_VISIBLE;
    item.x = static_cast<short>(x);
    item.y = static_cast<short>(y);
    item.cx = static_cast<short>(size.width);
    item.cy = static_cast<short>(size.height);
    item.id = id;
    item.kind = kind;
    item.text = std::move(text);
    return item;
}

DWORD BoxStyle(const BoxButtons& buttons, UINT style)
{
    DWORD window = kWindow | DS_SETFONT | DS_MODALFRAME | DS_NOIDLEMSG | DS_CENTER;
    // A question that must be answered has no close box.
    window |= buttons.Cancel() ? WS_SYSMENU : 0;
    return window | ((style & MB_SETFOREGROUND) ? DS_SETFOREGROUND : 0);
}

// All as wide as the widest.
Extent ButtonExtent(const BoxButtons& buttons, LANGID language, const Measures& measures)
{
    int width = kButtonWidth;
    for (const int id : buttons.Ids())
        width =
            std::max(width, measures.UnitsAcross(measures.Width(ButtonText(id, language))) + kButtonPadding);
    return {width, kButtonHeight};
}

void AddButtons(Template& box, const BoxButtons& buttons, const Extent& size, LANGID language, int x, int y)
{
    for (const int id : buttons.Ids()) {
        const bool first = id == buttons.Ids().front();
        const DWORD look = id == buttons.Default() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        box.items.push_back(Item(kButtonClass, look | WS_TABSTOP | (first ? WS_GROUP : 0),
                                 static_cast<DWORD>(id), x, y, size, ButtonText(id, language)));
        x += size.width + kButtonGap;
    }
}

} // namespace

Template BoxTemplate(const std::u16string& text, const std::u16string& caption, UINT style)
{
    const BoxButtons buttons(style);
    const LANGID language = GetUserDefaultUILanguage();
    Template box;
    box.style = BoxStyle(buttons, style);
    box.exStyle = (style & (MB_TOPMOST | MB_SYSTEMMODAL)) ? WS_EX_TOPMOST : 0;
    box.title = caption;
    box.font = TemplateFont{kPointSize, 400, false, 1, u"MS Shell Dlg"};
    const Measures measures(*box.font);

    const bool hasIcon = style & MB_ICONMASK;
    const Extent icon = {measures.UnitsAcross(GetSystemMetrics(SM_CXICON)),
                         measures.UnitsDown(GetSystemMetrics(SM_CYICON))};
    const Extent label = TextExtent(text, measures);
    const Extent button = ButtonExtent(buttons, language, measures);
    const int labelX = kMargin + (hasIcon ? icon.width + kIconGap : 0);
    const int bodyHeight = std::max(label.height, hasIcon ? icon.height : 0);
    const int buttonCount = static_cast<int>(buttons.Ids().size());
    const int buttonRow = buttonCount * (button.width + kButtonGap) - kButtonGap;
    const int captionWidth = measures.UnitsAcross(measures.Width(caption)) + kCaptionPadding;
    const int width = std::max(
        {labelX + label.width + kMargin, buttonRow + 2 * kMargin, std::min(captionWidth, kUsualTextWidth)});
    const int buttonY = kMargin + bodyHeight + kTextToButtons;
    box.cx = static_cast<short>(width);
    box.cy = static_cast<short>(buttonY + button.height + kMargin);

    if (hasIcon)
        box.items.push_back(Item(kStaticClass, SS_ICON, kBoxIconId, kMargin, kMargin, icon, u""));
    box.items.push_back(Item(kStaticClass, SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL, kBoxTextId, labelX,
                             kMargin + (bodyHeight - label.height) / 2, label, text));
    AddButtons(box, buttons, button, language, (width - buttonRow) / 2, buttonY);
    return box;
}
