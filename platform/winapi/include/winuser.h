// Message boxes, and stepping through texts of the ANSI code page.
#pragma once

#include "windef.h"
#include "winctl_.h"
#include "windc_.h"
#include "windlg_.h"
#include "winresrc.h"
#include "winwnd_.h"

#include <cstdarg>

#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_ABORTRETRYIGNORE 0x00000002u
#define MB_YESNOCANCEL 0x00000003u
#define MB_YESNO 0x00000004u
#define MB_RETRYCANCEL 0x00000005u
#define MB_CANCELTRYCONTINUE 0x00000006u
#define MB_ICONHAND 0x00000010u
#define MB_ICONQUESTION 0x00000020u
#define MB_ICONEXCLAMATION 0x00000030u
#define MB_ICONASTERISK 0x00000040u
#define MB_USERICON 0x00000080u
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONSTOP MB_ICONHAND
#define MB_DEFBUTTON1 0x00000000u
#define MB_DEFBUTTON2 0x00000100u
#define MB_DEFBUTTON3 0x00000200u
#define MB_DEFBUTTON4 0x00000300u
#define MB_APPLMODAL 0x00000000u
#define MB_SYSTEMMODAL 0x00001000u
#define MB_TASKMODAL 0x00002000u
#define MB_HELP 0x00004000u
#define MB_SETFOREGROUND 0x00010000u
#define MB_TOPMOST 0x00040000u
#define MB_TYPEMASK 0x0000000fu
#define MB_ICONMASK 0x000000f0u
#define MB_DEFMASK 0x00000f00u

// The button that was chosen; 0 with ERROR_INVALID_MSGBOX_STYLE for an unknown button set. A null caption
// is "Error".
// Threads: any. The first thread that shows a window or a box is the user-interface thread; the boxes of the
// others come up when it asks for messages, however many, and each thread's own timers and messages are
// served while it waits.
// Differs: the hook of zekhooks.h answers first, if one is set. Without a display, or when the user-interface
// thread has ended, caption and text are printed once on standard error and the default button is answered.
WINBASEAPI int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style);
#define MessageBox MessageBoxA
// Plays and returns at once. Differs: always the desktop's bell, rung by the user-interface thread of a program
// that has shown a window or box, silent elsewhere.
WINBASEAPI BOOL WINAPI MessageBeep(UINT type);

// The next and the previous character; at the text's end or start that place itself.
WINBASEAPI LPSTR WINAPI CharNextA(LPCSTR current);
#define CharNext CharNextA
WINBASEAPI LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR current);
#define CharPrev CharPrevA

// Convert in place and answer `text`; a value below 65536 is a single character and so is the answer.
// Differs: in UTF-8 letters beyond ASCII stay when their other case is of another length.
WINBASEAPI LPSTR WINAPI CharUpperA(LPSTR text);
#define CharUpper CharUpperA
WINBASEAPI LPSTR WINAPI CharLowerA(LPSTR text);
#define CharLower CharLowerA

// Between the ANSI and the OEM code page, `to` as large as `from` or `from` itself.
WINBASEAPI BOOL WINAPI CharToOemA(LPCSTR from, LPSTR to);
#define CharToOem CharToOemA
WINBASEAPI BOOL WINAPI OemToCharA(LPCSTR from, LPSTR to);
#define OemToChar OemToCharA
