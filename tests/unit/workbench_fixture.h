// A workbench with a host and a view of its own, and what can happen to it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/recorders.h"
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

    void publish(const char* status, const std::string& key, const FieldTexts& more = {}) {
        workbench->handlePublished(publication(status, key, more).handle());
    }

    void restart() {
        workbench.reset();  // the host holds one control of a kind at a time
        workbench = std::make_unique<Workbench>(host, view, view);
    }

    // A field of each message that left since the last call.
    Lines takeSent(int mnemonic = MNM_REQUEST_NAME) {
        Lines texts;
        for (const SentMessage& message : std::exchange(host.control().sent, {}))
            texts.push_back(valueOf(message, mnemonic));
        return texts;
    }

    RecordStore& rows() { return workbench->changes().rows(); }

    // Steps behind commas, each as take() knows it.
    void run(const std::string& steps) {
        std::istringstream lines(steps);
        for (std::string step; std::getline(lines >> std::ws, step, ',');) take(step);
    }

    // From the server: "list KEY CODE [ENTITY [LINKED]]" (an investor's when it has an entity),
    // "found KEY" (an answer to Recover), "answer KIND KEY", "error KIND KEY" (without KEY the
    // message names none), "new answer KIND KEY" with another value, "again KEY" (published again),
    // "other KEY" (with another maker), "own KEY" (by the checker himself), "end KEY".
    // By the checker: "open KEY", "read KEY" (and its details come), "only KEY", "select KEY"
    // (too), "edit VALUE", "drop", "accept", "reject", "update", "recover".
    void take(const std::string& step) {
        std::istringstream words(step);
        std::string verb, kind, key, code = "339", entity, linked;
        words >> verb;
        const bool changed = verb == "new";
        if (changed) words >> verb;
        if (verb == "answer" || verb == "error") {
            words >> kind >> key;
            return answerDetails(kind, key, changed, verb == "error");
        }
        words >> key >> code >> entity >> linked;
        const auto selected = workbench->changes().selectedRecords();
        if (verb == "list") return listChange(key, code, entity, linked);
        if (verb == "found")
            return answer(kGetFunctionalityDetails, {{MNM_PUBLICATION_STATUS, "auth pending"},
                                                     {MNM_AUTHORIZATION_KEY, key},
                                                     {MNM_FUNCTIONALITY, code},
                                                     {MNM_USER, "DLR101"}});
        if (verb == "again") return publish("auth pending", key);
        if (verb == "other") return publish("auth pending", key, {{MNM_REQUESTING_USER, "MK2"}});
        if (verb == "own")
            return publish("auth pending", key, {{MNM_REQUESTING_USER, host.userId}});
        if (verb == "end") return publish("accepted", key);
        if (verb == "open") return workbench->details().open(*workbench->changes().findRecord(key));
        if (verb == "read") return run("open " + key + ",answer user " + key);
        if (verb == "only") rows().selection().clear();
        if (verb == "only" || verb == "select")
            return rows().selection().select(*rows().rowOf(workbench->changes().find(key)), true);
        if (verb == "edit") return void(workbench->details().valueEdited(64031, key));
        if (verb == "drop") return workbench->details().dropEdits();
        if (verb == "accept") return workbench->presses().accept(selected);
        if (verb == "reject") return workbench->presses().reject(selected, [] { return "no"; });
        if (verb == "update") return workbench->presses().update();
        if (verb == "recover") return workbench->presses().recover();
        FAIL() << "no such step: " << step;
    }

    void listChange(const std::string& key, const std::string& code, const std::string& entity,
                    const std::string& linked) {
        FieldTexts texts{{MNM_FUNCTIONALITY, code}, {MNM_USER, "DLR101"}};
        if (code == "354" || code == "360")
            texts = {{MNM_FUNCTIONALITY, code}, {MNM_ACCOUNT_ID, "C10021"}};
        if (!entity.empty()) texts = {{MNM_FUNCTIONALITY, code}, {MNM_TYPE, "INVESTOR_CLIENT"}};
        if (code == "353") texts.push_back({MNM_ACCOUNT_ID, entity});
        if (!entity.empty()) texts.push_back({MNM_USER, code == "353" ? linked : entity});
        publish("auth pending", key, texts);
    }

    void answerDetails(const std::string& kind, const std::string& key, bool changed, bool error) {
        FieldTexts fields{{MNM_USER, "DLR101"}, {30001, changed ? "Usha" : "Asha"}};
        if (kind == "limits") fields = {{MNM_ACCOUNT_ID, "C1"}, {64031, changed ? "1600" : "1500"}};
        if (!key.empty()) fields.push_back({MNM_AUTHORIZATION_KEY, key});
        if (error) fields.push_back({MNM_ERROR, "no such change"});
        answer("om_get_auth_" + kind + "_details", fields);
    }

    FakeHost host;
    ViewRecorder view;
    std::unique_ptr<Workbench> workbench = std::make_unique<Workbench>(host, view, view);
};

}  // namespace mc
