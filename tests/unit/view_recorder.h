// A workbench view that writes down what it is told and keeps count of its rows.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "workbench/model/workbench_view.h"

class ViewRecorder final : public WorkbenchView {
public:
    // "append", "remove 3", "redraw", "empty details"
    std::vector<std::string> events;
    std::size_t rows = 0;
    std::function<void()> whenDetailsEmpty = [] {};

    void rowAppended() override {
        ++rows;
        events.emplace_back("append");
    }
    void rowRemoved(std::size_t row) override {
        --rows;
        events.push_back("remove " + std::to_string(row));
    }
    void redrawRows() override { events.emplace_back("redraw"); }
    void emptyDetails() override {
        events.emplace_back("empty details");
        whenDetailsEmpty();
    }
};
