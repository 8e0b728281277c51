// The real list on the screen, under Wine or on Windows: what a paint asks for and costs with a
// thousand and with a million rows, and select all, beside a plain owner-data list of the platform.
// Then the details list: showing and emptying an answer, beside a plain list that is filled row by
// row. Then the main list, with marks in every row and with none. Prints lines for bench/table.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "bench/lines.h"
#include "details/multi_line_edit_list_ctrl.h"
#include "frames/holder_frame.h"
#include "framework/window.h"
#include "listctrl/bold_font.h"
#include "listctrl/filter_list_ctrl.h"
#include "settings/settings_store.h"
#include "workbench/model/records/main_list.h"
#include "workbench/pending_list.h"

using namespace mc;

namespace {

using Clock = std::chrono::steady_clock;

class BenchServices final : public ListServices {
public:
    bool mayExport() override { return true; }
    CSettingsStore& settings() override { return settingsStore(); }
    void showMessage(const std::string& text) override {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
    HIMAGELIST glyphs() override { return nullptr; }
};

constexpr sVoskColInfo kColumns[] = {
    {"Entity Name", 75, 0, ColumnType::text}, {"Auth Type", 75, 0, ColumnType::text},
    {"Key", 75, 1, ColumnType::longInteger},  {"Maker", 75, 0, ColumnType::text},
    {"Branch", 75, 0, ColumnType::text},      {"Broker", 75, 0, ColumnType::text},
};

// The peer's parent: hands every cell out, as a plain host of a virtual list does.
class PlainParent final : public fw::CWindow {
public:
    bool create() {
        static const fw::WindowClass windowClass{"Bench.Plain", 0, IDC_ARROW, COLOR_3DFACE};
        return CWindow::create(windowClass, "", WS_POPUP | WS_VISIBLE, 0, {0, 0, 700, 500}, nullptr,
                               0);
    }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::onNotify<fw::kAnyId, LVN_GETDISPINFOA, &PlainParent::onGetDispInfo>()};
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onGetDispInfo(NMLVDISPINFOA& info) {
        if ((info.item.mask & LVIF_TEXT) != 0)
            std::snprintf(info.item.pszText, static_cast<std::size_t>(info.item.cchTextMax),
                          "DEALER%d", info.item.iItem);
    }
};

double microseconds(const std::function<void()>& work, int times) {
    const auto start = Clock::now();
    for (int i = 0; i < times; ++i) work();
    const std::chrono::duration<double, std::micro> time = Clock::now() - start;
    return time.count() / times;
}

void paint(HWND list) {
    InvalidateRect(list, nullptr, TRUE);
    UpdateWindow(list);
}

// The quickest of twenty: what else the machine does counts in none of them.
double paintTime(HWND list) {
    double best = 1e9;
    for (int i = 0; i < 20; ++i) best = std::min(best, microseconds([list] { paint(list); }, 1));
    return best;
}

void selectEveryRow(HWND list, bool on) {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED;
    item.state = on ? LVIS_SELECTED : 0;
    SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
}

// Microseconds.
struct ListTimes {
    double paint, selectAll;
};

ListTimes measureOurs(std::size_t rows) {
    PlainParent frame;
    frame.create();
    CVTHolderFrame holder(settingsStore());
    holder.create(frame.handle(), {0, 0, 700, 500}, 1024);
    BenchServices services;
    RecordStore store;
    CFilterListCtrl list(services, store);
    list.create(holder.handle(), 4000, "Bench list", "Bench");
    SetWindowPos(list.handle(), nullptr, 0, 0, 700, 500, SWP_NOZORDER);
    std::size_t asked = 0;
    std::string text;
    list.setColumns(kColumns, [&](Slot record, ColumnId) {
        ++asked;
        text = "DEALER" + std::to_string(record);
        return std::string_view(text);
    });
    for (std::size_t row = 0; row < rows; ++row) store.insertItem(row, static_cast<Slot>(row));
    list.storeChanged();
    paint(list.handle());
    asked = 0;
    const double cost = paintTime(list.handle());
    const std::size_t cells = asked / 20;
    const double all = microseconds([&] { selectEveryRow(list.handle(), true); }, 1);
    figure("paint/" + std::to_string(rows), "cells", static_cast<double>(cells));
    return {cost, all};
}

ListTimes measurePeer(std::size_t rows) {
    PlainParent frame;
    frame.create();
    const HWND list =
        CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0,
                        0, 700, 500, frame.handle(), nullptr, fw::module(), nullptr);
    for (int i = 0; i < 6; ++i) {
        LVCOLUMNA column{};
        column.mask = LVCF_WIDTH;
        column.cx = 75;
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(&column));
    }
    SendMessageA(list, LVM_SETITEMCOUNT, rows, 0);
    paint(list);
    const double cost = paintTime(list);
    // It takes a notification for each row.
    const double all = rows <= 100'000 ? microseconds([&] { selectEveryRow(list, true); }, 1) : 0;
    return {cost, all};
}

std::vector<DetailGroup> answer(std::size_t rows) {
    std::vector<DetailGroup> groups(1);
    groups[0].header.caption = "Order Types";
    for (std::size_t i = 0; i < rows; ++i) {
        const std::string text = std::to_string(i);
        groups[0].rows.push_back({"Field " + text, text + ".00", text, RowAttribute::number, 1});
    }
    return groups;
}

