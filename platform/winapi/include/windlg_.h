// Dialogs, their controls and keys, accelerators, and the texts of resources.
//
// Rectangles of templates are in dialog units: a quarter of the average width and an eighth of the height of
// the dialog's font. Threads: that of the windows.
// Errors: a dialog that cannot be made answers null or -1; GetLastError tells why:
// ERROR_RESOURCE_NAME_NOT_FOUND, ERROR_RESOURCE_DATA_NOT_FOUND (a damaged template),
// ERROR_CANNOT_FIND_WND_CLASS (a control's), ERROR_INVALID_WINDOW_HANDLE (the owner), or what CreateWindowEx
// says where no window can be shown.
#pragma once

#include "libloaderapi.h"
#include "windef.h"
#include "winresrc.h"

struct MSG;

// TRUE: the message was dealt with. For a few (WM_INITDIALOG, WM_CTLCOLOR..., WM_COMPAREITEM,
// WM_VKEYTOITEM, WM_CHARTOITEM, WM_QUERYDRAGICON) the answer itself counts.
using DLGPROC = INT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

// A template begins with one of these, or, in its extended form, with the words 1 and 0xffff; names, the
// font and the items follow, each item at a multiple of four bytes.
#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit; // items
    short x, y, cx, cy;
};
struct DLGITEMTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    short x, y, cx, cy;
    WORD id;
};
#pragma pack(pop)
using LPDLGTEMPLATE = DLGTEMPLATE*;
using LPCDLGTEMPLATE = const DLGTEMPLATE*;
using LPCDLGTEMPLATEA = const DLGTEMPLATE*;
using LPDLGITEMTEMPLATE = DLGITEMTEMPLATE*;
static_assert(sizeof(DLGTEMPLATE) == 18 && sizeof(DLGITEMTEMPLATE) == 18);

// What a dialog's window keeps: SetWindowLongPtr(dialog, DWLP_MSGRESULT, answer) is the answer of a message
// that the dialog procedure dealt with.
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC 8
#define DWLP_USER 16
#define DLGWINDOWEXTRA 30

#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DC_HASDEFID 0x534b

#define MSGF_DIALOGBOX 0
#define MSGF_MESSAGEBOX 1

// Which keys a control wants for itself, and what it is.
#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_WANTMESSAGE 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_WANTCHARS 0x0080
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

#define BST_UNCHECKED 0x0000
#define BST_CHECKED 0x0001
#define BST_INDETERMINATE 0x0002
#define BST_PUSHED 0x0004
#define BST_FOCUS 0x0008

// Shows the dialog and answers what EndDialog was given; 0 if `owner` is no window, -1 on any other failure.
// The owner is disabled meanwhile. WM_QUIT ends it and stays in the queue.
WINBASEAPI INT_PTR WINAPI DialogBoxParamA(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure,
                                          LPARAM data);
#define DialogBoxParam DialogBoxParamA
#define DialogBoxA(module, name, owner, procedure) DialogBoxParamA(module, name, owner, procedure, 0)
#define DialogBox DialogBoxA
WINBASEAPI INT_PTR WINAPI DialogBoxIndirectParamA(HINSTANCE module, LPCDLGTEMPLATEA shape, HWND owner,
                                                  DLGPROC procedure, LPARAM data);
#define DialogBoxIndirectParam DialogBoxIndirectParamA
#define DialogBoxIndirectA(module, shape, owner, procedure)                                                  \
    DialogBoxIndirectParamA(module, shape, owner, procedure, 0)
#define DialogBoxIndirect DialogBoxIndirectA

// Makes the dialog and its controls; shown only with WS_VISIBLE.
WINBASEAPI HWND WINAPI CreateDialogParamA(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure,
                                          LPARAM data);
#define CreateDialogParam CreateDialogParamA
#define CreateDialogA(module, name, owner, procedure) CreateDialogParamA(module, name, owner, procedure, 0)
#define CreateDialog CreateDialogA
WINBASEAPI HWND WINAPI CreateDialogIndirectParamA(HINSTANCE module, LPCDLGTEMPLATEA shape, HWND owner,
                                                  DLGPROC procedure, LPARAM data);
#define CreateDialogIndirectParam CreateDialogIndirectParamA
#define CreateDialogIndirectA(module, shape, owner, procedure)                                               \
    CreateDialogIndirectParamA(module, shape, owner, procedure, 0)
