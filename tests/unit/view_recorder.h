// A workbench view that writes down what it is told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workbench/model/workbench_view.h"

class ViewRecorder final : public WorkbenchView {
public:
    std::vector<std::string> events;  // "rows", "empty details", "show details", "edits sent"
    std::vector<DetailGroup> shown;
    std::function<void()> whenDetailsEmpty = [] {};

    void rowsChanged() override { events.emplace_back("rows"); }
    void emptyDetails() override {
        events.emplace_back("empty details");
        whenDetailsEmpty();
    }
    void showDetails(std::vector<DetailGroup> groups) override {
        events.emplace_back("show details");
        for (DetailGroup& group : groups) shown.push_back(std::move(group));
    }
    void editsSent() override { events.emplace_back("edits sent"); }
};
