// What starting is compared with: a library that shows an empty dialog.
#include <windows.h>

namespace {

INT_PTR CALLBACK answerNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
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
