// Identifiers of the test's resources. Definitions only.
#pragma once

#define IDD_PLAIN 100
#define IDD_FULL 101
#define IDR_KEYS 110
#define IDR_BYTES 120
#define IDS_SHORT 201
#define IDS_KOREAN 202
#define IDS_NEUTRAL 203
#define IDS_LAST_OF_TABLE 207
#define IDS_BY_LANGUAGE 400
#define IDS_FOREIGN 500
#define IDC_NAME 1001
#define IDC_WANTED 1002
#define IDC_FIRST_CHOICE 1003
#define IDC_SECOND_CHOICE 1004
#define IDC_ITEMS 1005
#define IDC_KIND 1006
#define IDC_FRAME 1007
#define IDM_SAVE 2001
#define IDM_FIND 2002
#define IDM_MARK 2003
