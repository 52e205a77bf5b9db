// Windows, dialogs, device contexts, the application: all that a program with a user interface includes.
#pragma once

#include "afx.h"
#include "afxcoll.h"
#include "afxtyp_.h"
#include "afxgdi_.h"
#include "afxmsg_.h"
#include "afxwnd_.h"
#include "afxdlg_.h"
#include "afxdd_.h"
#include "afxapp_.h"
#include "afxdll_.h"
#include "afxfrm_.h"
