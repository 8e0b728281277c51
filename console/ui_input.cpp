#include "console/ui_input.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <string_view>

#include "console/ui_probe.h"

namespace zek::ui {
namespace {

LPARAM pointParameter(POINT at) {
    return MAKELPARAM(at.x, at.y);
}

void setSelected(HWND list, int row, bool isSelected, UINT states) {
    ListView_SetItemState(list, row, isSelected ? states : 0, states);
}

// A little inside the caption, right of a gripper or an icon.
POINT captionPoint(HWND window) {
    const RECT rect = fw::screenRect(window);
    return {rect.left + 60, rect.top + 8};
}

POINT captionPoint(HWND header, int column) {
    RECT rect{};
    Header_GetItemRect(header, column, &rect);
    return {(rect.left + rect.right) / 2, rect.top + 6};
}

// A little inside the row.
POINT rowPoint(HWND list, int row) {
    ListView_EnsureVisible(list, row, FALSE);
    RECT rect{};
    ListView_GetItemRect(list, row, &rect, LVIR_LABEL);
    return {rect.left + 8, (rect.top + rect.bottom) / 2};
}

struct ListKind {
    const char* windowClass;
    UINT setSelection;
    WORD changed;
};
constexpr ListKind kListKinds[] = {
    {WC_COMBOBOXA, CB_SETCURSEL, CBN_SELCHANGE},
    {WC_LISTBOXA, LB_SETCURSEL, LBN_SELCHANGE},
};

struct NamedKey {
    std::string_view name;
    UINT key;
};
constexpr NamedKey kModifiers[] = {{"Ctrl+", VK_CONTROL}, {"Shift+", VK_SHIFT}, {"Alt+", VK_MENU}};
constexpr NamedKey kKeys[] = {
    {"Enter", VK_RETURN},  {"Esc", VK_ESCAPE},    {"Tab", VK_TAB},        {"Space", VK_SPACE},
    {"Up", VK_UP},         {"Down", VK_DOWN},     {"Left", VK_LEFT},      {"Right", VK_RIGHT},
    {"Home", VK_HOME},     {"End", VK_END},       {"PageUp", VK_PRIOR},   {"PageDown", VK_NEXT},
    {"Insert", VK_INSERT}, {"Delete", VK_DELETE}, {"Backspace", VK_BACK}, {"F1", VK_F1},
    {"F2", VK_F2},         {"F3", VK_F3},         {"F4", VK_F4},          {"F5", VK_F5},
    {"F6", VK_F6},         {"F7", VK_F7},         {"F8", VK_F8},          {"F9", VK_F9},
    {"F10", VK_F10},       {"F11", VK_F11},       {"F12", VK_F12},
};

UINT keyNamed(std::string_view name) {
    if (name.size() == 1) return static_cast<UINT>(VkKeyScanA(name.front()) & 0xFF);
    const auto* known = std::ranges::find(kKeys, name, &NamedKey::name);
    return known != std::end(kKeys) ? known->key : 0;
}

void hold(UINT key, bool isDown) {
    BYTE state[256] = {};
    GetKeyboardState(state);
    state[key] = isDown ? 0x80 : 0;
    SetKeyboardState(state);
}

LPARAM keyFlags(UINT key, bool isUp) {
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC)) << 16;
    return 1 | scanCode | (isUp ? 0xC0000000 : 0);
}

}  // namespace

void click(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    const LPARAM at = pointParameter({client.right / 2, client.bottom / 2});
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(window, WM_LBUTTONUP, 0, at);
}

void selectOnly(HWND list, int row) {
    SetFocus(list);
    setSelected(list, -1, false, LVIS_SELECTED);
    alsoSelect(list, row);
}

void alsoSelect(HWND list, int row) {
    setSelected(list, row, true, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list, row, FALSE);
}

void clickCaption(HWND list, int column) {
    const HWND header = ListView_GetHeader(list);
    const LPARAM at = pointParameter(captionPoint(header, column));
    PostMessageA(header, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(header, WM_LBUTTONUP, 0, at);
}

void contextClickHeader(HWND list, int column) {
    const HWND header = ListView_GetHeader(list);
    const LPARAM at = pointParameter(captionPoint(header, column));
    PostMessageA(header, WM_RBUTTONDOWN, MK_RBUTTON, at);
    PostMessageA(header, WM_RBUTTONUP, 0, at);
}

void contextClickRow(HWND list, int row) {
    const LPARAM at = pointParameter(rowPoint(list, row));
    PostMessageA(list, WM_RBUTTONDOWN, MK_RBUTTON, at);
    PostMessageA(list, WM_RBUTTONUP, 0, at);
}

bool choose(HWND control, const std::string& item) {
    const std::vector<std::string> items = itemsOf(control);
    const auto found = std::ranges::find(items, item);
    if (found == items.end()) return false;
    const auto index = static_cast<WPARAM>(found - items.begin());
    for (const ListKind& kind : kListKinds) {
        if (classOf(control) != kind.windowClass) continue;
        SendMessageA(control, kind.setSelection, index, 0);
        const auto id = static_cast<WORD>(GetDlgCtrlID(control));
        PostMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(id, kind.changed),
                     reinterpret_cast<LPARAM>(control));
        return true;
    }
    selectOnly(control, static_cast<int>(index));
    return true;
}

void doubleClickRow(HWND list, int row) {
    const LPARAM at = pointParameter(rowPoint(list, row));
    PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(list, WM_LBUTTONUP, 0, at);
    PostMessageA(list, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    PostMessageA(list, WM_LBUTTONUP, 0, at);
}

bool type(const std::string& text) {
    const HWND focus = GetFocus();
    for (const char character : text)
        if (focus != nullptr)
            PostMessageA(focus, WM_CHAR, static_cast<unsigned char>(character), 1);
    return focus != nullptr;
}

bool pressKey(const std::string& name, HWND fallback) {
    std::string_view rest = name;
    for (const NamedKey& modifier : kModifiers) {
        if (!rest.starts_with(modifier.name) || rest.size() == modifier.name.size()) continue;
        rest.remove_prefix(modifier.name.size());
        hold(modifier.key, true);
    }
    const UINT key = keyNamed(rest);
    const HWND focus = GetFocus();
    const HWND target = focus != nullptr ? focus : fallback;
    if (key == 0 || target == nullptr) return false;
    PostMessageA(target, WM_KEYDOWN, key, keyFlags(key, false));
    PostMessageA(target, WM_KEYUP, key, keyFlags(key, true));
    return true;
}

void releaseModifiers() {
    for (const NamedKey& modifier : kModifiers) hold(modifier.key, false);
}

void contextClickCaption(HWND window) {
    PostMessageA(window, WM_NCRBUTTONUP, HTCAPTION, pointParameter(captionPoint(window)));
}

void doubleClickCaption(HWND window) {
    PostMessageA(window, WM_NCLBUTTONDBLCLK, HTCAPTION, pointParameter(captionPoint(window)));
}

void pressCaptionClose(HWND window) {
    PostMessageA(window, WM_NCLBUTTONDOWN, HTCLOSE, pointParameter(captionPoint(window)));
}

}  // namespace zek::ui
