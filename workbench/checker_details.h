// The details of the change that is looked at, in the lower view of the pane's frame: their list,
// the line below it and what its caption says.
//
// Order of life: made with the pane; create() with its frame, then open(); until then, and when the
// windows are gone, nothing is shown.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "details/detail_line.h"
#include "details/edit_messages.h"
#include "details/multi_line_edit_list_ctrl.h"
#include "frames/holder_frame.h"
#include "workbench/model/details_view.h"

namespace mc {

class CheckerDetails final : public DetailsView {
public:
    // Both must outlive the object.
    CheckerDetails(ListServices& services, CVTHolderFrame& frame)
        : m_services(services), m_frame(frame) {}

    // Makes the list and its line in the frame, which takes them as its view kView; then they are
    // set up.
    static constexpr std::size_t kView = 1;
    void create();
    HeldView view();
    void open();

    // Called when what the caption says has changed. It must not call the workbench.
    void onNews(std::function<void()> news) { m_news = std::move(news); }

    // Null before create().
    CMultiLineEditListCtrl* list() const { return m_list.get(); }
    HWND line() const { return m_line.handle(); }

    void colorsChanged();

    // Ends an edit that is under way; false when its text is refused, and the editor stays open.
    bool leaveEditor() { return m_list->leaveEditor(); }
    TypedValue typed() const { return m_list != nullptr ? m_list->typed() : TypedValue{}; }

    // `stored` is what the update will send, if anything.
    void takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored);

    // Whether the key is an editor's: one that is held since it was pressed in an editor never
    // leaves the editors.
    bool editorKey(UINT key, bool repeated);

    void emptyDetails() override;
    void showDetails(std::vector<DetailGroup> groups, bool anotherChange) override;
    void editsSent() override;
    void editsDropped() override;
    void captionDetails(const DetailsCaption& caption) override;

private:
    std::string note();

    ListServices& m_services;
    CVTHolderFrame& m_frame;
    LineGroups m_lines;
    std::unique_ptr<CMultiLineEditListCtrl> m_list;
    CDetailLine m_line{m_lines};  // below the list
    DetailsCaption m_caption;
    std::function<void()> m_news = [] {};
    bool m_heldInEditor = false;  // the last key was pressed in an editor
};

}  // namespace mc
