// Answers with any fields, built into groups and shown as lines: no row is lost or made up,
// whatever is folded, filtered and edited.
#include <algorithm>
#include <array>
#include <set>
#include <span>
#include <vector>

#include "details/model/captions.h"
#include "details/model/details_builders.h"
#include "details/model/line_groups.h"
#include "tests/fuzz/detail_fields.h"
#include "tests/fuzz/input.h"
#include "tests/unit/message_builder.h"

using namespace mc;

namespace {

std::vector<int> allCaptioned() {
    std::vector<int> ids;
    for (int id = 0; id < 70'000; ++id)
        if (!captionOf(id).empty()) ids.push_back(id);
    return ids;
}

FieldTexts fieldsOf(Input& input) {
    static const std::vector<int> captioned = allCaptioned();
    FieldTexts fields;
    for (std::size_t count = input.below(48); count > 0 && !input.empty(); --count) {
        const std::size_t which = input.below(64);
        const int field =
            which < kDetailFields.size()
                ? kDetailFields[which]
                : captioned[(input.below(256) * 256 + input.below(256)) % captioned.size()];
        const std::size_t how = input.below(32);
        if (how == 0)
            fields.push_back({field, kUnreadable});
        else if (how < 8)
            fields.push_back({field, input.bytes(input.below(16))});
        else
            fields.push_back({field, input.oneOf(kDetailTexts)});
    }
    return fields;
}

// Most find some of the lines.
std::string filterOf(Input& input) {
    static constexpr std::array kFilters{"", "", "*e*", "*a*", "*1*", "E", "Dealer", "*Limit*"};
    return input.below(4) != 0 ? input.oneOf(kFilters) : input.bytes(input.below(8));
}

DetailGroups build(std::size_t kind, const FieldReader& answer) {
    DetailGroups groups = kind == 0   ? BuildUserDetails(answer)
                          : kind == 1 ? BuildClientDetails(answer)
                                      : BuildLimitsDetails(answer, kind == 2);
    for (const DetailGroup& group : groups) {
        require(!group.rows.empty() || groups.size() == 1, "a group has rows, or says that no has");
        for (const sMCListStruct& row : group.rows)
            require(row.attribute == RowAttribute::readOnly || (row.mnemonic != 0 && kind >= 2),
                    "what can be edited belongs to a limit", row.caption);
    }
    return groups;
}

// The lines once more, with the plain rule of which show: a row that passes, unless its group is
// folded; each row that is edited; the heading of what shows, or that passes itself.
class Checked {
public:
    void show(DetailGroups groups, bool instead) {
        std::set<std::string> folded;
        for (const Plain& line : std::span(m_plain.data(), instead ? m_plain.size() : 0))
            if (line.isHeading && m_folded[line.group]) folded.insert(line.texts[0]);
        if (instead) m_plain.clear(), m_folded.clear();
        for (const DetailGroup& group : groups) {
            m_plain.push_back({textsOf(group.header), m_folded.size(), true});
            for (const sMCListStruct& row : group.rows)
                m_plain.push_back({textsOf(row), m_folded.size()});
            m_folded.push_back(folded.contains(group.header.caption));
        }
        instead ? m_lines.replace(std::move(groups)) : m_lines.append(std::move(groups));
    }

    void filter(std::size_t column, const std::string& text) {
        m_lines.rows().filters().set(toColumnId(column), text);
        m_filters[column] = FilterPattern(text, false);
        m_lines.rows().filter();
    }

    void fold(std::size_t row, bool folded) {
        if (const auto* line = m_lines.lineAt(row)) {
            m_folded[m_plain[line->slot].group] = folded;
            m_lines.setFolded(*line, folded);
        }
    }

    void edit(std::size_t row, const std::string& text) {
        LineGroups::Line* const line = m_lines.lineAt(row);
        if (line == nullptr || line->isHeading()) return;
        Plain& plain = m_plain[line->slot];
        if (!plain.edited) plain.received = line->row->received = line->row->value;
        plain.texts[1] = line->row->value = text;
        plain.edited = line->row->edited = true;
        m_lines.rowChanged(*line);
    }

    void endEdits(bool sent) {
        for (Plain& line : m_plain) {
            if (line.edited && !sent) line.texts[1] = line.received;
            line.edited = false;
        }
        sent ? m_lines.editsSent() : m_lines.editsDropped();
        m_lines.rows().filter();
    }

    void check() {
        require(m_lines.rows().stored().size() == m_plain.size(), "every row is a line");
        std::set<Slot> expected;
        Slot heading = 0;
        for (Slot slot = 0; slot < m_plain.size(); ++slot) {
            const Plain& line = m_plain[slot];
            if (line.isHeading) heading = slot;
            for (std::size_t column = 0; column < 3; ++column)
                require(m_lines.text(slot, toColumnId(column)) == line.texts[column], "its text");
            if (!passes(line) && !line.edited) continue;
            expected.insert(heading);
            if (!m_folded[line.group] || line.edited) expected.insert(slot);
        }
        std::vector<Slot> shown;
        m_lines.rows().visible().order().copyTo(shown);
        require(std::ranges::equal(shown, expected), "the lines that pass show, and no others");
    }

private:
    using Texts = std::array<std::string, 3>;
    struct Plain {
        Texts texts;
        std::size_t group;
        bool isHeading = false, edited = false;
        std::string received = {};
    };

    static Texts textsOf(const sMCListStruct& row) {
        return {row.caption, row.value, row.oldValue};
    }
    bool passes(const Plain& line) const {
        return std::ranges::equal(m_filters, line.texts, &FilterPattern::matches);
    }

    LineGroups m_lines;
    std::vector<Plain> m_plain;  // by slot
    std::vector<bool> m_folded;  // by group
    std::array<FilterPattern, 3> m_filters;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    Checked lines;
    while (!input.empty()) {
        switch (input.below(6)) {
            case 0: {
                const std::size_t kind = input.below(4);
                const auto answer = makeMessage(fieldsOf(input));
                lines.show(build(kind, FieldReader(answer.handle())), input.below(4) != 0);
                break;
            }
            case 1:
                lines.filter(input.below(3), filterOf(input));
                break;
            case 2:
                lines.fold(input.below(64), input.below(3) != 0);
                break;
            case 3:
                lines.endEdits(input.below(2) == 0);
                break;
            default:
                lines.edit(input.below(64), input.bytes(input.below(8)));
                break;
        }
        lines.check();
    }
    return 0;
}
