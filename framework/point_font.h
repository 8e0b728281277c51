// Fonts by face and points.
#pragma once

#include <windows.h>

#include <string>

#include "framework/handles.h"

namespace fw {

// A face of `points` at `dpi` dots per inch; for a face that is not installed the platform takes
// another.
inline Font pointFont(const std::string& face, int points, int dpi) {
    return Font(CreateFontA(-MulDiv(points, dpi, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                            DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                            DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, face.c_str()));
}

}  // namespace fw
