// A handler of answers that writes down what reaches it.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "link/model/receiver.h"

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

}  // namespace mc
