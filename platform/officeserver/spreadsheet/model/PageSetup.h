// How a sheet is printed and shown.
#pragma once

#include "spreadsheet/model/Block.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace zek::office {

constexpr double kPointsPerInch = 72;

// Both ends belong to the span.
struct Span {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    bool operator==(const Span&) const = default;
};

struct PageSetup {
    int paperSize = 0; // the file format's number (9 is A4); 0: nobody asked for one
    bool landscape = false;
    // Points.
    double leftMargin = 0.7 * kPointsPerInch;
    double rightMargin = 0.7 * kPointsPerInch;
    double topMargin = 0.75 * kPointsPerInch;
    double bottomMargin = 0.75 * kPointsPerInch;
    double headerMargin = 0.3 * kPointsPerInch;
    double footerMargin = 0.3 * kPointsPerInch;
    // Left, centre, right; UTF-8 with the usual & codes.
    std::array<std::string, 3> header;
    std::array<std::string, 3> footer;
    bool centerHorizontally = false;
    bool centerVertically = false;
    bool printGridlines = false;
    bool printHeadings = false;
    bool blackAndWhite = false;
    bool draft = false;
    bool overThenDown = false;
    int zoom = 100;                        // per cent; 0: fit to pages
    std::optional<int> fitToPagesWide = 1; // only with zoom 0; none: as many as it takes
    std::optional<int> fitToPagesTall = 1;
    std::optional<int> firstPageNumber; // none: automatic
    std::vector<Block> printArea;       // empty: the whole sheet
    std::optional<Span> titleRows;      // repeated on every page
    std::optional<Span> titleColumns;

    bool operator==(const PageSetup&) const = default;
};

struct SheetView {
    bool gridlines = true;
    bool headings = true;
    bool zeros = true;
    bool pageBreakPreview = false;
    bool showPageBreaks = false;  // dashed lines on the screen; not stored in files
    int zoom = 100;               // per cent
    std::uint32_t frozenRows = 0; // rows that stay above the split; 0: none
    std::uint32_t frozenColumns = 0;
    std::uint32_t scrollRow = 0; // first row and column shown
    std::uint32_t scrollColumn = 0;
    std::uint32_t activeRow = 0; // inside the selection
    std::uint32_t activeColumn = 0;
    Block selection;
    bool operator==(const SheetView&) const = default;
};

} // namespace zek::office
