#include "listctrl/dialogs/font_setting.h"

#include "listctrl/dialogs/model/appearance_edit.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

constexpr char kPreferredFace[] = "Arial";

// Replaces `text` by the selected entry's, if there is one.
void takeSelected(HWND combo, std::string& text) {
    const auto selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (selected < 0) return;
    const auto place = static_cast<WPARAM>(selected);
    const auto length = SendMessageA(combo, CB_GETLBTEXTLEN, place, 0);
    text.assign(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(combo, CB_GETLBTEXT, place, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
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
    const HWND sizes = item(IDC_FONT_SIZE);
    for (const int size : kFontSizes)
        SendMessageA(sizes, CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(std::to_string(size).c_str()));
    SendMessageA(sizes, CB_SETCURSEL, 0, 0);
    for (const HWND combo : {m_faces.handle(), sizes})  // both as high as the faces need
        SendMessageA(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), scaled(18));
    centerOver(m_over);
    return TRUE;
}

// The face list draws its entries.
LRESULT CFontSettingDlg::onDrawItem(const DRAWITEMSTRUCT& draw) {
    return SendMessageA(item(IDC_FONT_FACE), WM_DRAWITEM, draw.CtlID,
                        reinterpret_cast<LPARAM>(&draw));
}

void CFontSettingDlg::onOk() {
    takeSelected(item(IDC_FONT_FACE), m_face);
    takeSelected(item(IDC_FONT_SIZE), m_size);
    end(IDOK);
}

}  // namespace mc
