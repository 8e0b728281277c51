// CDropPreview: a bold frame on the screen that shows where a dragged pane would go.
#pragma once

#include "framework/window.h"

namespace fw {

class CDropPreview : public CWindow {
public:
    // Shows the frame at `rect` (screen pixels), above everything and without taking the focus.
    void show(const RECT& rect);
    void hide();

protected:
    const MessageMap& messageMap() const override;
};

}  // namespace fw
