#include "tests/blind/sight.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>

#include "tests/windows/test_host.h"

namespace blind {
namespace {

// A box is named after its column by the label before it.
std::vector<Box> boxesOf(HWND header, HWND focus) {
    constexpr std::string_view kNameEnd = " filter";
    std::vector<Box> boxes;
    HWND combo = nullptr;
    while ((combo = FindWindowExA(header, combo, WC_COMBOBOXA, nullptr)) != nullptr) {
        std::string column = textOf(GetWindow(combo, GW_HWNDPREV));
        if (column.ends_with(kNameEnd)) column.resize(column.size() - kNameEnd.size());
        boxes.push_back({combo, column, textOf(combo),
                         SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0) != 0,
                         combo == focus || IsChild(combo, focus) != 0});
    }
    return boxes;
}

ListSight lookAt(HWND list, HWND focus, std::initializer_list<const char*> columns) {
    ListSight sight;
    sight.window = list;
    if (list == nullptr) return sight;
    sight.captions = ::captions(list);
    sight.rows.resize(static_cast<std::size_t>(rowCount(list)));
    for (std::size_t row = 0; row < sight.rows.size(); ++row)
        for (const char* column : columns)
            sight.rows[row][column] = sight.readCell(static_cast<int>(row), column);
    sight.selected = selectedRows(list);
    sight.focused = ListView_GetNextItem(list, -1, LVNI_FOCUSED);
    sight.boxes = boxesOf(header(list), focus);
    return sight;
}

// A tag that is folded away or filtered stays that of the details of its change.
void findTag(Sight& now, const Sight& last) {
    for (int row = 0; row < static_cast<int>(now.details.rows.size()); ++row) {
        const std::string value = now.details.cell(row, "Value");
        if (!value.starts_with("K") || value.find('/') == std::string::npos) continue;
        now.tag = value;
        now.tagVisible = true;
    }
    if (!now.tagVisible && !last.tag.empty() && !now.details.rows.empty() &&
        names(now.strip, last.tag.substr(1, last.tag.find('/') - 1)))
        now.tag = last.tag;
}

}  // namespace

bool editorIsLeft(const Sight& last) {
    const HWND editor =
        FindWindowExA(last.details.window, nullptr, "MakerChecker.CellEditor", nullptr);
    return editor != nullptr && IsWindowVisible(editor) != 0 && IsChild(editor, GetFocus()) == 0;
}

bool names(const std::string& strip, const std::string& key) {
    return strip.find(", " + key) != std::string::npos;
}

std::string stripText(HWND detailsList) {
    const std::string text = textOf(detailsList), begin = "Maker Checker Details: ";
    return text.starts_with(begin) ? text.substr(begin.size()) : "";
}

std::string buttonOf(HWND pane, HWND window) {
    for (const char* text : {"Accept", "Reject", "Update", "Recover"})
        if (window != nullptr && FindWindowExA(pane, nullptr, "Button", text) == window &&
            IsWindowVisible(window) != 0 && IsWindowEnabled(GetAncestor(window, GA_ROOT)) != 0)
            return text;
    return "";
}

int ListSight::column(const std::string& caption) const {
    const auto found = std::ranges::find(captions, caption);
    return found != captions.end() ? static_cast<int>(found - captions.begin()) : -1;
}

std::string ListSight::cell(int row, const std::string& caption) const {
    if (row < 0 || row >= static_cast<int>(rows.size())) return "";
    const auto& cells = rows[static_cast<std::size_t>(row)];
    const auto found = cells.find(caption);
    return found != cells.end() ? found->second : "";
}

std::string ListSight::readCell(int row, const std::string& caption) const {
    const int from = column(caption);
    return from >= 0 ? cellText(window, row, from) : "";
}

std::vector<std::string> Sight::selectedKeys() const {
    std::vector<std::string> keys;
    for (const int row : main.selected) keys.push_back(main.cell(row, "Key"));
    return keys;
}

std::string Sight::focusedKey() const {
    return main.cell(main.focused, "Key");
}

Texts Sight::editsOver(const Texts& received) const {
    Texts edits;
    for (int row = 0; row < static_cast<int>(details.rows.size()); ++row) {
        const std::string field = details.cell(row, "Field"), value = details.cell(row, "Value");
        const bool limit = std::ranges::any_of(
            kLimits, [&field](const Limit& each) { return each.caption == field; });
        const auto before = received.find(field);
        if (limit && (before == received.end() || before->second != value)) edits[field] = value;
    }
    return edits;
}

Sight look(const Sight& last) {
    Sight sight;
    const bool same = IsWindow(last.pane) != 0;
    sight.pane = same ? last.pane : findPane();
    sight.focus = GetFocus();
    sight.main = lookAt(same ? last.main.window : mainList(), sight.focus, {"Key"});
    sight.details = lookAt(same ? last.details.window : details(), sight.focus, {"Field", "Value"});
    sight.strip = stripText(sight.details.window);
    sight.line = textOf(FindWindowExA(sight.pane, nullptr, "MakerChecker.PressLine", nullptr));
    findTag(sight, last);
    sight.editor = FindWindowExA(sight.details.window, nullptr, "MakerChecker.CellEditor", nullptr);
    if (sight.editor != nullptr && IsWindowVisible(sight.editor) != 0) {
        sight.editorPlace = onScreen(sight.editor);
        sight.editedField = sight.details.cell(sight.details.focused, "Field");
    } else {
        sight.editor = nullptr;
    }
    return sight;
}

}  // namespace blind
