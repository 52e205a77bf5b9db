// The parts of a format as the styles part writes them.
#pragma once

#include "spreadsheet/model/Format.h"

#include <string>
#include <string_view>

namespace zek::office {

std::string FontPiece(const Font& font, std::string_view typeface);
std::string FillPiece(const Fill& fill);
std::string BorderPiece(const Borders& borders);

// "" for what a cell has by itself.
std::string AlignmentPiece(const Alignment& alignment);
std::string ProtectionPiece(const Protection& protection);

} // namespace zek::office
