#include "framework/high_contrast.h"

#include <windows.h>

namespace fw {
namespace {

// The name of the scheme that comes along is the system's, allocated and freed by it.
bool asked() noexcept {
    HIGHCONTRASTW setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) != 0 &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool& known() noexcept {
    static bool on = asked();
    return on;
}

}  // namespace

bool highContrast() noexcept {
    return known();
}

void askHighContrast() noexcept {
    known() = asked();
}

}  // namespace fw
