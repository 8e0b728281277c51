// Every id of the plug-in's resources and controls, shared by the resource script and the code.
// Grouped by dialog; the numbers are the plug-in's own and stay what they are.
#pragma once

// Bitmaps of the sort images: none, ascending, descending.
#define IDB_GLYPH_NONE 131
#define IDB_GLYPH_UP 132
#define IDB_GLYPH_DOWN 133

// The workbench pane.
#define IDD_MAKER_CHECKER 1000
#define IDC_ACCEPT 1
#define IDC_CANCEL 2
#define IDC_REJECT 1963
#define IDC_UPDATE 1000
#define IDC_RECOVER 1001
#define IDC_HOLDER_FRAME 1024
#define IDC_MAIN_LIST 4000
#define IDC_DETAILS_LIST 4001

// The rejection dialog.
#define IDD_REJECTION 322
#define IDC_REJECTION_OK 1
#define IDC_REJECTION_REASON 1548

// Customized appearance.
#define IDD_APPEARANCE 1690

// Font dialog.
#define IDD_FONT 33075

// Add and delete user-defined columns.
#define IDD_USER_COLUMN 1710

// Column profile.
#define IDD_COLUMN_PROFILE 1730
