// CFontSettingDlg: asks for a font face and a size in points.
#pragma once

#include <string>

#include "framework/dialog.h"
#include "listctrl/dialogs/hot_font_combo.h"

namespace mc {

class CFontSettingDlg final : public fw::CDialog {
public:
    // The texts that OK without a selection keeps. The dialog opens with Arial and 8 selected,
    // whatever they are.
    CFontSettingDlg(std::string face, std::string size)
        : m_face(std::move(face)), m_size(std::move(size)) {}

    // Runs the dialog over `window`; true when OK closed it.
    bool ask(HWND window);

    const std::string& GetFontName() const { return m_face; }
    const std::string& GetFontSize() const { return m_size; }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onInitDialog();
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    void onOk();
    void onCancel() { end(IDCANCEL); }

    HWND m_over = nullptr;
    CHotFontCombo m_faces;
    std::string m_face;
    std::string m_size;
};

}  // namespace mc
