// The workbooks that the scripts beside read back.
#pragma once

#include "spreadsheet/model/Workbook.h"

#include <memory>
#include <string>

// "rich": every feature once, as check_content.py expects it. "shared": what the peer library can say
// too, as PeerBook.cpp says it. "small": two cells. "large": some 50,000 cells. Null for another name.
std::unique_ptr<zek::office::Workbook> MakeSample(const std::string& name);
