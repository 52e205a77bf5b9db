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

// The lines that `text` takes when words are kept whole and no other line is wider than `width`. `measure`
// answers the width of a part of it.
using MeasureText = std::function<int(std::u16string_view)>;
int CountLines(std::u16string_view text, int width, const MeasureText& measure);
// The widest of its words, between which lines may be broken.
int WidestWord(std::u16string_view text, const MeasureText& measure);
