// A handler of answers and a workbench view that write down what reaches them.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "link/model/receiver.h"
#include "workbench/model/details_view.h"
#include "workbench/model/records/records_view.h"

namespace mc {

class AnswerRecorder final : public AnswerHandler {
public:
    // "limits", "user", "account", each perhaps with " refused", and "recovered"
    std::vector<std::string> taken;
    bool throws = false;

    void detailsCame(DetailKind kind, const FieldReader&) override { take(nameOf(kind)); }
    void detailsRefused(DetailKind kind, const FieldReader&) override {
        take(std::string(nameOf(kind)) + " refused");
    }
    void recovered(const FieldReader&) override { take("recovered"); }

private:
    static const char* nameOf(DetailKind kind) {
        return kind == DetailKind::limits ? "limits"
               : kind == DetailKind::user ? "user"
                                          : "account";
    }
    void take(std::string what) {
        taken.push_back(std::move(what));
        if (throws) throw std::runtime_error("the handler fails");
    }
};

class ViewRecorder final : public RecordsView, public DetailsView {
public:
    std::vector<std::string> events;  // "rows", "empty details", "show details", "show again" ...
    DetailsCaption caption;
    std::vector<DetailGroup> shown;

    void rowsChanged() override { events.emplace_back("rows"); }
    void statesChanged() override {}
    void emptyDetails() override { events.emplace_back("empty details"); }
    void showDetails(std::vector<DetailGroup> groups, bool anotherChange) override {
        events.emplace_back(anotherChange ? "show details" : "show again");
        shown = std::move(groups);
    }
    void editsSent() override { events.emplace_back("edits sent"); }
    void editsDropped() override { events.emplace_back("edits dropped"); }
    void captionDetails(const DetailsCaption& now) override { caption = now; }
};

}  // namespace mc
