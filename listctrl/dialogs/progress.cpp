#include "listctrl/dialogs/progress.h"

#include <windows.h>

#include <commctrl.h>

#include "framework/dialog.h"
#include "framework/model/calls.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

constexpr ULONGLONG kShownAfter = 300;  // milliseconds
constexpr ULONGLONG kBetweenLooks = 50;
constexpr int kMaxMessages = 100;  // of one look: a window may never be done with painting
constexpr int kFullBar = 1000;

class CProgressDlg final : public fw::CDialog {
public:
    CProgressDlg(const std::string& caption, std::size_t total)
        : m_caption(caption), m_total(total) {}

    // False when it was cancelled.
    bool show(HWND owner, const std::function<void(const ProgressStep&)>& work) {
        if (CreateDialogParamA(fw::module(), MAKEINTRESOURCEA(IDD_PROGRESS), owner, dialogProc,
                               dialogParameter()) == nullptr)
            return false;
        m_start = m_last = GetTickCount64();
        EnableWindow(owner, FALSE);
        work([this](std::size_t done) { return step(done); });
        EnableWindow(owner, TRUE);  // first, so that the owner becomes the active window again
        if (handle() != nullptr) DestroyWindow(handle());
        return !m_cancelled;
    }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_INITDIALOG, &CProgressDlg::onInitDialog>(),
            fw::onCommand<IDCANCEL, &CProgressDlg::onCancel>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    LRESULT onInitDialog() {
        SetWindowTextA(handle(), m_caption.c_str());
        SendMessageA(item(IDC_PROGRESS_BAR), PBM_SETRANGE32, 0, kFullBar);
        centerOver(GetParent(handle()));
        return TRUE;
    }

    void onCancel() { m_cancelled = true; }

    bool step(std::size_t done) {
        const ULONGLONG now = GetTickCount64();
        if (now - m_last < kBetweenLooks) return !m_cancelled;
        m_last = now;
        if (now - m_start >= kShownAfter) say(done);
        handleInput();
        m_cancelled |= fw::callEnded();
        return !m_cancelled;
    }

    void say(std::size_t done) {
        setItemText(IDC_PROGRESS_TEXT, std::to_string(done) + " of " + std::to_string(m_total));
        SendMessageA(item(IDC_PROGRESS_BAR), PBM_SETPOS, kFullBar * done / m_total, 0);
        if (IsWindowVisible(handle()) == 0) ShowWindow(handle(), SW_SHOW);
    }

    void handleInput() {
        MSG message{};
        for (int i = 0; i < kMaxMessages && PeekMessageA(&message, nullptr, 0, 0,
                                                         PM_REMOVE | PM_QS_INPUT | PM_QS_PAINT);
             ++i) {
            if (IsDialogMessageA(handle(), &message) != 0) continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    const std::string m_caption;
    const std::size_t m_total;
    ULONGLONG m_start = 0, m_last = 0;
    bool m_cancelled = false;
};

}  // namespace

bool runWithProgress(const std::string& caption, std::size_t total,
                     const std::function<void(const ProgressStep&)>& work) {
    CProgressDlg dialog(caption, total);
    return fw::runModal([&](HWND owner) { return INT_PTR{dialog.show(owner, work)}; }) != 0;
}

}  // namespace mc
