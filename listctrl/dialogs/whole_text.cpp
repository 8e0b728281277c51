#include "listctrl/dialogs/whole_text.h"

#include <string>
#include <utility>

#include "framework/dialog.h"
#include "framework/hwnd.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

// An edit from which nothing can be copied.
class CUncopiedEdit final : public fw::CWindow {
public:
    bool attach(HWND edit) { return subclass(edit); }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_COPY, &CUncopiedEdit::drop>(),
            fw::on<WM_CONTEXTMENU, &CUncopiedEdit::dropMenu>(),  // its menu copies
            fw::offer<WM_CHAR, &CUncopiedEdit::onCharacter>(),
            fw::offer<WM_KEYDOWN, &CUncopiedEdit::onKeyDown>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void drop() {}
    void dropMenu(POINT) {}
    bool onCharacter(UINT character) { return character < ' '; }  // Ctrl+C among them
    bool onKeyDown(UINT key, bool) { return key == VK_INSERT || key == VK_DELETE; }
};

class CWholeTextDlg final : public fw::CDialog {
public:
    CWholeTextDlg(std::string text, bool mayCopy, HWND over, const char* caption = nullptr)
        : m_text(std::move(text)), m_mayCopy(mayCopy), m_over(over), m_caption(caption) {}

    void show() { run(IDD_WHOLE_TEXT, IDCANCEL); }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_INITDIALOG, &CWholeTextDlg::onInitDialog>(),
            fw::onCommand<IDCANCEL, &CWholeTextDlg::onClose>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    // In the list's font, in which the text was seen.
    LRESULT onInitDialog() {
        if (m_caption != nullptr) SetWindowTextA(handle(), m_caption);
        if (!m_mayCopy) m_edit.attach(item(IDC_WHOLE_TEXT));
        fw::setFont(item(IDC_WHOLE_TEXT), fw::fontOf(m_over));
        setItemText(IDC_WHOLE_TEXT, m_text);
        centerOver(m_over);
        SetFocus(item(IDC_WHOLE_TEXT));
        return FALSE;  // the text is not selected
    }
    void onClose() { end(IDCANCEL); }

    std::string m_text;
    bool m_mayCopy;
    HWND m_over;
    const char* m_caption;  // null: the dialog's own
    CUncopiedEdit m_edit;
};

}  // namespace

void showWholeText(std::span<const NamedText> texts, bool mayCopy, HWND window) {
    CWholeTextDlg(wholeText(texts), mayCopy, window).show();
}

void showText(const char* caption, std::string text, HWND window) {
    CWholeTextDlg(std::move(text), true, window, caption).show();
}

}  // namespace mc
