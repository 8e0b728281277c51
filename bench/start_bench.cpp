// Starting: from loading the library to the first paint of the pane, and from the hot key to the
// list on the screen, beside a library that shows an empty dialog, or a full one, in the same
// process.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include "bench/lines.h"
#include "tests/windows/test_host.h"

namespace {

template <class Work>
double microseconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    return time.count();
}

double dialog(HWND parent, const char* name) {
    HMODULE module = nullptr;
    HWND shown = nullptr;
    const double time = microseconds([&] {
        module = LoadLibraryA("empty_dialog.dll");
        const FARPROC show = GetProcAddress(module, name);
        shown = reinterpret_cast<HWND (*)(HWND)>(reinterpret_cast<void*>(show))(parent);
        pump();
    });
    DestroyWindow(shown);
    FreeLibrary(module);
    return time;
}

// The best of some, in microseconds.
struct Start {
    double loading = 1e9;  // the library and its start
    double hotKey = 1e9;   // the pane, painted
    double again = 1e9;    // the pane brought to view
};

void startOnce(Start& best) {
    const auto frame = std::make_unique<MainFrame>();
    pump();
    std::unique_ptr<LoadedPlugin> plugin;
    best.loading = std::min(best.loading, microseconds([&] {
                                plugin = std::make_unique<LoadedPlugin>();
                                plugin->init();
                            }));
    const auto press = [&] {
        plugin->hotKey();
        pump();
    };
    best.hotKey = std::min(best.hotKey, microseconds(press));
    best.again = std::min(best.again, microseconds(press));
}

double peer(const char* name) {
    const MainFrame frame;
    pump();
    return dialog(frame.handle(), name);
}

}  // namespace

int main() {
    Start ours;
    double empty = 1e9, full = 1e9;
    for (int round = 0; round < 7; ++round) {
        empty = std::min(empty, peer("ShowEmptyDialog"));
        full = std::min(full, peer("ShowFullDialog"));
        startOnce(ours);
    }
    const double whole = ours.loading + ours.hotKey;
    figures("start/load_to_first_paint", whole, empty);
    figures("start/beside_a_full_dialog", whole, full);
    figures("start/hot_key_to_list", ours.hotKey, empty);
    figures("start/hot_key_again", ours.again, empty);
    return 0;
}
