// What starting is compared with: a library that shows an empty dialog, and one with as many of the
// system's controls as the pane has, without any code behind them.
#include <windows.h>

#include <commctrl.h>

#include <initializer_list>

namespace {

INT_PTR CALLBACK answerNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

HWND make(const char* windowClass, DWORD style, int width, int height, HWND parent) {
    return CreateWindowExA(0, windowClass, "control", WS_CHILD | WS_VISIBLE | style, 0, 0, width,
                           height, parent, nullptr, nullptr, nullptr);
}

// A list with its columns, and below each caption a box.
void makeList(HWND dialog, int columns) {
    const HWND list = make(WC_LISTVIEWA, LVS_REPORT | LVS_OWNERDATA, 600, 200, dialog);
    const auto header = reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
    for (int item = 0; item < columns; ++item) {
        LVCOLUMNA column{};
        column.mask = LVCF_WIDTH;
        column.cx = 100;
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&column));
        make(WC_COMBOBOXA, CBS_DROPDOWN, 100, 300, header);
    }
}

}  // namespace

// A dialog below `parent` with nothing on it; the caller destroys it.
extern "C" __declspec(dllexport) HWND ShowEmptyDialog(HWND parent) {
    struct Template {
        DLGTEMPLATE dialog{WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, 300, 200};
        WORD menu = 0, windowClass = 0, title = 0;
    };
    static const Template dialog;
    HMODULE module = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const char*>(&ShowEmptyDialog), &module);
    return CreateDialogIndirectParamA(module, &dialog.dialog, parent, answerNothing, 0);
}

// The same with the pane's controls: five buttons, two lists with a box for each of nine columns,
// four windows around them and three tool tips.
extern "C" __declspec(dllexport) HWND ShowFullDialog(HWND parent) {
    const HWND dialog = ShowEmptyDialog(parent);
    for (int button = 0; button < 5; ++button) make(WC_BUTTONA, BS_PUSHBUTTON, 80, 20, dialog);
    for (const int columns : {6, 3}) makeList(dialog, columns);
    for (int other = 0; other < 4; ++other) make(WC_STATICA, 0, 600, 20, dialog);
    for (int tip = 0; tip < 3; ++tip)
        CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP, 0, 0, 0, 0, dialog, nullptr, nullptr,
                        nullptr);
    return dialog;
}
