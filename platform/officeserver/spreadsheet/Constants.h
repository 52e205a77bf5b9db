// Numbers of the published object model that members take and answer.
#pragma once

#include <windef.h>

namespace zek::office::xl {

constexpr LONG kNone = -4142;
constexpr LONG kAutomatic = -4105;

constexpr LONG kMaximized = -4137;
constexpr LONG kMinimized = -4140;
constexpr LONG kNormal = -4143;

constexpr LONG kCalculationAutomatic = -4105;
constexpr LONG kCalculationManual = -4135;
constexpr LONG kCalculationSemiautomatic = 2;

constexpr LONG kSheetVisible = -1;
constexpr LONG kSheetHidden = 0;
constexpr LONG kSheetVeryHidden = 2;
constexpr LONG kWorksheet = -4167;

constexpr LONG kWorkbookNormal = -4143;
constexpr LONG kOpenXmlWorkbook = 51;
constexpr LONG kOpenXmlWorkbookMacroEnabled = 52;

constexpr LONG kShiftDown = -4121;
constexpr LONG kShiftToRight = -4161;
constexpr LONG kShiftUp = -4162;
constexpr LONG kShiftToLeft = -4159;

constexpr LONG kNormalView = 1;
constexpr LONG kPageBreakPreview = 2;
constexpr LONG kPortrait = 1;
constexpr LONG kLandscape = 2;
constexpr LONG kDownThenOver = 1;
constexpr LONG kOverThenDown = 2;
constexpr LONG kPageBreakManual = -4135;

constexpr LONG kUnderlineSingle = 2;
constexpr LONG kUnderlineDouble = -4119;
constexpr LONG kUnderlineSingleAccounting = 4;
constexpr LONG kUnderlineDoubleAccounting = 5;

constexpr LONG kDiagonalDown = 5;
constexpr LONG kDiagonalUp = 6;
constexpr LONG kEdgeLeft = 7;
constexpr LONG kEdgeTop = 8;
constexpr LONG kEdgeBottom = 9;
constexpr LONG kEdgeRight = 10;
constexpr LONG kInsideVertical = 11;
constexpr LONG kInsideHorizontal = 12;

constexpr LONG kContinuous = 1;
constexpr LONG kDash = -4115;
constexpr LONG kDashDot = 4;
constexpr LONG kDashDotDot = 5;
constexpr LONG kDot = -4118;
constexpr LONG kDouble = -4119;
constexpr LONG kSlantDashDot = 13;

constexpr LONG kHairline = 1;
constexpr LONG kThin = 2;
constexpr LONG kMedium = -4138;
constexpr LONG kThick = 4;

constexpr LONG kUpward = -4171;
constexpr LONG kDownward = -4170;
constexpr LONG kHorizontal = -4128;
constexpr LONG kVertical = -4166;

constexpr LONG kA1 = 1;
constexpr LONG kCreator = 1480803660;

} // namespace zek::office::xl
