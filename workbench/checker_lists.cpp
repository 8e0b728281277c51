#include "workbench/checker_lists.h"

#include <utility>

#include "framework/list_view.h"
#include "res/resource_ids.h"
#include "workbench/model/queue_words.h"
#include "workbench/model/records/main_list.h"

namespace mc {
namespace {

constexpr std::size_t kMainView = 0;  // in the frame
constexpr char kMainListName[] = "Maker checker List";
constexpr char kMainTitle[] = "Maker-Checker";

}  // namespace

// The main list is null until both have their windows.
void CheckerLists::open(HWND pane, const RECT& rect, PendingChanges& changes) {
    auto main = std::make_unique<CPendingList>(m_services, changes);
    m_holder.create(pane, rect, IDC_HOLDER_FRAME);
    main->create(m_holder.handle(), IDC_MAIN_LIST, kMainListName, kMainTitle);
    m_details.create();
    m_main = std::move(main);
    m_holder.setViews({{m_main->handle(), kMainTitle, kMainListName,
                        [this] { m_main->commands().run(kCustomizeCommand); },
                        [this, &changes] { return mainNote(changes); }},
                       m_details.view()});
    openMain(changes);
    m_details.open();
}

void CheckerLists::openMain(PendingChanges& changes) {
    m_main->painter().setEmptyText(emptyQueueText(changes.states().arrivals()));
    m_main->onUpdate([this, &changes] {
        m_main->painter().setEmptyText(emptyQueueText(changes.states().arrivals()));
        m_holder.noteChanged(kMainView);
        m_news();
    });
    m_main->setColumns(
        kMainColumns,
        [&changes](Slot change, ColumnId column) {
            return changes.table().cellText(change, column);
        },
        kMandatoryMainColumns,
        [&changes](Slot change, ColumnId column) {
            return changes.table().wholeText(change, column);
        });
    m_main->access().setListName(
        [this, &changes] { return std::string(kMainTitle) + " - " + mainNote(changes); });
    m_main->commands().offerColumns(true, true);
    m_main->storeChanged();
}

void CheckerLists::onNews(const std::function<void()>& news) {
    m_news = news;
    m_details.onNews(news);
}

std::string CheckerLists::mainNote(const PendingChanges& changes) const {
    ListSummary summary = queueSummary(changes);
    summary.work = m_main->work().note();
    return summaryText(summary);
}

// ---- The windows ----

void CheckerLists::move(const RECT& rect) {
    if (m_holder.handle() != nullptr) m_holder.move(rect);
}

void CheckerLists::followDpi() {
    if (m_main == nullptr) return;
    m_main->followDpi();
    m_details.list()->followDpi();
}

void CheckerLists::showWindows() {
    for (const HWND window :
         {m_main->handle(), m_details.list()->handle(), m_details.line(), m_holder.handle()})
        ShowWindow(window, SW_SHOWNA);
}

void CheckerLists::bringIntoView(std::size_t mainRow) const {
    fw::ListView(m_main->handle()).bringIntoView(mainRow);
}

// ---- What the rules say ----

void CheckerLists::rowsChanged() {
    if (m_main != nullptr) m_main->storeChanged();
    m_news();
}

void CheckerLists::selectChange(Slot change) {
    if (m_main == nullptr) return;
    if (const auto row = m_main->store().rowOf(change)) m_main->input().goTo(*row);
}

// ---- Keys ----

// The filter row, the list below it, the bar, and the same for the details.
std::vector<HWND> CheckerLists::tabStops() const {
    std::vector<HWND> stops;
    const auto append = [&stops](const CFilterListCtrl& list) {
        const auto boxes = list.filterStops();
        stops.insert(stops.end(), boxes.begin(), boxes.end());
        stops.push_back(list.handle());
    };
    append(*m_main);
    stops.push_back(m_holder.bar(0));
    append(*m_details.list());
    return stops;
}

bool CheckerLists::claims(HWND control, UINT key) const {
    if (m_main == nullptr) return false;
    return m_main->claimsIn(control, key) || m_details.list()->claimsIn(control, key);
}

CheckerLists::KeyUse CheckerLists::dialogKey(UINT key, bool repeated) {
    if (m_main == nullptr) return KeyUse::taken;
    const HWND focus = GetFocus();
    if (m_details.editorKey(key, repeated)) return KeyUse::taken;
    if (repeated) return KeyUse::none;
    CMultiLineEditListCtrl& details = *m_details.list();
    if (m_main->dialogKey(focus, key) || details.dialogKey(focus, key)) return KeyUse::taken;
    const bool inList = focus == m_main->handle() || focus == details.handle();
    return key == VK_ESCAPE && inList ? KeyUse::dropsEdits : KeyUse::none;
}

}  // namespace mc
