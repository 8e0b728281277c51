// What tests read of windows.
#include "framework/handles.h"
#include "framework/list_view.h"
#include "tests/windows/test_host.h"

HWND findWindow(HWND parent, const std::function<bool(HWND)>& fits) {
    struct Search {
        const std::function<bool(HWND)>& fits;
        HWND found = nullptr;
    } search{fits};
    const auto look = [](HWND window, LPARAM into) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(into);
        if (wanted.found == nullptr && wanted.fits(window)) wanted.found = window;
        return wanted.found == nullptr;
    };
    if (parent != nullptr)
        EnumChildWindows(parent, look, reinterpret_cast<LPARAM>(&search));
    else
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND findPane() {
    const auto isPane = [](HWND window) {
        return textOf(window) == "Maker Checker" && classOf(window) == "#32770";
    };
    HWND pane = nullptr;
    findWindow(nullptr, [&](HWND top) { return (pane = findWindow(top, isPane)) != nullptr; });
    return pane;
}

HWND descendant(HWND parent, const char* windowClass, int id) {
    return findWindow(parent, [&](HWND window) {
        return GetDlgCtrlID(window) == id && classOf(window) == windowClass;
    });
}

HWND button(const char* text) {
    return FindWindowExA(findPane(), nullptr, "Button", text);
}

HWND mainList() {
    return descendant(findPane(), WC_LISTVIEWA, IDC_MAIN_LIST);
}

HWND details() {
    return descendant(findPane(), WC_LISTVIEWA, IDC_DETAILS_LIST);
}

HWND bar() {
    return descendant(findPane(), "MakerChecker.SplitterBar", 0);
}

HWND header(HWND list) {
    return fw::ListView(list).header().handle();
}

RECT headerItem(int item, HWND list) {
    return fw::ListView(list).header().rect(item);
}

int columnWidth(int item, HWND list) {
    return fw::widthOf(headerItem(item, list));
}

RECT cellRect(HWND list, int row, int column) {
    RECT place{column == 0 ? LVIR_LABEL : LVIR_BOUNDS, column, 0, 0};
    SendMessageA(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&place));
    return place;
}

POINT captionPoint(int item, HWND list, int fromRight) {
    const RECT place = headerItem(item, list);
    POINT at{place.right - fromRight, place.top + 6};
    ClientToScreen(header(list), &at);
    return at;
}

HWND filterBox(int item, HWND list) {
    return GetDlgItem(header(list), 5000 + item);
}

HWND filterEdit(int item, HWND list) {
    return FindWindowExA(filterBox(item, list), nullptr, "Edit", nullptr);
}

bool isDropped(int item) {
    return SendMessageA(filterBox(item), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

std::string pressLine() {
    return textOf(FindWindowExA(findPane(), nullptr, "MakerChecker.PressLine", nullptr));
}

void floatPane() {
    const RECT pane = onScreen(findPane());
    hand::doubleClick(POINT{pane.left + 200, pane.top + 4});
}

std::vector<HWND> tips() {
    std::vector<HWND> found;
    findWindow(nullptr, [&](HWND window) {
        if (classOf(window) == TOOLTIPS_CLASSA && SendMessageA(window, TTM_GETTOOLCOUNT, 0, 0) != 0)
            found.push_back(window);
        return false;
    });
    return found;
}

HWND editor() {
    const HWND open = FindWindowExA(details(), nullptr, "MakerChecker.CellEditor", nullptr);
    if (open == nullptr || IsWindowVisible(open) == 0) return nullptr;
    HWND control = GetWindow(open, GW_CHILD);
    while (IsWindow(control) != 0 && IsWindowVisible(control) == 0)  // its label
        control = GetWindow(control, GW_HWNDNEXT);
    return control;
}

void edit(int row, const char* text) {
    hand::doubleClickRow(details(), row, 1);
    ASSERT_NE(editor(), nullptr);
    hand::type(text);
}

std::string value(int row) {
    return cellText(details(), row, 1);
}

std::string classOf(HWND window) {
    char name[64]{};
    GetClassNameA(window, name, sizeof name);
    return name;
}

RECT onScreen(HWND window) {
    return fw::screenRect(window);
}

RECT onScreen(HWND window, RECT inside) {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    return inside;
}

RECT inParent(HWND window) {
    return fw::rectInParent(window);
}

Texts captions(HWND list) {
    Texts texts;
    const fw::Header header = fw::ListView(list).header();
    for (int item = 0; item < header.count(); ++item) texts.push_back(header.item(item).caption);
    return texts;
}

Texts column(int column) {
    Texts texts;
    for (int row = 0; row < rowCount(mainList()); ++row)
        texts.push_back(cellText(mainList(), row, column));
    return texts;
}

int threadWindows() {
    int count = 0;
    findWindow(nullptr, [&count](HWND) { return ++count, false; });
    return count;
}

COLORREF pixel(HWND window, int x, int y) {
    return GetPixel(fw::DcScope(window).dc(), x, y);
}

std::vector<DWORD> picture(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    pump();
    const RECT box = onScreen(window);
    BITMAPINFO info{};
    info.bmiHeader = {
        sizeof info.bmiHeader, fw::widthOf(box), -fw::heightOf(box), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const fw::WindowDcScope shown(window);
    const HDC memory = CreateCompatibleDC(shown.dc());
    const HBITMAP copy = CreateCompatibleBitmap(shown.dc(), fw::widthOf(box), fw::heightOf(box));
    const HGDIOBJ before = SelectObject(memory, copy);
    BitBlt(memory, 0, 0, fw::widthOf(box), fw::heightOf(box), shown.dc(), 0, 0, SRCCOPY);
    SelectObject(memory, before);
    std::vector<DWORD> pixels(static_cast<std::size_t>(fw::widthOf(box) * fw::heightOf(box)));
    GetDIBits(memory, copy, 0, static_cast<UINT>(fw::heightOf(box)), pixels.data(), &info, 0);
    DeleteObject(copy);
    DeleteDC(memory);
    return pixels;
}

std::string cellText(HWND list, int row, int column) {
    char buffer[512]{};
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = buffer;
    item.cchTextMax = sizeof buffer;
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

Texts rowTexts(HWND list, int row, int columns) {
    Texts texts;
    for (int column = 0; column < columns; ++column) texts.push_back(cellText(list, row, column));
    return texts;
}

int rowCount(HWND list) {
    return static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

ListRows selectedRows(HWND list) {
    ListRows rows;
    for (int row = -1; (row = static_cast<int>(SendMessageA(
                            list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0;)
        rows.push_back(row);
    return rows;
}

void selectRows(HWND list, const ListRows& rows) {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED;
    SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = LVIS_SELECTED;
    for (const int row : rows)
        SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
}
