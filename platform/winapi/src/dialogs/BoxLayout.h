// The shape of a message box.
#pragma once

#include "BoxButtons.h"
#include "Template.h"

#include <functional>

// Identifiers of the labels, those of the home platform's boxes.
constexpr int kBoxIconId = 20;
constexpr int kBoxTextId = 0xffff;

// A dialog with the icon that `style` asks for on the left, the text beside it and the buttons below, as wide
// as they need.
Template BoxTemplate(const std::u16string& text, const std::u16string& caption, UINT style);

// The lines that `text` takes when none is wider than `width`, counted up to `most`: words are kept whole
// unless they are wider. `measure` answers the width of a part of it.
using MeasureText = std::function<int(std::u16string_view)>;
int CountLines(std::u16string_view text, int width, int most, const MeasureText& measure);
// The width of the widest of its words, between which lines may be broken; `most` if one is wider.
int WidestWord(std::u16string_view text, int most, const MeasureText& measure);
