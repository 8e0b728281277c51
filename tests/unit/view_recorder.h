// A workbench view that writes down what it is told.
#pragma once

#include <string>
#include <vector>

#include "workbench/model/workbench_view.h"

namespace mc {

class ViewRecorder final : public WorkbenchView {
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
