// Numbers of the example's resources.
#pragma once

#include <afxres.h>

#define IDD_PATH 101
#define IDD_SECTION 102

#define IDC_PATH 1001
#define IDC_STATE 1002
#define IDC_SHOW_SECTION 1003
#define IDC_SHOW_MESSAGE 1004

#define IDC_NAME 1101
#define IDC_SHAPE 1102
#define IDC_AREA_LABEL 1103
#define IDC_AREA 1104
#define IDC_INERTIA_LABEL 1105
#define IDC_INERTIA 1106
#define IDC_STEEL 1107
#define IDC_CONCRETE 1108
#define IDC_SHEAR 1109
#define IDC_CASES 1110

#define IDS_DEMO_TITLE 2001
#define IDS_DEMO_NO_WINDOW 2002
#define IDS_DEMO_TIMED 2003
#define IDS_DEMO_STATE 2004
#define IDS_DEMO_SECTION 2005
#define IDS_DEMO_SHAPES 2006
#define IDS_DEMO_CASES 2007
