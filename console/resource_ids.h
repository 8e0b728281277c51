/* Ids of the console's resources, controls and commands, for C++ and the resource compiler. */
#ifndef ZEK_RESOURCE_IDS_H
#define ZEK_RESOURCE_IDS_H

#define IDR_MAIN_MENU 100
#define IDR_ACCELERATORS 101
#define IDI_ZEK 102

/* Menu "File" */
#define ID_FILE_EXIT 40001

/* Menu "View" */
#define ID_VIEW_PENDING 40101
#define ID_VIEW_REGISTRY 40102

/* Menu "Tools" */
#define ID_TOOLS_MAKER_CHECKER 40201
#define ID_TOOLS_RELOAD_PLUGIN 40202

/* Menu "Maker" */
#define ID_MAKER_NEXT 40301
#define ID_MAKER_ALL 40302
#define ID_MAKER_RANDOM 40303
#define ID_MAKER_STORM_100 40304
#define ID_MAKER_STORM_1000 40305
#define ID_MAKER_STORM_20000 40306
#define ID_MAKER_ACCEPT_OLDEST 40307
#define ID_MAKER_REJECT_OLDEST 40308

/* Menu "User": one command for each profile, filled in at run time */
#define ID_USER_FIRST 40400
#define ID_USER_LAST 40431

/* Menu "Window"; the frame window's own commands for its children follow ID_WINDOW_FIRST_CHILD */
#define ID_WINDOW_CASCADE 40501
#define ID_WINDOW_TILE_HORIZONTALLY 40502
#define ID_WINDOW_TILE_VERTICALLY 40503
#define ID_WINDOW_NEXT_PART 40504
#define ID_WINDOW_PREVIOUS_PART 40505
#define ID_WINDOW_FIRST_CHILD 41000

/* Controls of the frame */
#define IDC_STATUS_BAR 1
#define IDC_CLIENT 2
#define IDC_LOG_PANE 3
#define IDC_LOG_TABS 4
#define IDC_LOG_LIST 5
#define IDC_VIEW_LIST 6

#endif
