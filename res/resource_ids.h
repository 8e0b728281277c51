// Every id of the plug-in's resources and controls, shared by the resource script and the code.
// Grouped by dialog; the numbers are the plug-in's own and stay what they are.
#pragma once

// The font of every dialog, and so of the pane, which makes it again for other dots per inch.
#define DIALOG_FONT_POINTS 8
#define DIALOG_FONT_FACE "MS Shell Dlg"

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
#define IDC_PRESS_LINE 1002
#define IDC_HOLDER_FRAME 1024
#define IDC_MAIN_LIST 4000
#define IDC_DETAILS_LIST 4001
#define IDC_DETAIL_LINE 4002
#define IDC_DECISIONS_FRAME 1025
#define IDC_DECISIONS_LIST 4003

// The rejection dialog.
#define IDD_REJECTION 322
#define IDC_REJECTION_OK 1
#define IDC_REJECTION_REASON 1548

// Customized appearance.
#define IDD_APPEARANCE 1690
#define IDC_APPEARANCE_APPLY 1
#define IDC_APPEARANCE_CANCEL 2
#define IDC_APPEARANCE_COLOR 1026
#define IDC_APPEARANCE_PROPERTY 1694
#define IDC_APPEARANCE_FONT 1695
#define IDC_KEYWORD_COLUMN 3205
#define IDC_KEYWORD_COLUMN_UNLOCK 3206
#define IDC_KEYWORD_TEXT 3207
#define IDC_KEYWORD_LIST 3208
#define IDC_APPEARANCE_LINE 3213
#define IDC_APPEARANCE_END 3214
#define IDC_KEYWORD_GROUP 3215
#define IDC_KEYWORD_ADD 3216
#define IDC_KEYWORD_COLUMN_LABEL 3217
#define IDC_KEYWORD_TEXT_LABEL 3218
#define IDC_KEYWORD_LIST_LABEL 3219

// Font dialog.
#define IDD_FONT 33075
#define IDC_FONT_OK 1
#define IDC_FONT_CANCEL 2
#define IDC_FONT_FACE 33076
#define IDC_FONT_SIZE 33077

// Add and delete user-defined columns.
#define IDD_USER_COLUMN 1710
#define IDC_UC_NAME_LABEL 1711
#define IDC_UC_NAME 1712
#define IDC_UC_COLUMNS_LABEL 1713
#define IDC_UC_COLUMNS 1714
#define IDC_UC_PLUS 1715
#define IDC_UC_MINUS 1716
#define IDC_UC_TIMES 1717
#define IDC_UC_DIVIDE 1718
#define IDC_UC_OPEN 1719
#define IDC_UC_CLOSE 1720
#define IDC_UC_SQUARED 1721
#define IDC_UC_POWER 1722
#define IDC_UC_END 1723
#define IDC_UC_CLEAR 1724
#define IDC_UC_HINT 1725
#define IDC_UC_EXPRESSION_LABEL 1726
#define IDC_UC_EXPRESSION 1727
#define IDC_UC_DEFINED_LABEL 1728
#define IDC_UC_DEFINED 1729
#define IDC_UC_SHOWN_EXPRESSION 1709

// Column profile.
#define IDD_COLUMN_PROFILE 1730
#define IDC_CP_AVAILABLE_LABEL 1731
#define IDC_CP_AVAILABLE 1732
#define IDC_CP_ADD 1733
#define IDC_CP_REMOVE 1734
#define IDC_CP_SHOWN_LABEL 1735
#define IDC_CP_SHOWN 1736
#define IDC_CP_UP 1737
#define IDC_CP_DOWN 1738
#define IDC_CP_SORT_GROUP 1739
#define IDC_CP_SORT_FOR 1740
#define IDC_CP_SORT_LABEL 1741
#define IDC_CP_SORT 1742
#define IDC_CP_VIEW 1743
#define IDC_CP_DEFAULT 1744
#define IDC_CP_SORT_KEPT 1745

// The whole text of a cell.
#define IDD_WHOLE_TEXT 1750
#define IDC_WHOLE_TEXT 1751

// How far long work is.
#define IDD_PROGRESS 1760
#define IDC_PROGRESS_TEXT 1761
#define IDC_PROGRESS_BAR 1762
