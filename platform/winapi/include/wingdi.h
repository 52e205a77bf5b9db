// Device contexts as far as coordinates and the measures of texts need them: mapping modes, fonts, extents.
//
// Units: font heights, extents and metrics are logical units, which the mapping mode turns into pixels.
// Texts are in the ANSI code page.
// Errors: a handle that is gone answers 0 or null with ERROR_INVALID_HANDLE.
// Threads: any; a device context is used by one thread at a time.
// Differs: nothing is drawn. There are display and memory contexts, no world transforms, no printers; text is
// measured upright (no escapement), and no characters are spaced apart.
#pragma once

#include "windef.h"

using HGDIOBJ = void*;

// Mapping modes.
#define MM_TEXT 1
#define MM_LOMETRIC 2
#define MM_HIMETRIC 3
#define MM_LOENGLISH 4
#define MM_HIENGLISH 5
#define MM_TWIPS 6
#define MM_ISOTROPIC 7
#define MM_ANISOTROPIC 8
#define MM_MIN MM_TEXT
#define MM_MAX MM_ANISOTROPIC
#define MM_MAX_FIXEDSCALE MM_TWIPS

// Stock objects.
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17

// Kinds of objects.
#define OBJ_FONT 6

// What GetDeviceCaps tells.
#define TECHNOLOGY 2
#define HORZSIZE 4 // millimetres
#define VERTSIZE 6
#define HORZRES 8 // pixels
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define LOGPIXELSX 88 // pixels per logical inch
#define LOGPIXELSY 90
#define DT_RASDISPLAY 1

#define LF_FACESIZE 32

#define FW_DONTCARE 0
#define FW_THIN 100
#define FW_EXTRALIGHT 200
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_REGULAR 400
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_BOLD 700
#define FW_EXTRABOLD 800
#define FW_HEAVY 900

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define SHIFTJIS_CHARSET 128
#define HANGEUL_CHARSET 129
#define HANGUL_CHARSET 129
#define GB2312_CHARSET 134
#define CHINESEBIG5_CHARSET 136
#define OEM_CHARSET 255

#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0

#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30

#define TMPF_FIXED_PITCH 0x01 // set: the characters differ in width
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04

struct LOGFONTA {
    LONG lfHeight; // negative: of the characters, positive: of the line, 0: the default
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
};
using LOGFONT = LOGFONTA;
using LPLOGFONTA = LOGFONTA*;
using LPLOGFONT = LOGFONTA*;

struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRIC = TEXTMETRICA;
using LPTEXTMETRICA = TEXTMETRICA*;
using LPTEXTMETRIC = TEXTMETRICA*;

static_assert(sizeof(LOGFONTA) == 60 && sizeof(TEXTMETRICA) == 56);

// A memory context like `dc` (null: the screen): mode MM_TEXT, the system font. DeleteDC ends it.
WINBASEAPI HDC WINAPI CreateCompatibleDC(HDC dc);
WINBASEAPI BOOL WINAPI DeleteDC(HDC dc);
// The level that RestoreDC takes, 1 for the first; 0 on failure.
WINBASEAPI int WINAPI SaveDC(HDC dc);
// Back to that level, or for a negative one that many steps; FALSE for one that was not saved.
WINBASEAPI BOOL WINAPI RestoreDC(HDC dc, int level);
// 0 for an index that is not listed above. Without a display the screen is one of 1024 x 768 pixels.
WINBASEAPI int WINAPI GetDeviceCaps(HDC dc, int index);

// Objects. A font that is deleted while it is selected goes on measuring there.
WINBASEAPI HGDIOBJ WINAPI GetStockObject(int index); // null for an index that is not listed above
// The object before; null, and nothing changed, for an object that is gone.
WINBASEAPI HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
WINBASEAPI HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT kind); // OBJ_FONT only
// TRUE also for a stock object, which stays.
WINBASEAPI BOOL WINAPI DeleteObject(HGDIOBJ object);
// Copies at most `size` bytes of a font's LOGFONTA: their number, without a buffer the whole size.
WINBASEAPI int WINAPI GetObjectA(HANDLE object, int size, LPVOID buffer);
#define GetObject GetObjectA
WINBASEAPI HFONT WINAPI CreateFontIndirectA(const LOGFONTA* description);
#define CreateFontIndirect CreateFontIndirectA
WINBASEAPI HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight,
                                    DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                                    DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                                    DWORD pitchAndFamily, LPCSTR face);
#define CreateFont CreateFontA

// The width is the sum of the characters' advances, the height that of the line; no bytes measure 0 x 0.
// FALSE, *size untouched, for a negative number of bytes or where nothing can be measured.
WINBASEAPI BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int bytes, LPSIZE size);
#define GetTextExtentPoint32 GetTextExtentPoint32A
WINBASEAPI BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int bytes, LPSIZE size);
#define GetTextExtentPoint GetTextExtentPointA
// Differs: tmInternalLeading is 0 for a font that is described by the height of its line, tmOverhang always;
// tmPitchAndFamily tells the pitch alone.
WINBASEAPI BOOL WINAPI GetTextMetricsA(HDC dc, LPTEXTMETRICA metrics);
#define GetTextMetrics GetTextMetricsA

// Mapping. A device coordinate is
//   (logical - window origin) * viewport extent / window extent + viewport origin
// rounded to the nearest whole number, a half upwards (towards positive infinity); and so back.
// The metric, English and twip modes have extents of their own, y upwards. MM_ISOTROPIC starts with those of
// MM_LOMETRIC, and whenever an extent is set there the larger scale's viewport extent is reduced until a unit
// is as long both ways. MM_ANISOTROPIC starts with what was there.
WINBASEAPI int WINAPI GetMapMode(HDC dc);
WINBASEAPI int WINAPI SetMapMode(HDC dc, int mode); // the mode before; 0 for one that there is not

// Extents are kept as they are, with TRUE, outside the two last modes. FALSE for an extent of 0.
// `old` of the setting ones may be null.
WINBASEAPI BOOL WINAPI GetWindowExtEx(HDC dc, LPSIZE size);
WINBASEAPI BOOL WINAPI SetWindowExtEx(HDC dc, int x, int y, LPSIZE old);
WINBASEAPI BOOL WINAPI GetViewportExtEx(HDC dc, LPSIZE size);
WINBASEAPI BOOL WINAPI SetViewportExtEx(HDC dc, int x, int y, LPSIZE old);
WINBASEAPI BOOL WINAPI GetWindowOrgEx(HDC dc, LPPOINT point);
WINBASEAPI BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT old);
WINBASEAPI BOOL WINAPI OffsetWindowOrgEx(HDC dc, int dx, int dy, LPPOINT old);
WINBASEAPI BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT point);
WINBASEAPI BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old);
WINBASEAPI BOOL WINAPI OffsetViewportOrgEx(HDC dc, int dx, int dy, LPPOINT old);

// Fail with ERROR_ARITHMETIC_OVERFLOW, all points untouched, where one does not fit.
WINBASEAPI BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count);
WINBASEAPI BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count);
