// Message maps: which member function handles which message or command.
//
//   class CHost : public CDialog {
//       afx_msg void OnApply();
//       afx_msg void OnSize(UINT type, int width, int height);
//       DECLARE_MESSAGE_MAP()
//   };
//   BEGIN_MESSAGE_MAP(CHost, CDialog)
//       ON_BN_CLICKED(IDC_APPLY, &CHost::OnApply)
//       ON_WM_SIZE()
//   END_MESSAGE_MAP()
//
// The first entry that fits decides; what a class does not handle goes to its base class's map. A handler
// whose parameters or result are not those of its entry does not compile.
// Differs: entries hold a typed function instead of a cast member pointer, so they are written with the
// macros only; a handler that a macro takes is named with & and its class.
#pragma once

#include "afxver_.h"

#include <windows.h>

#include <type_traits>

class CCmdTarget;
class CWnd;

// Calls the handler that an entry stands for. `first` and `second` are the parameters of the message; for
// commands the identifier and the `extra` of CCmdTarget::OnCmdMsg, and the answer is whether it is handled.
using AFX_MSG_CALL = LRESULT (*)(CCmdTarget* target, WPARAM first, LPARAM second);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;           // kAfxRegisteredMessage: *pRegistered
    UINT nCode;              // the notification; CN_COMMAND for commands
    UINT nID;                // first and last identifier; 0 for messages
    UINT nLastID;            //
    const UINT* pRegistered; // what RegisterWindowMessage answered
    AFX_MSG_CALL pfn;        // null: the end of the map
};

