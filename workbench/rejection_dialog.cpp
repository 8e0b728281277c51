#include "workbench/rejection_dialog.h"

#include "framework/dialog.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

class CDisplayTextDlg final : public fw::CDialog {
public:
    std::string ask() {
        run(IDD_REJECTION, 0);
        return m_reason;
    }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::onCommand<IDC_REJECTION_OK, &CDisplayTextDlg::onOk>(),
            fw::onCommand<IDCANCEL, &CDisplayTextDlg::onCancel>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onOk() {
        m_reason = itemText(IDC_REJECTION_REASON);
        end(IDOK);
    }
    void onCancel() { end(IDCANCEL); }

    std::string m_reason;
};

}  // namespace

std::string askRejectionReason() {
    return CDisplayTextDlg().ask();
}

}  // namespace mc
