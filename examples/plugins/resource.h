// Numbers of the example's resources.
#pragma once

#include <afxres.h>

#define IDD_BEAM 101

#define IDC_DATA 1001
#define IDC_TROUGH 1002
#define IDC_BAR 1003
#define IDC_STATE 1004
#define IDC_RESULT 1005
#define IDC_CALCULATE 1006
#define IDC_LONGER 1007
