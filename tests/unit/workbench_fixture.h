// A workbench with a host and a view of its own, and what can happen to it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/view_recorder.h"
#include "workbench/model/workbench.h"

namespace mc {

class WorkbenchTest : public testing::Test {
protected:
    PendingChange list(const std::string& key, const std::string& code) {
        const auto message =
            publication("auth pending", key, {{MNM_FUNCTIONALITY, code}, {MNM_USER, "DLR101"}});
        workbench->handlePublished(message.handle());
        view.events.clear();
        return workbench->changes().at(workbench->changes().size() - 1);
    }

    void answer(const std::string& request, const FieldTexts& more) {
        FieldTexts fields{{MNM_ANSWERED_REQUEST, request}};
        fields.insert(fields.end(), more.begin(), more.end());
        const auto message = makeMessage(fields);
        host.control().receiver->onMessage(0, 0, message.handle(), nullptr);
    }

    // "open KEY", "answer KIND KEY", "error KIND KEY" (without KEY the message names none), "again
    // KEY" (published again), and "new answer KIND KEY" with another value.
    void take(const std::string& step) {
        std::istringstream words(step);
        std::string verb, kind, key;
        words >> verb;
        const bool changed = verb == "new";
        if (changed) words >> verb;
        if (verb == "answer" || verb == "error") words >> kind;
        words >> key;
        if (verb == "open") return workbench->details().open(*workbench->changes().findRecord(key));
        if (verb == "again")
            return workbench->handlePublished(publication("auth pending", key).handle());
        FieldTexts fields{{MNM_USER, "DLR101"}, {30001, changed ? "Usha" : "Asha"}};
        if (kind == "limits") fields = {{MNM_ACCOUNT_ID, "C1"}, {64031, changed ? "1600" : "1500"}};
        if (!key.empty()) fields.push_back({MNM_AUTHORIZATION_KEY, key});
        if (verb == "error") fields.push_back({MNM_ERROR, "no such change"});
        answer("om_get_auth_" + kind + "_details", fields);
    }

    FakeHost host;
    ViewRecorder view;
    std::unique_ptr<Workbench> workbench = std::make_unique<Workbench>(host, view);
};

}  // namespace mc
