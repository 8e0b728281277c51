// Starting: from loading the library to the first paint of the pane, and from the hot key to the
// list on the screen, beside a library that shows an empty dialog in the same process.
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

double emptyDialog(HWND parent) {
    HMODULE module = nullptr;
    HWND dialog = nullptr;
    const double time = microseconds([&] {
        module = LoadLibraryA("empty_dialog.dll");
        const FARPROC show = GetProcAddress(module, "ShowEmptyDialog");
        dialog = reinterpret_cast<HWND (*)(HWND)>(reinterpret_cast<void*>(show))(parent);
        pump();
    });
    DestroyWindow(dialog);
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

}  // namespace

int main() {
    Start ours;
    double peer = 1e9;
    for (int round = 0; round < 7; ++round) {
        {
            const MainFrame frame;
            pump();
            peer = std::min(peer, emptyDialog(frame.handle()));
        }
        startOnce(ours);
    }
    figures("start/load_to_first_paint", ours.loading + ours.hotKey, peer);
    figures("start/hot_key_to_list", ours.hotKey, peer);
    figures("start/hot_key_again", ours.again, peer);
    return 0;
}