#define CreateDialogIndirect CreateDialogIndirectA

// Hides a modal dialog and lets its DialogBox answer `result`, once the message at hand is done.
WINBASEAPI BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
// The procedure of the class "#32770": asks the dialog procedure, then does what dialogs do.
WINBASEAPI LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
#define DefDlgProc DefDlgProcA
// Whether the message was the dialog's and has been dealt with: Tab, arrows, Enter, Escape and mnemonics move
// and press, everything else is dispatched.
WINBASEAPI BOOL WINAPI IsDialogMessageA(HWND dialog, MSG* message);
#define IsDialogMessage IsDialogMessageA

// Width and height (low and high word) of a dialog unit's base in the system font.
WINBASEAPI LONG WINAPI GetDialogBaseUnits();
// From the dialog's units to pixels, rounded to the nearest.
WINBASEAPI BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);

// The next (`previous`: the one before) control with WS_TABSTOP, or of the group of `control`, that is to be
// seen and enabled; the same control when there is no other.
WINBASEAPI HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
WINBASEAPI HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);

// The length copied, at most `size` - 1; 0 for a missing control.
WINBASEAPI UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR buffer, int size);
#define GetDlgItemText GetDlgItemTextA
WINBASEAPI BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
#define SetDlgItemText SetDlgItemTextA
// The number at the text's start; *translated (may be null) is FALSE and the answer 0 where there is none,
// where anything but blanks follows it, or where it does not fit.
WINBASEAPI UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
WINBASEAPI BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
// The control's answer; 0 for a missing one.
WINBASEAPI LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                              LPARAM lParam);
#define SendDlgItemMessage SendDlgItemMessageA
WINBASEAPI BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
WINBASEAPI UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
// Checks `id` and clears the other radio buttons from `first` to `last`.
WINBASEAPI BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int id);

// What a box with MB_HELP sends to its owner with WM_HELP.
#define HELPINFO_WINDOW 0x0001
struct HELPINFO {
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
};
using LPHELPINFO = HELPINFO*;

// Copies text `id` of the module's string tables, cut to `size` - 1 bytes and terminated; answers its length.
// With `size` 0 `buffer` is a pointer that receives the address of the UTF-16 text inside the resource, not
// terminated, and the answer is its length in units. 0 when there is no such text; `buffer` then is empty.
WINBASEAPI int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);
#define LoadString LoadStringA

#define FVIRTKEY 0x01
#define FNOINVERT 0x02
#define FSHIFT 0x04
#define FCONTROL 0x08
#define FALT 0x10
struct ACCEL {
    BYTE fVirt;
    WORD key;
    WORD cmd;
};
using LPACCEL = ACCEL*;

// A module's table of keys; it lives as long as the process. Null with ERROR_RESOURCE_NAME_NOT_FOUND.
WINBASEAPI HACCEL WINAPI LoadAcceleratorsA(HINSTANCE module, LPCSTR name);
#define LoadAccelerators LoadAcceleratorsA
// Copies up to `count` rows and answers their number; with a null `rows` the number there is.
WINBASEAPI int WINAPI CopyAcceleratorTableA(HACCEL table, LPACCEL rows, int count);
#define CopyAcceleratorTable CopyAcceleratorTableA
// Sends WM_COMMAND (high word 1) to `window` if the key of `message` is in the table; answers whether it was.
// Differs: no menus, so nothing is sent as WM_SYSCOMMAND.
WINBASEAPI int WINAPI TranslateAcceleratorA(HWND window, HACCEL table, MSG* message);
#define TranslateAccelerator TranslateAcceleratorA

#define IDI_APPLICATION MAKEINTRESOURCEA(32512)
#define IDI_HAND MAKEINTRESOURCEA(32513)
#define IDI_QUESTION MAKEINTRESOURCEA(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEA(32515)
#define IDI_ASTERISK MAKEINTRESOURCEA(32516)
#define IDI_WARNING IDI_EXCLAMATION
#define IDI_ERROR IDI_HAND
#define IDI_INFORMATION IDI_ASTERISK
// Differs: the stock icons only (`module` null), and the handle is the icon's number; any other fails with
// ERROR_RESOURCE_NAME_NOT_FOUND.
WINBASEAPI HICON WINAPI LoadIconA(HINSTANCE module, LPCSTR name);
#define LoadIcon LoadIconA
