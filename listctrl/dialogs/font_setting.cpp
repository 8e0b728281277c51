#include "listctrl/dialogs/font_setting.h"

#include "framework/controls.h"
#include "listctrl/dialogs/model/appearance_edit.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

constexpr char kPreferredFace[] = "Arial";

// Replaces `text` by the selected entry's, if there is one.
void takeSelected(const fw::Combo& combo, std::string& text) {
    if (const auto selected = combo.selected()) text = combo.text(*selected);
}

}  // namespace

bool CFontSettingDlg::ask(HWND window) {
    m_over = window;
    return run(IDD_FONT, IDCANCEL) == IDOK;
}

const fw::MessageMap& CFontSettingDlg::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &CFontSettingDlg::onInitDialog>(),
        fw::on<WM_DRAWITEM, &CFontSettingDlg::onDrawItem>(),
        fw::onCommand<IDC_FONT_OK, &CFontSettingDlg::onOk>(),
        fw::onCommand<IDC_FONT_CANCEL, &CFontSettingDlg::onCancel>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CFontSettingDlg::onInitDialog() {
    m_faces.attach(item(IDC_FONT_FACE));
    m_faces.fill(kPreferredFace);
    const fw::Combo sizes(item(IDC_FONT_SIZE));
    for (const int size : kFontSizes) sizes.add(std::to_string(size));
    sizes.select(0);
    for (const fw::Combo& combo : {fw::Combo(m_faces.handle()), sizes})
        combo.setBoxHeight(scaled(18));  // as the faces need
    centerOver(m_over);
    return TRUE;
}

// The face list draws its entries.
LRESULT CFontSettingDlg::onDrawItem(const DRAWITEMSTRUCT& draw) {
    return reflectDrawItem(draw);
}

void CFontSettingDlg::onOk() {
    takeSelected(fw::Combo(item(IDC_FONT_FACE)), m_face);
    takeSelected(fw::Combo(item(IDC_FONT_SIZE)), m_size);
    end(IDOK);
}

}  // namespace mc
