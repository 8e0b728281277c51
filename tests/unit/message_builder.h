// Messages as a host delivers them, built with the messaging library.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/model/owned_message.h"
#include "link/model/mnemonics.h"

namespace mc {

struct FieldText {
    int mnemonic;
    std::optional<std::string> text;  // none: an occurrence that cannot be read
};
using FieldTexts = std::vector<FieldText>;

inline constexpr std::nullopt_t kUnreadable = std::nullopt;

// The fields in order; an id that stands twice has two occurrences.
inline zek::OwnedMessage makeMessage(const FieldTexts& fields) {
    zek::OwnedMessage message;
    for (const auto& [mnemonic, text] : fields) {
        if (text)
            message.add(mnemonic, *text);
        else
            message.addUnreadable(mnemonic);
    }
    return message;
}

// A publication of the change with `key`, then `more`.
inline zek::OwnedMessage publication(const std::string& status, const std::string& key,
                                     const FieldTexts& more = {}) {
    FieldTexts fields{{MNM_PUBLICATION_STATUS, status}, {MNM_AUTHORIZATION_KEY, key}};
    fields.insert(fields.end(), more.begin(), more.end());
    return makeMessage(fields);
}

}  // namespace mc
