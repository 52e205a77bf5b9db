// Enumerations of the spreadsheet program's type library that cell, page and window operations take.
//
// The operations of CMSExcel take most of them as `short`; every value fits.
#pragma once

namespace Excel9 {

enum XlHAlign {
    xlHAlignGeneral = 1,
    xlHAlignFill = 5,
    xlHAlignCenterAcrossSelection = 7,
    xlHAlignCenter = -4108,
    xlHAlignDistributed = -4117,
    xlHAlignJustify = -4130,
    xlHAlignLeft = -4131,
    xlHAlignRight = -4152
};
enum XlVAlign {
    xlVAlignBottom = -4107,
    xlVAlignCenter = -4108,
    xlVAlignDistributed = -4117,
    xlVAlignJustify = -4130,
    xlVAlignTop = -4160
};
enum XlLineStyle {
    xlContinuous = 1,
    xlDashDot = 4,
    xlDashDotDot = 5,
    xlSlantDashDot = 13,
    xlDash = -4115,
    xlDot = -4118,
    xlDouble = -4119,
    xlLineStyleNone = -4142
};
enum XlBorderWeight { xlHairline = 1, xlThin = 2, xlThick = 4, xlMedium = -4138 };
enum XlBordersIndex {
    xlDiagonalDown = 5,
    xlDiagonalUp = 6,
    xlEdgeLeft = 7,
    xlEdgeTop = 8,
    xlEdgeBottom = 9,
    xlEdgeRight = 10,
    xlInsideVertical = 11,
    xlInsideHorizontal = 12
};
enum XlColorIndex { xlColorIndexAutomatic = -4105, xlColorIndexNone = -4142 };
enum XlUnderlineStyle {
    xlUnderlineStyleSingle = 2,
    xlUnderlineStyleSingleAccounting = 4,
    xlUnderlineStyleDoubleAccounting = 5,
    xlUnderlineStyleDouble = -4119,
    xlUnderlineStyleNone = -4142
};
enum XlInsertShiftDirection { xlShiftDown = -4121, xlShiftToRight = -4161 };
enum XlDeleteShiftDirection { xlShiftToLeft = -4159, xlShiftUp = -4162 };
enum XlSheetVisibility { xlSheetHidden = 0, xlSheetVeryHidden = 2, xlSheetVisible = -1 };
enum XlWindowState { xlMaximized = -4137, xlMinimized = -4140, xlNormal = -4143 };
enum XlWindowView { xlNormalView = 1, xlPageBreakPreview = 2 };
enum XlPageOrientation { xlPortrait = 1, xlLandscape = 2 };
enum XlPaperSize {
    xlPaperLetter = 1,
    xlPaperLetterSmall = 2,
    xlPaperTabloid = 3,
    xlPaperLedger = 4,
    xlPaperLegal = 5,
    xlPaperStatement = 6,
    xlPaperExecutive = 7,
    xlPaperA3 = 8,
    xlPaperA4 = 9,
    xlPaperA4Small = 10,
    xlPaperA5 = 11,
    xlPaperB4 = 12,
    xlPaperB5 = 13,
    xlPaperFolio = 14,
    xlPaperQuarto = 15,
    xlPaper10x14 = 16,
    xlPaper11x17 = 17,
    xlPaperNote = 18,
    xlPaperEnvelope9 = 19,
    xlPaperEnvelope10 = 20,
    xlPaperEnvelope11 = 21,
    xlPaperEnvelope12 = 22,
    xlPaperEnvelope14 = 23,
    xlPaperCsheet = 24,
    xlPaperDsheet = 25,
    xlPaperEsheet = 26,
    xlPaperEnvelopeDL = 27,
    xlPaperEnvelopeC5 = 28,
    xlPaperEnvelopeC3 = 29,
    xlPaperEnvelopeC4 = 30,
    xlPaperEnvelopeC6 = 31,
    xlPaperEnvelopeC65 = 32,
    xlPaperEnvelopeB4 = 33,
    xlPaperEnvelopeB5 = 34,
    xlPaperEnvelopeB6 = 35,
    xlPaperEnvelopeItaly = 36,
    xlPaperEnvelopeMonarch = 37,
    xlPaperEnvelopePersonal = 38,
    xlPaperFanfoldUS = 39,
    xlPaperFanfoldStdGerman = 40,
    xlPaperFanfoldLegalGerman = 41,
    xlPaperUser = 256
};
enum XlSaveAsAccessMode { xlNoChange = 1, xlShared = 2, xlExclusive = 3 };

} // namespace Excel9

// Hosts write them without the namespace.
using Excel9::XlHAlign;
using enum Excel9::XlHAlign;
using Excel9::XlVAlign;
using enum Excel9::XlVAlign;
using Excel9::XlLineStyle;
using enum Excel9::XlLineStyle;
using Excel9::XlBorderWeight;
using enum Excel9::XlBorderWeight;
using Excel9::XlBordersIndex;
using enum Excel9::XlBordersIndex;
using Excel9::XlColorIndex;
using enum Excel9::XlColorIndex;
using Excel9::XlUnderlineStyle;
using enum Excel9::XlUnderlineStyle;
using Excel9::XlInsertShiftDirection;
using enum Excel9::XlInsertShiftDirection;
using Excel9::XlDeleteShiftDirection;
using enum Excel9::XlDeleteShiftDirection;
using Excel9::XlSheetVisibility;
using enum Excel9::XlSheetVisibility;
using Excel9::XlWindowState;
using enum Excel9::XlWindowState;
using Excel9::XlWindowView;
using enum Excel9::XlWindowView;
using Excel9::XlPageOrientation;
using enum Excel9::XlPageOrientation;
using Excel9::XlPaperSize;
using enum Excel9::XlPaperSize;
using Excel9::XlSaveAsAccessMode;
using enum Excel9::XlSaveAsAccessMode;
