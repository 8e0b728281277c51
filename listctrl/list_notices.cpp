#include "listctrl/list_notices.h"

namespace mc {

void notifyParent(HWND list, NMHDR& notice, UINT code) {
    notice = {list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), code};
    HWND parent = GetParent(list);
    if (parent == nullptr) parent = GetWindow(list, GW_OWNER);
    SendMessageA(parent, WM_NOTIFY, notice.idFrom, reinterpret_cast<LPARAM>(&notice));
}

void notifyParent(HWND list, UINT code, POINT at, std::optional<std::size_t> row) {
    NMITEMACTIVATE notice{};
    notice.iItem = row ? static_cast<int>(*row) : -1;
    notice.ptAction = at;
    notifyParent(list, notice.hdr, code);
}

}  // namespace mc
