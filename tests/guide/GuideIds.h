// Numbers of the guide's resources.
#pragma once

#include <afxres.h>

#define IDD_SIZE 101
#define IDC_COUNT 1001
#define IDC_AREA 1002
#define IDS_TITLE 2001
