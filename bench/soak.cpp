// A long day: publications through the real DLL, with the pane on the screen, and a checker at work
// between them.
//
//   soak [MESSAGES]      a million, when nothing is said
//
// Changes come, are refreshed and are decided at random, some 20,000 of them pending at any time.
// The checker filters, sorts, opens, edits, decides, recovers, docks and moves to screens of other
// dots per inch; what it decides is published, as a server does. Fails when the last tenth of the
// messages costs more than 1.5 times the first tenth (the best block of each, as the machine is
// shared), when memory, windows, menus, GDI objects or handles grow over the second half, or when a
// change is not where it must be.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <unordered_map>
#include <vector>

#include "bench/host_messages.h"
#include "console/holdings.h"
#include "res/resource_ids.h"
#include "tests/windows/screen_dpi.h"

namespace {

constexpr std::size_t kBlock = 500;  // messages between two acts of the checker
constexpr std::size_t kStanding = 20'000;
constexpr double kMaxGrowth = 1.5;
constexpr std::size_t kLimits = 5;  // every so many-th change is one of limits

std::mt19937 s_random{7};
std::size_t below(std::size_t end) {
    return s_random() % end;
}

// What is pending, and what happens to it next.
class Day {
public:
    Fields next() {
        if (m_pending.size() < kStanding || below(3) == 0) {
            m_at.emplace(keyText(m_next), m_pending.size());
            m_pending.push_back(m_next++);
            return changeOf(m_pending.back());
        }
        const std::size_t any = m_pending[below(m_pending.size())];
        return below(2) == 0 ? changeOf(any) : decided(keyText(any), "accepted");
    }
    // Of a change that is pending, or was.
    Fields decided(const std::string& key, const char* status) {
        if (const auto found = m_at.find(key); found != m_at.end()) {
            const std::size_t at = found->second;
            m_at[keyText(m_pending.back())] = at;
            std::swap(m_pending[at], m_pending.back());
            m_pending.pop_back();
            m_at.erase(key);
        }
        return outcome(key, status);
    }
    Fields any() const { return changeOf(m_pending[below(m_pending.size())]); }
    std::size_t pending() const { return m_pending.size(); }
    bool isPending(const std::string& key) const { return m_at.contains(key); }
    std::string last() const { return keyText(m_pending.back()); }

private:
    static Fields changeOf(std::size_t number) {
        if (number % kLimits != 0) return change(number);
        return ::pending(keyText(number), "360",
                         {{54001, "C" + std::to_string(number % 2000)}, {64056, "ZEKB"}});
    }
    std::vector<std::size_t> m_pending;
    std::unordered_map<std::string, std::size_t> m_at;
    std::size_t m_next = 0;
};

// ---- The checker ----

void press(HWND window, WPARAM key) {
    SendMessageA(window, WM_KEYDOWN, key, 0);
    SendMessageA(window, WM_KEYUP, key, 0);
}
void pressButton(int id) {
    SendMessageA(findPane(), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

class Checker {
public:
    Checker(LoadedPlugin& plugin, Day& day) : m_plugin(plugin), m_day(day) {}

    void act() {
        static constexpr void (Checker::*kActs[])() = {
            &Checker::filter, &Checker::sort,   &Checker::open,     &Checker::open,
            &Checker::edit,   &Checker::accept, &Checker::reject,   &Checker::recover,
            &Checker::dock,   &Checker::update, &Checker::changeDpi};
        const DialogTrap boxes([](HWND dialog) {
            if (const HWND reason = GetDlgItem(dialog, IDC_REJECTION_REASON))
                SetWindowTextA(reason, "not agreed");
        });
        (this->*kActs[below(std::size(kActs))])();
        answerRequests();
        pump();
        host().log.clear();
        ++m_acts;
    }

    void showAll() {
        for (int item = 0; item < 6; ++item) setFilter(item, "");
    }
    std::size_t acts() const { return m_acts; }
    std::size_t decisions() const { return m_decisions; }

private:
    static void setFilter(int item, const char* text) {
        SetWindowTextA(filterEdit(item), text);
        press(filterEdit(item), VK_RETURN);
        pump();
    }
    void filter() {
        static constexpr const char* kTexts[] = {"", "", "DEALER10", "*7", ">1100000", "*9*"};
        showAll();
        setFilter(below(2) == 0 ? 0 : 2, kTexts[below(std::size(kTexts))]);
    }
    void sort() {
        const RECT caption = headerItem(static_cast<int>(below(6)));
        const LPARAM at = MAKELPARAM(caption.left + 15, caption.top + 6);
        SendMessageA(header(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageA(header(), WM_LBUTTONUP, 0, at);
    }
    static void select() {
        const int rows = rowCount(mainList());
        if (rows == 0) return selectRows(mainList(), {});
        const int row = static_cast<int>(below(static_cast<std::size_t>(rows)));
        LVITEMA focus{};
        focus.state = focus.stateMask = LVIS_FOCUSED;
        selectRows(mainList(), {row});
        SendMessageA(mainList(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&focus));
    }
    void open() {
        select();
        press(mainList(), VK_RETURN);
    }
    void edit() {
        open();
        answerRequests();
        pump();
        SetFocus(details());
        for (const WPARAM key : {VK_HOME, VK_DOWN, VK_DOWN, VK_F2}) press(details(), key);
        if (editor() == nullptr) return;
        SetWindowTextA(editor(), "1234");
        press(editor(), VK_RETURN);
    }
    void update() {
        edit();
        pressButton(IDC_UPDATE);
    }
    void accept() {
        select();
        pressButton(IDC_ACCEPT);
    }
    void reject() {
        select();
        pressButton(IDC_REJECT);
    }
    void recover() { pressButton(IDC_RECOVER); }
    void dock() { SendMessageA(findPane(), WM_NCLBUTTONDBLCLK, HTCAPTION, 0); }

    void changeDpi() {
        static constexpr int kDpis[] = {96, 120, 144, 192};
        const HWND top = GetAncestor(findPane(), GA_ROOT);
        ScreenDpi::moveTo(kDpis[below(std::size(kDpis))], top, onScreen(top));
    }

    // As the server does: details, outcomes, and some of what is pending for a recovery.
    void answerRequests() {
        for (const Fields& sent : std::exchange(host().sent, {})) {
            const std::string request = sentField(sent, 0), key = sentField(sent, 51803);
            if (request == "om_get_auth_limits_details") {
                answer(limitsAnswer(key));
            } else if (request == "om_get_auth_user_details") {
                answer({{32767, request}, {51803, key}, {31003, "DEALER"}, {30001, "Asha"}});
            } else if (request == "om_get_functionality_details") {
                Fields change = m_day.any();
                change.emplace_back(32767, request);
                answer(change);
            } else {
                ++m_decisions;
                m_plugin.publish(m_day.decided(key, sentField(sent, 10303).c_str()));
            }
        }
    }

    LoadedPlugin& m_plugin;
    Day& m_day;
    std::size_t m_acts = 0, m_decisions = 0;
};

// ---- What it costs ----

using Sample = std::array<double, 5>;
// Between two clean-ups the texts of columns where all differ take up to twice as much, some 3.5 MB
// here; a process gives little of it back.
constexpr struct {
    const char* name;
    double mayGrow;  // over the second half, by the line through it
} kKinds[] = {{"bytes", 6e6}, {"windows", 2}, {"menus", 2}, {"GDI objects", 4}, {"handles", 4}};

Sample sample() {
    const zek::Holdings held = zek::countHoldings();
    return {static_cast<double>(privateBytes()), static_cast<double>(held.windows),
            static_cast<double>(held.menus), static_cast<double>(held.gdiObjects),
            static_cast<double>(held.handles)};
}

// How much the line through samples at equal distances rises from the first to the last.
double rise(const std::vector<Sample>& samples, std::size_t kind) {
    const double middle = static_cast<double>(samples.size() - 1) / 2;
    double product = 0, square = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double x = static_cast<double>(i) - middle;
        product += x * samples[i][kind];
        square += x * x;
    }
    return product / square * static_cast<double>(samples.size() - 1);
}

bool isFlat(std::vector<Sample> samples) {
    samples.erase(samples.begin(), samples.begin() + static_cast<long>(samples.size() / 2));
    bool flat = true;
    for (std::size_t kind = 0; kind < std::size(kKinds); ++kind) {
        const double more = rise(samples, kind);
        const bool holds = more <= kKinds[kind].mayGrow;
        std::printf("%-12s rise by %.0f over the second half%s\n", kKinds[kind].name, more,
                    holds ? "" : ": TOO MUCH");
        flat = flat && holds;
    }
    return flat;
}

// Each pending change has its one row, and there is no other.
bool allAreThere(const Day& day) {
    std::size_t found = 0;
    for (const std::string& key : column(2)) found += day.isPending(key);
    const auto rows = static_cast<std::size_t>(rowCount(mainList()));
    std::printf("%zu pending, %zu rows, %zu of them of what is pending\n", day.pending(), rows,
                found);
    return rows == day.pending() && found == rows;
}

}  // namespace

int main(int argc, char** argv) {
    const std::size_t messages = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1'000'000;
    const std::size_t blocks = std::max<std::size_t>(messages / kBlock, 40);
    LoadedPlugin plugin;
    const ScreenDpi screen(96);
    plugin.init();
    const MainFrame frame;
    plugin.hotKey();
    pump();
    auto* publish = plugin.entry<HandlePublishMsgEntry>("HandlePublishMsg");
    Day day;
    Checker checker(plugin, day);
    std::vector<double> costs;  // of the blocks since so many were pending
    std::vector<Sample> samples;
    std::printf("%9s %8s %10s %12s %8s %6s %6s %8s %8s\n", "messages", "ns each", "pending",
                "bytes", "windows", "menus", "GDI", "handles", "acts");
    for (std::size_t block = 0; block < blocks; ++block) {
        const double cost =
            Messages(kBlock, [&](std::size_t) { return day.next(); }).publishTo(publish);
        if (day.pending() >= kStanding) costs.push_back(cost);
        checker.act();
        if (block % (blocks / 40) != 0) continue;
        const Sample now = samples.emplace_back(sample());
        if (samples.size() % 4 != 1) continue;
        std::printf("%9zu %8.0f %10zu %12.0f %8.0f %6.0f %6.0f %8.0f %8zu\n", (block + 1) * kBlock,
                    cost, day.pending(), now[0], now[1], now[2], now[3], now[4], checker.acts());
        std::fflush(stdout);
    }
    checker.showAll();
    bool good = allAreThere(day);
    good = isFlat(samples) && good;
    while (day.pending() > 0) plugin.publish(day.decided(day.last(), "accepted"));
    pump();
    if (costs.empty()) costs = {1};  // the day was too short
    const auto tenth = static_cast<std::ptrdiff_t>((costs.size() + 9) / 10);
    const double first = *std::min_element(costs.begin(), costs.begin() + tenth);
    const double last = *std::min_element(costs.end() - tenth, costs.end());
    std::printf(
        "%zu acts, %zu decisions, %d rows at the end; cost at the end %.2f of the start's\n",
        checker.acts(), checker.decisions(), rowCount(mainList()), last / first);
    good = rowCount(mainList()) == 0 && last <= kMaxGrowth * first && good;
    std::printf("%s\n", good ? "the day was good" : "FAILED");
    return good ? 0 : 1;
}
