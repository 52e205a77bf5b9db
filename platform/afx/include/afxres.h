// Identifiers that a framework program's resource scripts and sources share. Definitions only, plain enough
// for a resource compiler.
#pragma once

#include <windows.h>

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Resources of the same name and number are a frame's.
#define IDR_MAINFRAME 128
#define IDR_MDIFRAME 129

// Windows of a frame.
#define AFX_IDW_PANE_FIRST 0xe900
#define AFX_IDW_PANE_LAST 0xe9ff

// Commands.
#define ID_FILE_NEW 0xe100
#define ID_FILE_OPEN 0xe101
#define ID_FILE_CLOSE 0xe102
#define ID_FILE_SAVE 0xe103
#define ID_FILE_SAVE_AS 0xe104
#define ID_FILE_PAGE_SETUP 0xe105
#define ID_FILE_PRINT_SETUP 0xe106
#define ID_FILE_PRINT 0xe107
#define ID_FILE_PRINT_PREVIEW 0xe109
#define ID_FILE_MRU_FILE1 0xe110
#define ID_EDIT_CLEAR 0xe120
#define ID_EDIT_CLEAR_ALL 0xe121
#define ID_EDIT_COPY 0xe122
#define ID_EDIT_CUT 0xe123
#define ID_EDIT_FIND 0xe124
#define ID_EDIT_PASTE 0xe125
#define ID_EDIT_REPEAT 0xe128
#define ID_EDIT_REPLACE 0xe129
#define ID_EDIT_SELECT_ALL 0xe12a
#define ID_EDIT_UNDO 0xe12b
#define ID_EDIT_REDO 0xe12c
#define ID_WINDOW_NEW 0xe130
#define ID_WINDOW_ARRANGE 0xe131
#define ID_WINDOW_CASCADE 0xe132
#define ID_WINDOW_TILE_HORZ 0xe133
#define ID_WINDOW_TILE_VERT 0xe134
#define ID_WINDOW_SPLIT 0xe135
#define ID_APP_ABOUT 0xe140
#define ID_APP_EXIT 0xe141
#define ID_HELP_INDEX 0xe142
#define ID_HELP_FINDER 0xe143
#define ID_CONTEXT_HELP 0xe145
#define ID_HELP 0xe146
#define ID_NEXT_PANE 0xe150
#define ID_PREV_PANE 0xe151
#define ID_VIEW_TOOLBAR 0xe800
#define ID_VIEW_STATUS_BAR 0xe801
#define ID_SEPARATOR 0
