// A handler of answers that writes down what reaches it.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "link/model/receiver.h"

class AnswerRecorder final : public AnswerHandler {
public:
    // "refused", "limits", "user", "account", "recovered"
    std::vector<std::string> taken;
    bool throws = false;

    void detailsRefused(const FieldReader&) override { take("refused"); }
    void limitsDetails(const FieldReader&) override { take("limits"); }
    void userDetails(const FieldReader&) override { take("user"); }
    void accountDetails(const FieldReader&) override { take("account"); }
    void recovered(const FieldReader&) override { take("recovered"); }

private:
    void take(const char* what) {
        taken.emplace_back(what);
        if (throws) throw std::runtime_error("the handler fails");
    }
};