double measureDetails(std::size_t rows) {
    PlainParent frame;
    frame.create();
    CVTHolderFrame holder(settingsStore());
    holder.create(frame.handle(), {0, 0, 700, 500}, 1024);
    BenchServices services;
    LineGroups lines;
    CMultiLineEditListCtrl list(services, lines);
    list.create(holder.handle(), 4001, "Bench details", "Bench");
    SetWindowPos(list.handle(), nullptr, 0, 0, 700, 500, SWP_NOZORDER);
    list.setDetailColumns();
    std::vector<std::vector<DetailGroup>> answers(10, answer(rows));
    const auto next = [&] {
        std::vector<DetailGroup> groups = std::move(answers.back());
        answers.pop_back();
        return groups;
    };
    double clear = 0;
    const double show = microseconds(
        [&] {
            list.replace(next());
            UpdateWindow(list.handle());
            clear += microseconds([&] { list.empty(); }, 1) / 10;
        },
        10);
    return show - clear;
}

double measureFilledPeer(std::size_t rows) {
    PlainParent frame;
    frame.create();
    const HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      700, 500, frame.handle(), nullptr, fw::module(), nullptr);
    for (int i = 0; i < 3; ++i) {
        LVCOLUMNA column{};
        column.mask = LVCF_WIDTH;
        column.cx = 200;
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(&column));
    }
    const auto fill = [&] {
        const fw::RedrawOffScope off(list);
        for (std::size_t row = 0; row < rows; ++row)
            for (int cell = 0; cell < 3; ++cell) {
                std::string text = "Field " + std::to_string(row);
                LVITEMA item{};
                item.mask = LVIF_TEXT;
                item.iItem = static_cast<int>(row);
                item.iSubItem = cell;
                item.pszText = text.data();
                SendMessageA(list, cell == 0 ? LVM_INSERTITEMA : LVM_SETITEMA, 0,
                             reinterpret_cast<LPARAM>(&item));
            }
    };
    return microseconds([&] { fill(), paint(list); }, 1);
}

// A main list of changes about as many entities.
class MarksSide {
public:
    MarksSide(HWND parent, UINT id, std::size_t rows, bool lookedAt = true) {
        m_list.create(parent, id, "Bench pending", "Bench");
        SetWindowPos(m_list.handle(), nullptr, 0, 0, 700, 500, SWP_NOZORDER);
        m_list.setColumns(kMainColumns, [this](Slot change, ColumnId column) {
            return changes.table().cellText(change, column);
        });
        for (std::size_t i = 0; i < rows; ++i) {
            const std::string key = std::to_string(i), entity = "DEALER" + key;
            changes.addRecord(key, texts("MAKER", entity));
            if (lookedAt) changes.states().lookedAt(static_cast<Slot>(i));
        }
        m_list.storeChanged();
        ShowWindow(m_list.handle(), SW_HIDE);
    }

    void useBoldFont() { fw::setFont(m_list.handle(), m_bold.of(m_list.handle())); }
    void measure() {
        ShowWindow(m_list.handle(), SW_SHOW);
        paint(m_list.handle());
        m_best = std::min(m_best, paintTime(m_list.handle()));
        ShowWindow(m_list.handle(), SW_HIDE);
    }
    double best() const { return m_best; }

    static ChangeTexts texts(std::string_view maker, std::string_view entity) {
        return {.makerId = maker,
                .entityName = entity,
                .functionalityCode = "340",
                .brokerId = "BROKER",
                .branchId = "MUM"};
    }

private:
    class SilentView final : public RecordsView {
        void rowsChanged() override {}
        void statesChanged() override {}
    };
    SilentView m_view;
    BenchServices m_services;
    BoldFont m_bold;

public:
    PendingChanges changes{m_view};

private:
    CPendingList m_list{m_services, changes};
    double m_best = 1e9;  // microseconds
};

// Each row looked at, which has no mark; none looked at, which is bold; and each changed since,
// doubtful and sent, which is bold and has three marks. All alternate, so that they have the same
// machine. What bold text itself takes is seen where the list's own font is bold; what is more is
// the choice of another font for a row.
void measureMarks(std::size_t rows) {
    PlainParent frame;
    frame.create();
    CVTHolderFrame holder(settingsStore());
    holder.create(frame.handle(), {0, 0, 700, 500}, 1024);
    MarksSide plain(holder.handle(), 4002, rows);
    MarksSide boldList(holder.handle(), 4003, rows);
    boldList.useBoldFont();
    MarksSide boldRows(holder.handle(), 4004, rows, false);
    MarksSide marked(holder.handle(), 4005, rows);
    for (Slot slot = 0; slot < rows; ++slot) {
        const std::string entity = "DEALER" + std::to_string(slot);
        marked.changes.rewriteRecord(slot, MarksSide::texts("MAKES", entity));
        marked.changes.states().sent(slot, SentDecision::accept);
    }
    marked.changes.states().recoverSent();
    for (int round = 0; round < 5; ++round)
        plain.measure(), boldList.measure(), boldRows.measure(), marked.measure();
    figures("paint_with_marks", marked.best(), boldRows.best());
    figures("paint_bold_rows", boldRows.best(), boldList.best());
    figures("paint_bold", boldList.best(), plain.best());
}

}  // namespace

int main() {
    for (const std::size_t rows : {1'000u, 100'000u, 1'000'000u}) {
        const ListTimes ours = measureOurs(rows), peer = measurePeer(rows);
        figures("paint/" + std::to_string(rows), ours.paint, peer.paint);
        if (peer.selectAll > 0)
            figures("select_all/" + std::to_string(rows), ours.selectAll, peer.selectAll);
    }
    for (const std::size_t rows : {150u, 10'000u})
        figures("details/" + std::to_string(rows), measureDetails(rows), measureFilledPeer(rows));
    measureMarks(1'000);
    return 0;
}
