// Ids of menus, dialogs and windows.
#pragma once

#define IDR_FRAME 100
#define IDD_PROFILES 110

#define IDC_INSTRUMENTS 1001
#define IDC_BLOTTER 1002
#define IDC_LOG 1003
#define IDC_STATUS 1004
#define IDC_INSTRUMENTS_TITLE 1011
#define IDC_BLOTTER_TITLE 1012
#define IDC_LOG_TITLE 1013
#define IDC_NO_BAR 1014

#define IDC_PROFILES 1101
#define IDC_PLUGIN 1102
#define IDC_PROFILE_NAME 1103
#define IDC_ADD 1104
#define IDC_REMOVE 1105

#define IDM_EXIT 2001
#define IDM_CANCEL_ORDER 2002
#define IDM_CANCEL_ALL 2003
#define IDM_ABOUT 2004
#define IDM_NEXT_PANE 2005
#define IDM_NO_PROFILES 2100
// The lines of the profile menu follow one another from here.
#define IDM_PROFILE_FIRST 3000
#define IDM_PROFILE_LAST 3999