struct AFX_MSGMAP {
    // A function instead of a pointer, so that the base class may live in another library.
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

inline constexpr UINT kAfxRegisteredMessage = 0xC000;

// The first entry of `map` or a base class's map for a message or, with WM_COMMAND, for the notification
// `code` (CN_COMMAND: the command) of `id`. Null when there is none.
AFX_CORE_API const AFX_MSGMAP_ENTRY* AFXAPI AfxFindMessageEntry(const AFX_MSGMAP* map, UINT message,
                                                                UINT code = 0, UINT id = 0);

#define CN_COMMAND 0
#define afx_msg

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(class_name, base_class_name)                                                       \
    const AFX_MSGMAP* class_name::GetMessageMap() const                                                      \
    {                                                                                                        \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* class_name::GetThisMessageMap()                                                        \
    {                                                                                                        \
        using ThisClass = class_name;                                                                        \
        using TheBaseClass = base_class_name;                                                                \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    {                                                                                                        \
        0, 0, 0, 0, nullptr, nullptr                                                                         \
    }                                                                                                        \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP map = {[] { return TheBaseClass::GetThisMessageMap(); }, entries};               \
    return &map;                                                                                             \
    }

// How a parameter of a message becomes an argument of its handler.
template <class T>
struct AfxMsgArgument {
    static T From(LPARAM value)
    {
        if constexpr (std::is_pointer_v<T>)
            return reinterpret_cast<T>(value);
        else
            return static_cast<T>(value);
    }
};

// The window with the handle; null for none.
template <>
struct AFX_CORE_CLASS AfxMsgArgument<CWnd*> {
    static CWnd* From(LPARAM handle);
};

// Which part of a message an argument is.
struct AfxFirst {
    static LPARAM Of(WPARAM first, LPARAM) { return static_cast<LPARAM>(first); }
};
struct AfxFirstLow {
    static LPARAM Of(WPARAM first, LPARAM) { return LOWORD(first); }
};
struct AfxFirstHigh {
    static LPARAM Of(WPARAM first, LPARAM) { return HIWORD(first); }
};
struct AfxSecond {
    static LPARAM Of(WPARAM, LPARAM second) { return second; }
};
struct AfxSecondLow {
    static LPARAM Of(WPARAM, LPARAM second) { return LOWORD(second); }
};
struct AfxSecondHigh {
    static LPARAM Of(WPARAM, LPARAM second) { return HIWORD(second); }
};
struct AfxSecondX {
    static LPARAM Of(WPARAM, LPARAM second) { return static_cast<short>(LOWORD(second)); }
};
struct AfxSecondY {
    static LPARAM Of(WPARAM, LPARAM second) { return static_cast<short>(HIWORD(second)); }
};

// A handler's type, and the message parts that its arguments are. `kAnswer` stands for what a handler without
// result answers.
template <LRESULT kAnswer, class Signature, class... Parts>
struct AfxHandler;

template <LRESULT kAnswer, class Result, class... Arguments, class... Parts>
struct AfxHandler<kAnswer, Result(Arguments...), Parts...> {
    // Chooses the overload with the right type; no other member function compiles.
    template <class Owner>
    static constexpr auto Pick(Result (Owner::*handler)(Arguments...))
    {
        return handler;
    }

    template <class Target, auto handler>
    static LRESULT Call(CCmdTarget* target, WPARAM first, LPARAM second)
    {
        Target* object = static_cast<Target*>(target);
        if constexpr (std::is_void_v<Result>) {
            (object->*handler)(AfxMsgArgument<Arguments>::From(Parts::Of(first, second))...);
            return kAnswer;
        } else
            return static_cast<LRESULT>(
                (object->*handler)(AfxMsgArgument<Arguments>::From(Parts::Of(first, second))...));
    }
};

using AfxCommandHandler = AfxHandler<TRUE, void()>;
using AfxCommandIdHandler = AfxHandler<TRUE, void(UINT), AfxFirst>;
using AfxCommandExHandler = AfxHandler<TRUE, BOOL(UINT), AfxFirst>;
using AfxMessageHandler = AfxHandler<0, LRESULT(WPARAM, LPARAM), AfxFirst, AfxSecond>;
using AfxThreadMessageHandler = AfxHandler<0, void(WPARAM, LPARAM), AfxFirst, AfxSecond>;

#define AFX_CALL_(Handler, member) (&Handler::Call<ThisClass, Handler::Pick(member)>)
#define AFX_COMMAND_(code, first, last, Handler, member)                                                     \
    {WM_COMMAND, static_cast<WORD>(code),   static_cast<UINT>(first), static_cast<UINT>(last),               \
     nullptr,    AFX_CALL_(Handler, member)},
#define AFX_MESSAGE_(message, Handler, member) {message, 0, 0, 0, nullptr, AFX_CALL_(Handler, member)},

// Commands and notifications: the handler of an ..._EX entry answers FALSE to let others have it too.
#define ON_COMMAND(id, member) AFX_COMMAND_(CN_COMMAND, id, id, AfxCommandHandler, member)
#define ON_COMMAND_EX(id, member) AFX_COMMAND_(CN_COMMAND, id, id, AfxCommandExHandler, member)
#define ON_COMMAND_RANGE(id, last, member) AFX_COMMAND_(CN_COMMAND, id, last, AfxCommandIdHandler, member)
#define ON_CONTROL(code, id, member) AFX_COMMAND_(code, id, id, AfxCommandHandler, member)
#define ON_CONTROL_RANGE(code, id, last, member) AFX_COMMAND_(code, id, last, AfxCommandIdHandler, member)

#define ON_MESSAGE(message, member) AFX_MESSAGE_(message, AfxMessageHandler, member)
#define ON_THREAD_MESSAGE(message, member) AFX_MESSAGE_(message, AfxThreadMessageHandler, member)
// `variable` is a static UINT that holds what RegisterWindowMessage answered.
#define ON_REGISTERED_MESSAGE(variable, member)                                                              \
    {kAfxRegisteredMessage, 0, 0, 0, &variable, AFX_CALL_(AfxMessageHandler, member)},

// Notifications of the standard controls.
#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_BN_DOUBLECLICKED(id, member) ON_CONTROL(BN_DOUBLECLICKED, id, member)
#define ON_BN_SETFOCUS(id, member) ON_CONTROL(BN_SETFOCUS, id, member)
#define ON_BN_KILLFOCUS(id, member) ON_CONTROL(BN_KILLFOCUS, id, member)
#define ON_STN_CLICKED(id, member) ON_CONTROL(STN_CLICKED, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_UPDATE(id, member) ON_CONTROL(EN_UPDATE, id, member)
#define ON_EN_SETFOCUS(id, member) ON_CONTROL(EN_SETFOCUS, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_EN_MAXTEXT(id, member) ON_CONTROL(EN_MAXTEXT, id, member)
#define ON_LBN_SELCHANGE(id, member) ON_CONTROL(LBN_SELCHANGE, id, member)
#define ON_LBN_DBLCLK(id, member) ON_CONTROL(LBN_DBLCLK, id, member)
#define ON_LBN_SETFOCUS(id, member) ON_CONTROL(LBN_SETFOCUS, id, member)
#define ON_LBN_KILLFOCUS(id, member) ON_CONTROL(LBN_KILLFOCUS, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_SELENDOK(id, member) ON_CONTROL(CBN_SELENDOK, id, member)
#define ON_CBN_DBLCLK(id, member) ON_CONTROL(CBN_DBLCLK, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_CBN_EDITUPDATE(id, member) ON_CONTROL(CBN_EDITUPDATE, id, member)
#define ON_CBN_DROPDOWN(id, member) ON_CONTROL(CBN_DROPDOWN, id, member)
#define ON_CBN_CLOSEUP(id, member) ON_CONTROL(CBN_CLOSEUP, id, member)
#define ON_CBN_SETFOCUS(id, member) ON_CONTROL(CBN_SETFOCUS, id, member)
#define ON_CBN_KILLFOCUS(id, member) ON_CONTROL(CBN_KILLFOCUS, id, member)

// Window messages: the handler's name is fixed.
using AfxPlainHandler = AfxHandler<0, void()>;
using AfxSwitchHandler = AfxHandler<0, void(BOOL), AfxFirst>;
using AfxShowHandler = AfxHandler<0, void(BOOL, UINT), AfxFirst, AfxSecond>;
using AfxCreateHandler = AfxHandler<0, int(LPCREATESTRUCTA), AfxSecond>;
using AfxNcCreateHandler = AfxHandler<0, BOOL(LPCREATESTRUCTA), AfxSecond>;
using AfxSizeHandler = AfxHandler<0, void(UINT, int, int), AfxFirst, AfxSecondLow, AfxSecondHigh>;
using AfxMoveHandler = AfxHandler<0, void(int, int), AfxSecondX, AfxSecondY>;
using AfxTimerHandler = AfxHandler<0, void(UINT_PTR), AfxFirst>;
using AfxSysCommandHandler = AfxHandler<0, void(UINT, LPARAM), AfxFirst, AfxSecond>;
using AfxActivateHandler = AfxHandler<0, void(UINT, CWnd*, BOOL), AfxFirstLow, AfxSecond, AfxFirstHigh>;
using AfxFocusHandler = AfxHandler<0, void(CWnd*), AfxFirst>;
using AfxKeyHandler = AfxHandler<0, void(UINT, UINT, UINT), AfxFirst, AfxSecondLow, AfxSecondHigh>;

#define ON_WM_NCCREATE() AFX_MESSAGE_(WM_NCCREATE, AfxNcCreateHandler, &ThisClass::OnNcCreate)
#define ON_WM_CREATE() AFX_MESSAGE_(WM_CREATE, AfxCreateHandler, &ThisClass::OnCreate)
#define ON_WM_DESTROY() AFX_MESSAGE_(WM_DESTROY, AfxPlainHandler, &ThisClass::OnDestroy)
#define ON_WM_NCDESTROY() AFX_MESSAGE_(WM_NCDESTROY, AfxPlainHandler, &ThisClass::OnNcDestroy)
#define ON_WM_CLOSE() AFX_MESSAGE_(WM_CLOSE, AfxPlainHandler, &ThisClass::OnClose)
#define ON_WM_SIZE() AFX_MESSAGE_(WM_SIZE, AfxSizeHandler, &ThisClass::OnSize)
#define ON_WM_MOVE() AFX_MESSAGE_(WM_MOVE, AfxMoveHandler, &ThisClass::OnMove)
#define ON_WM_TIMER() AFX_MESSAGE_(WM_TIMER, AfxTimerHandler, &ThisClass::OnTimer)
#define ON_WM_SYSCOMMAND() AFX_MESSAGE_(WM_SYSCOMMAND, AfxSysCommandHandler, &ThisClass::OnSysCommand)
#define ON_WM_SHOWWINDOW() AFX_MESSAGE_(WM_SHOWWINDOW, AfxShowHandler, &ThisClass::OnShowWindow)
#define ON_WM_ENABLE() AFX_MESSAGE_(WM_ENABLE, AfxSwitchHandler, &ThisClass::OnEnable)
#define ON_WM_ACTIVATE() AFX_MESSAGE_(WM_ACTIVATE, AfxActivateHandler, &ThisClass::OnActivate)
#define ON_WM_SETFOCUS() AFX_MESSAGE_(WM_SETFOCUS, AfxFocusHandler, &ThisClass::OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_MESSAGE_(WM_KILLFOCUS, AfxFocusHandler, &ThisClass::OnKillFocus)
#define ON_WM_KEYDOWN() AFX_MESSAGE_(WM_KEYDOWN, AfxKeyHandler, &ThisClass::OnKeyDown)
#define ON_WM_KEYUP() AFX_MESSAGE_(WM_KEYUP, AfxKeyHandler, &ThisClass::OnKeyUp)
#define ON_WM_CHAR() AFX_MESSAGE_(WM_CHAR, AfxKeyHandler, &ThisClass::OnChar)
#define ON_WM_SYSKEYDOWN() AFX_MESSAGE_(WM_SYSKEYDOWN, AfxKeyHandler, &ThisClass::OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_MESSAGE_(WM_SYSKEYUP, AfxKeyHandler, &ThisClass::OnSysKeyUp)
#define ON_WM_SYSCHAR() AFX_MESSAGE_(WM_SYSCHAR, AfxKeyHandler, &ThisClass::OnSysChar)
