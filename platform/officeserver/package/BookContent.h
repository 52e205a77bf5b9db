// What of a workbook goes into a file: its rows in order, the texts and formats that cells really use.
#pragma once

#include "spreadsheet/model/Workbook.h"

#include <cstdint>
#include <vector>

namespace zek::office {

struct StoredRow {
    std::uint32_t number; // from 0
    const Row* row;
};

struct BookContent {
    // Looks at every cell once. The workbook must stay unchanged as long as the content is used.
    explicit BookContent(const Workbook& book);

    const Workbook& book;
    std::vector<std::vector<StoredRow>> rows; // by sheet
    std::vector<TextId> texts;                // in the order in which cells meet them
    std::vector<std::uint32_t> textNumbers;   // by TextId: the place in `texts`
    std::uint64_t textCells = 0;
    std::vector<FormatId> formats; // the default format first, then in the order in which they are met
    bool hasFormulas = false;

private:
    void TakeSheet(const Sheet& sheet);
    void TakeCell(const Cell& cell);
    void TakeFormat(FormatId format);

    std::vector<bool> m_formatSeen;
};

} // namespace zek::office
