// Whether the user's colours are a scheme of high contrast, which has to be kept to.
#pragma once

namespace fw {

// As it was asked last. The first call asks.
bool highContrast() noexcept;

// Asks the system; call it when the colours or settings of the system changed, and never while
// painting: the system allocates memory for the scheme's name with each asking.
void askHighContrast() noexcept;

}  // namespace fw
