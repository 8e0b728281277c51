#include "console/ui_probe.h"

#include <commctrl.h>

#include <algorithm>

namespace zek::ui {
namespace {

constexpr char kDialogClass[] = "#32770";
constexpr char kPaneCaption[] = "Maker Checker";
constexpr char kKeyColumn[] = "Key";
constexpr char kNameColumn[] = "Entity Name";

struct Search {
    const std::function<bool(HWND)>& wanted;
    HWND found = nullptr;
};

BOOL CALLBACK visit(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (!search.wanted(window)) return TRUE;
    search.found = window;
    return FALSE;
}

HWND findTopLevel(const std::function<bool(HWND)>& wanted) {
    Search search{wanted};
    EnumThreadWindows(GetCurrentThreadId(), visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND findChild(HWND root, const std::function<bool(HWND)>& wanted) {
    Search search{wanted};
    EnumChildWindows(root, visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool isPane(HWND window) {
    return classOf(window) == kDialogClass && textOf(window) == kPaneCaption;
}

HWND paneList(int id) {
    return findDescendant(findPane(), [id](HWND window) {
        return GetDlgCtrlID(window) == id && classOf(window) == WC_LISTVIEWA;
    });
}

std::string withoutAmpersands(std::string text) {
    std::erase(text, '&');
    return text;
}

struct ItemMessages {
    const char* windowClass;
    UINT count, length, text;
};
constexpr ItemMessages kItemMessages[] = {
    {WC_COMBOBOXA, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT},
    {WC_LISTBOXA, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT},
};

std::vector<std::string> itemsOf(HWND control, const ItemMessages& messages) {
    const auto count = SendMessageA(control, messages.count, 0, 0);
    std::vector<std::string> items;
    for (WPARAM index = 0; static_cast<LRESULT>(index) < count; ++index) {
        const auto length = SendMessageA(control, messages.length, index, 0);
        std::string item(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
        SendMessageA(control, messages.text, index, reinterpret_cast<LPARAM>(item.data()));
        item.pop_back();
        items.push_back(std::move(item));
    }
    return items;
}

// Of a menu item, as a script writes it.
std::string itemText(HMENU menu, int index) {
    char text[128] = "";
    GetMenuStringA(menu, static_cast<UINT>(index), text, sizeof text, MF_BYPOSITION);
    std::string name(text);
    std::erase(name, '&');
    name.erase(std::min(name.find('\t'), name.size()));
    name.erase(name.find_last_not_of(' ') + 1);
    return name;
}

}  // namespace

std::string classOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

HWND findDescendant(HWND root, const std::function<bool(HWND)>& wanted) {
    if (root == nullptr) return nullptr;
    return findChild(root, [&](HWND each) { return IsWindowVisible(each) != 0 && wanted(each); });
}

HWND findPane() {
    HWND pane = nullptr;
    findTopLevel([&](HWND window) {
        pane = findChild(window, isPane);
        return pane != nullptr;
    });
    return pane;
}

HWND mainList() {
    return paneList(kMainListId);
}

HWND detailsList() {
    return paneList(kDetailsListId);
}

HWND openDialog() {
    return findTopLevel([](HWND window) {
        return IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0 &&
               classOf(window) == kDialogClass;
    });
}

std::string dialogText(HWND dialog) {
    std::string text;
    findDescendant(dialog, [&](HWND window) {
        const std::string part = classOf(window) == WC_STATICA ? textOf(window) : std::string();
        text += !text.empty() && !part.empty() ? "\n" + part : part;
        return false;
    });
    return text;
}

HWND openMenu() {
    return findTopLevel(
        [](HWND window) { return IsWindowVisible(window) != 0 && classOf(window) == "#32768"; });
}

int itemNamed(HMENU menu, const std::string& name) {
    for (int index = 0; index < GetMenuItemCount(menu); ++index)
        if (itemText(menu, index) == name) return index;
    return -1;
}

HWND findButton(const std::string& text) {
    const HWND dialog = openDialog();
    return findDescendant(dialog != nullptr ? dialog : findPane(), [&](HWND window) {
        return IsWindowEnabled(window) != 0 && classOf(window) == WC_BUTTONA &&
               withoutAmpersands(textOf(window)) == text;
    });
}

std::vector<std::string> itemsOf(HWND control) {
    const std::string kind = classOf(control);
    std::vector<std::string> items;
    if (kind == WC_LISTVIEWA)
        for (int row = 0; row < rowCount(control); ++row)
            items.push_back(cellText(control, row, 0));
    for (const ItemMessages& each : kItemMessages)
        if (kind == each.windowClass) items = itemsOf(control, each);
    return items;
}

std::string shownText(HWND control) {
    if (classOf(control) != WC_LISTVIEWA && classOf(control) != WC_LISTBOXA) return textOf(control);
    std::string text;
    for (const std::string& item : itemsOf(control)) text += (text.empty() ? "" : ", ") + item;
    return text;
}

int rowCount(HWND list) {
    return ListView_GetItemCount(list);
}

std::string cellText(HWND list, int row, int column) {
    char text[512] = "";
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText != nullptr ? item.pszText : "";
}

int columnNamed(HWND list, const std::string& title) {
    const HWND header = ListView_GetHeader(list);
    const int count = Header_GetItemCount(header);
    for (int index = 0; index < count; ++index) {
        char text[128] = "";
        LVCOLUMNA column{};
        column.mask = LVCF_TEXT;
        column.pszText = text;
        column.cchTextMax = sizeof text;
        ListView_GetColumn(list, index, &column);
        if (title == column.pszText) return index;
    }
    return -1;
}

HWND filterEdit(HWND list, int column) {
    const HWND header = ListView_GetHeader(list);
    RECT caption{};
    Header_GetItemRect(header, column, &caption);
    // The box is at the lower end of its caption's item.
    const POINT inside{(caption.left + caption.right) / 2, caption.bottom - 8};
    const HWND box = ChildWindowFromPoint(header, inside);
    return box != nullptr && box != header ? FindWindowExA(box, nullptr, "Edit", nullptr) : nullptr;
}

int findText(HWND list, int column, const std::string& text) {
    const int count = list != nullptr && column >= 0 ? rowCount(list) : 0;
    for (int row = 0; row < count; ++row)
        if (cellText(list, row, column) == text) return row;
    return -1;
}

int findRow(HWND list, const PlayRow& row) {
    if (row.by == PlayRow::By::position)
        return row.position <= rowCount(list) ? row.position - 1 : -1;
    const int column = columnNamed(list, row.by == PlayRow::By::key ? kKeyColumn : kNameColumn);
    return findText(list, column, row.text);
}

}  // namespace zek::ui
