// The system refuses what the plug-in asks for, once and at every point of its start-up: no crash,
// nothing is left over, and the next start works.
#include <cstdlib>
#include <deque>

#include "console/holdings.h"
#include "tests/checked/failing_allocation.h"
#include "tests/windows/replaced_import.h"
#include "tests/windows/test_host.h"

namespace {

// ---- What fails ----

int s_calls = 0, s_failing = 0;  // 0: none fails

bool failsNow() {
    return ++s_calls == s_failing;
}

// One for each function, told apart by `number`.
template <int number, class Function>
struct Failing;
template <int number, class Result, class... Arguments>
struct Failing<number, Result(WINAPI*)(Arguments...)> {
    static inline Result(WINAPI* real)(Arguments...) = nullptr;
    static Result WINAPI call(Arguments... arguments) {
        if (!failsNow()) return real(arguments...);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return Result{};
    }
};

// While one lives, each call of the functions counts, and one of them may fail.
class FailingFunctions {
public:
    FailingFunctions() {
        replace<0, decltype(&CreateWindowExA)>("CreateWindowExA");
        replace<1, decltype(&CreateDialogParamA)>("CreateDialogParamA");
        replace<2, decltype(&CreatePopupMenu)>("CreatePopupMenu");
        replace<3, decltype(&CreateFontA)>("CreateFontA");
        replace<4, decltype(&CreateFontIndirectA)>("CreateFontIndirectA");
        replace<5, decltype(&CreateFontIndirectW)>("CreateFontIndirectW");
        replace<6, decltype(&SetWindowsHookExA)>("SetWindowsHookExA");
        replace<7, decltype(&SetWindowsHookExW)>("SetWindowsHookExW");
        replace<8, decltype(&ImageList_Create)>("ImageList_Create");
        replace<9, decltype(&RegisterClassExA)>("RegisterClassExA");
        replace<10, decltype(&SetWindowSubclass)>("SetWindowSubclass");
        replace<11, decltype(&CreateActCtxW)>("CreateActCtxW");
        replace<12, decltype(&GetDC)>("GetDC");
        replace<13, decltype(&CreateRectRgn)>("CreateRectRgn");
        replace<14, decltype(&SetTimer)>("SetTimer");
        replace<15, decltype(&ImageList_AddMasked)>("ImageList_AddMasked");
        replace<16, decltype(&LoadCursorA)>("LoadCursorA");
    }
    int replaced() const { return static_cast<int>(m_imports.size()); }

private:
    template <int number, class Function>
    void replace(const char* name) {
        using Instead = Failing<number, Function>;
        const auto& import = m_imports.emplace_back(name, &Instead::call);
        EXPECT_TRUE(import.found()) << name;
        Instead::real = reinterpret_cast<Function>(reinterpret_cast<void*>(import.before()));
    }
    std::deque<ReplacedImport> m_imports;
};

// An environment variable for a scope.
class Variable {
public:
    Variable(const char* name, const std::string& text) : m_name(name) {
        SetEnvironmentVariableA(name, text.c_str());
    }
    ~Variable() { SetEnvironmentVariableA(m_name, nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
};

// ---- What is done meanwhile ----

// What was refused may be the window that would have the focus: a hand's keys could go astray, and
// it is the handlers that must bear it.
LRESULT toList(HWND list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return list != nullptr ? SendMessageA(list, message, wParam, lParam) : 0;
}

// Start-up, the hot key, three changes, their rows painted, the details of one.
void useOnce(LoadedPlugin& plugin) {
    const DialogTrap boxes;
    plugin.init();
    plugin.hotKey();
    for (const char* key : {"1", "2"}) plugin.publish(pending(key, "340", {{31003, "U"}}));
    plugin.publish(pending("3", "360", {{54001, "C1"}}));
    pump();
    const auto paint = [] {
        if (const HWND pane = findPane())
            RedrawWindow(pane, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    };
    paint();
    if (findPane() == nullptr) return;
    if (mainList() != nullptr) selectRows(mainList(), {2});
    toList(mainList(), WM_KEYDOWN, VK_HOME);
    toList(mainList(), WM_KEYDOWN, VK_END);
    toList(mainList(), WM_KEYDOWN, VK_RETURN);
    if (host().receiver != nullptr && !host().controls.empty()) answer(limitsAnswer("3"));
    paint();
    pump();
}

void endIt(LoadedPlugin& plugin) {
    const DialogTrap boxes;
    plugin.exit();
    pump();
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().controls.empty()) << "the receive controls are released";
}

void expectWorking(LoadedPlugin& plugin) {
    useOnce(plugin);
    ASSERT_NE(mainList(), nullptr);
    EXPECT_EQ(column(2), (Texts{"1", "2", "3"}));
    EXPECT_GT(rowCount(details()), 3);
    endIt(plugin);
}

// What fails: the `first`-th call that is made of it.
struct Fault {
    std::function<void(int first)> arm;
    std::function<bool()> end;  // whether there was one
    std::function<int(int tried)> next;
};

// A start with the fault; what is held more after it than before. Returns whether there was one.
bool startWith(LoadedPlugin& plugin, const Fault& fault, int first, std::string& grown) {
    const int windows = threadWindows();
    const zek::Holdings before = zek::countHoldings();
    fault.arm(first);
    useOnce(plugin);
    const bool failed = fault.end();
    endIt(plugin);
    EXPECT_EQ(threadWindows(), windows);
    grown = zek::grown(before, zek::countHoldings());
    return failed;
}

// A start with each fault until none came, and now and then one without. Returns how many came.
int tryEach(const Fault& fault) {
    LoadedPlugin plugin;
    const MainFrame frame;
    expectWorking(plugin);
    int tried = 0;
    for (int first = 1;; first = fault.next(first)) {
        SCOPED_TRACE(first);
        std::string grown;
        if (!startWith(plugin, fault, first, grown)) break;
        // What the system keeps for later it keeps once; a leak comes again.
        if (!grown.empty()) startWith(plugin, fault, first, grown);
        EXPECT_EQ(grown, "");
        if (++tried % 10 == 0) expectWorking(plugin);
        if (testing::Test::HasFailure()) break;
    }
    expectWorking(plugin);
    return tried;
}

// Each takes as long as a start: every fourth, or with MC_FAULTS set every one.
bool triesAll() {
    return std::getenv("MC_FAULTS") != nullptr;
}

TEST(Faults, ObjectsOfTheSystemAreRefused) {
    const LoadedPlugin loaded;  // whose imports these are
    const FailingFunctions functions;
    const Fault refused{[](int first) { s_calls = 0, s_failing = first; },
                        [] { return s_calls >= std::exchange(s_failing, 0); },
                        [](int tried) { return tried + (triesAll() ? 1 : 4); }};
    const int tried = tryEach(refused);
    EXPECT_GT(tried, functions.replaced());
    std::printf("%d calls refused\n", tried);
}

// Where MC_FAULTS is set only: a start makes thousands.
TEST(Faults, AllocationsOfThePluginFail) {
    if (!triesAll()) GTEST_SKIP() << "takes minutes: set MC_FAULTS";
    checked::FailingAllocation failing;
    const Variable address(checked::kFailingAllocation,
                           std::to_string(reinterpret_cast<std::uintptr_t>(&failing)));
    const LoadedPlugin loaded;
    ASSERT_TRUE(failing.watched) << "only the checked build's allocations fail";
    for (const bool forGood : {false, true}) {
        const Fault fault{
            [&](int first) { failing.fail(static_cast<std::size_t>(first), forGood); },
            [&] { return failing.end(); }, [](int tried) { return tried + 1 + tried / 16; }};
        const int tried = tryEach(fault);
        EXPECT_GT(tried, 20);
        std::printf("%d allocations failed%s\n", tried, forGood ? ", with all behind" : "");
    }
}

}  // namespace
