// The status bar of the main frame, in parts from the left.
#pragma once

#include <string>
#include <vector>

#include "framework/handles.h"

namespace zek {

class StatusBar {
public:
    // Makes it in the frame, at whose bottom it is then.
    void create(HWND frame);

    void show(const std::vector<std::string>& parts);

    // The frame has other dots per inch, and another size.
    void followDpi();
    void fit() const;
    int height() const;

private:
    void showParts() const;

    HWND m_window = nullptr;
    fw::Font m_font;
    std::vector<std::string> m_parts;
};

}  // namespace zek
