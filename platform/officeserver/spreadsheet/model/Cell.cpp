#include "spreadsheet/model/Cell.h"

namespace zek::office {

const char* ErrorText(CellError error)
{
    static constexpr const char* kTexts[] = {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!",
                                             "#NAME?", "#NUM!",   "#N/A"};
    return kTexts[static_cast<std::size_t>(error)];
}

} // namespace zek::office
