// Groups of details as lines that a test can compare.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "details/model/detail_group.h"
#include "link/model/message.h"
#include "tests/unit/message_builder.h"

namespace mc {

using DetailLines = std::vector<std::string>;

// "[heading]" for a group, "Field: value" for a row, and " < old" where there is an old value.
inline DetailLines linesOf(const std::vector<DetailGroup>& groups) {
    const auto withOld = [](std::string text, const sMCListStruct& row) {
        return row.oldValue.empty() ? text : text + " < " + row.oldValue;
    };
    DetailLines lines;
    for (const DetailGroup& group : groups) {
        lines.push_back("[" + withOld(group.header.caption + group.header.value, group.header) +
                        "]");
        for (const sMCListStruct& row : group.rows)
            lines.push_back(withOld(row.caption + ": " + row.value, row));
    }
    return lines;
}

// What a builder makes of an answer with these fields.
template <class Builder, class... More>
DetailLines built(Builder builder, const FieldTexts& fields, More... more) {
    const auto answer = makeMessage(fields);
    return linesOf(builder(FieldReader(answer.handle()), more...));
}

struct DetailCase {
    const char* name;
    FieldTexts answer;
    DetailLines lines;
};

// The fields of each case stand behind `id`, and its lines behind those that `id` brings.
template <class Builder, class... More>
void expectBehind(const FieldText& id, const DetailLines& ofId, std::span<const DetailCase> cases,
                  Builder builder, More... more) {
    for (const auto& [name, fields, lines] : cases) {
        FieldTexts answer{id};
        answer.insert(answer.end(), fields.begin(), fields.end());
        DetailLines expected = ofId;
        expected.insert(expected.end(), lines.begin(), lines.end());
        EXPECT_EQ(built(builder, answer, more...), expected) << name;
    }
}

inline const DetailLines kNothing{"[No Parameters are Modified]"};

}  // namespace mc
