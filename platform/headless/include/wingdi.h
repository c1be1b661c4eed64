// Fonts, device contexts and colours, as far as a program that measures text needs them. Every font is 6 wide
// and 13 high.
#pragma once

#include "windef.h"

#define LF_FACESIZE 32

typedef struct tagLOGFONTW
{
    LONG lfHeight;
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
    WCHAR lfFaceName[LF_FACESIZE];
} LOGFONTW, *PLOGFONTW, *LPLOGFONTW;
typedef LOGFONTW LOGFONT;

typedef struct tagTEXTMETRICW
{
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
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICW, *PTEXTMETRICW, *LPTEXTMETRICW;
typedef TEXTMETRICW TEXTMETRIC;

#define FW_DONTCARE 0
#define FW_NORMAL 400
#define FW_BOLD 700
#define DEFAULT_CHARSET 1
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define DEFAULT_PITCH 0
#define FF_DONTCARE 0x00

#define WHITE_BRUSH 0
#define NULL_BRUSH 5
#define SYSTEM_FONT 13
#define DEFAULT_GUI_FONT 17

#define LOGPIXELSX 88
#define LOGPIXELSY 90

#define TRANSPARENT 1
#define OPAQUE 2
#define CLR_INVALID 0xFFFFFFFF
#define RGB(red, green, blue)                                                  \
    (static_cast<COLORREF>(static_cast<DWORD>(static_cast<BYTE>(red)) |        \
                           static_cast<DWORD>(static_cast<BYTE>(green)) << 8 | \
                           static_cast<DWORD>(static_cast<BYTE>(blue)) << 16))

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font);
HGDIOBJ WINAPI GetStockObject(int object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics);
