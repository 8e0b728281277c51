// The details of limits, whose values are numbers formatted here and can be edited.
#include <limits>
#include <memory>

#include "details/model/captions.h"
#include "details/model/details_builders.h"
#include "details/model/field_change.h"
#include "details/model/limits_entity.h"
#include "link/model/mnemonics.h"
#include "text/number_text.h"

namespace mc {
namespace {

using Shown = std::optional<std::string>;  // none: no such value in the answer

Shown text(const FieldReader& answer, int mnemonic, int occurrence) {
    const auto sent = answer.text(mnemonic, occurrence);
    return sent ? Shown(*sent) : std::nullopt;
}

// Rounded through single precision: 12345678.91 is shown as 12345679.00.
Shown number(const FieldReader& answer, int mnemonic, int occurrence) {
    static_assert(std::numeric_limits<float>::is_iec559);  // what is too large becomes infinity
    const auto value = answer.number(mnemonic, occurrence);
    if (!value) return std::nullopt;
    std::string shown;
    appendTwoDecimals(static_cast<float>(*value), shown);
    return shown;
}

Shown count(const FieldReader& answer, int mnemonic, int occurrence) {
    const auto value = answer.longInteger(mnemonic, occurrence);
    return value ? Shown(std::to_string(*value)) : std::nullopt;
}

Shown yesOrNo(const FieldReader& answer, int mnemonic, int occurrence) {
    constexpr Decoding decoding{{{"yes", "E"}, {"no", "D"}}, {}};
    const auto sent = answer.text(mnemonic, occurrence);
    return sent ? Shown(decoding(*sent)) : std::nullopt;
}

// For whose limits an answer that carries this field alone has something to show.
enum class Counts { forNobody, belowBranches, forAll };

struct LimitField {
    int mnemonic;
    Shown (*value)(const FieldReader&, int, int);
    Shown (*oldValue)(const FieldReader&, int, int) = text;  // unformatted, as a rule
    Counts counts = Counts::belowBranches;
    bool adhoc = false;                                    // only when ad hoc margins count
    std::optional<RowAttribute> attribute = std::nullopt;  // whatever the checker's rights are
};

constexpr LimitField kLimits[] = {
    {.mnemonic = MNM_CATEGORY, .value = text, .attribute = RowAttribute::readOnly},
    {64031, number},                                      // Cash Margin
    {.mnemonic = 64158, .value = number, .adhoc = true},  // Adhoc Margin
    {.mnemonic = 64302, .value = number, .adhoc = true},  // Notional cash
    {64164, number},                                      // Finance Limit
    {64036, number},                                      // Del.Amt.Lim
    {MNM_BUY_SECURITY_LIMIT, count},                      // Buy Sec Limit
    {MNM_SELL_SECURITY_LIMIT, count},                     // Sell Sec Limit
    {64286, number},                                      // Direct Collateral
    {64326, number},                                      // Gross Exp Der Limit
    {64423, number},                                      // Buy Exp Option Limit
    {64425, number},                                      // Sell Exp Option Limit
    {64464, number},                                      // Cash NRML Ad Hoc
    {64466, number},                                      // Cash CNC Ad Hoc
    {64468, number},                                      // FO MIS Ad Hoc
    {64470, number},                                      // COM MIS Ad Hoc
    {54019, number},                                      // MToM Loss Limit
    {64033, number},                                      // Exposure Limit
    {64035, number},                                      // Turnover Limit
    {64178, number},                                      // Sell Exp Limit
    {64177, number},                                      // Buy Exp Limit
    {64313, number},                                      // Remarks Amt
    {MNM_LIMIT_REMARKS, text},                            // Remarks Text
    {64422, number},                                      // Buy Exp Future Limit
    {64424, number},                                      // Sell Exp Future Limit
    {64465, number},                                      // Cash MIS Ad Hoc
    {64467, number},                                      // FO NRML Ad Hoc
    {64469, number},                                      // COM NRML Ad Hoc
    {41046, number, text, Counts::forNobody},             // Cur NRML Adhoc
    {41047, number},                                      // Cur MIS Adhoc
    {41235, number},                                      // Order Value Limit
    {MNM_ORDER_QUANTITY_LIMIT, count, count},             // Order quantity limit
    {41000, number},                                      // SLBM Limit
    {41139, number},                                      // Buy Premium Limit
    {41140, number},                                      // Sell Premium Limit
    {41141, number},                                      // Buy Limit Future Turnover
    {41142, number},                                      // Sell Limit Future Turnover
    {41143, number},                                      // Buy limit Derivative Turnover
    {41144, number},                                      // Sell limit Derivative Turnover
    {41268, number},                                      // Opt NRML Adhoc
    {41269, number},                                      // Opt MIS Adhoc
    {41270, number},                                      // Cur Opt NRML Adhoc
    {41271, number},                                      // Cur Opt MIS Adhoc
    {.mnemonic = MNM_GROUPWISE_VALIDATION,
     .value = yesOrNo,
     .oldValue = yesOrNo,
     .attribute = RowAttribute::choice},
    {41282, text, text, Counts::forAll},  // Dane Limit
    {64420, text, text, Counts::forAll},  // Buy Exposure limit for FO and Com
    {64421, text, text, Counts::forAll},  // Sell Exposure limit for FO and Com
    {41336, text, text, Counts::forAll},  // Premium Net Limit
};

bool limitsTellNothing(const FieldReader& answer) {
    const bool belowBranches =
        answer.text(MNM_ACCOUNT_ID) || answer.text(MNM_USER) || answer.text(MNM_ACCOUNT_GROUP);
    const Counts least = belowBranches ? Counts::belowBranches : Counts::forAll;
    return std::none_of(std::begin(kLimits), std::end(kLimits), [&](const LimitField& field) {
        return field.counts >= least && answer.text(field.mnemonic);
    });
}

void appendLimit(DetailGroup& group, const FieldReader& answer, const LimitField& field,
                 RowAttribute byRight) {
    auto value = field.value(answer, field.mnemonic, 0);
    if (!value) return;
    sMCListStruct& row = group.rows.emplace_back();
    row.caption = captionOf(field.mnemonic);
    row.value = *std::move(value);
    row.oldValue = field.oldValue(answer, field.mnemonic, 1).value_or("");
    row.attribute = field.attribute.value_or(byRight);
    if (field.attribute != RowAttribute::readOnly) row.mnemonic = field.mnemonic;
    const bool numeric = field.value == number || field.value == count;
    row.change = fieldChange(answer.text(field.mnemonic), answer.text(field.mnemonic, 1),
                             numeric ? CompareAs::number : CompareAs::text);
    if (!field.attribute && field.mnemonic != MNM_LIMIT_REMARKS)
        row.sent =
            std::make_shared<SentAmount>(std::string(answer.text(field.mnemonic).value_or("")),
                                         std::string(answer.text(field.mnemonic, 1).value_or("")));
}

}  // namespace

DetailGroups BuildLimitsDetails(const FieldReader& answer, bool mayModify) {
    if (limitsTellNothing(answer)) return nothingModified();
    DetailGroup group = makeGroup("RMS Limits");
    const std::string entity = limitsEntityName(answer);
    if (!entity.empty()) group.rows.push_back(makeRow("RMS Limit For", entity));
    const bool adhocCounts = answer.text(MNM_ADHOC_COUNTS) == "OK";
    for (const LimitField& field : kLimits)
        if (adhocCounts || !field.adhoc)
            appendLimit(group, answer, field,
                        mayModify ? RowAttribute::number : RowAttribute::readOnly);
    DetailGroups groups;
    handOver(groups, std::move(group));
    return groups;
}

}  // namespace mc
