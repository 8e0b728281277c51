// What the lists need from the plug-in.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "settings/model/settings_store.h"

namespace mc {

// Implemented by plugin/ over the host's services. Thread: the user-interface thread.
class ListServices {
public:
    // Whether the host lets lists be exported and copied. Asked again each time; false when the
    // host cannot be asked.
    virtual bool mayExport() = 0;

    virtual CSettingsStore& settings() = 0;

    // Shows `text` in a message box. Never called from inside a paint.
    virtual void showMessage(const std::string& text) = 0;

    // The sort images: none, ascending, descending.
    virtual HIMAGELIST glyphs() = 0;

protected:
    ~ListServices() = default;
};

}  // namespace mc
