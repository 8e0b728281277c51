// The details of a client's record.
#include "details/model/captions.h"
#include "details/model/details_builders.h"
#include "details/model/exchanges.h"
#include "details/model/field_change.h"
#include "link/model/mnemonics.h"

namespace mc {
namespace {

constexpr Decoding kSor{{{"Y", "YES"}, {"N", "NO"}}, ""};

constexpr FieldRow kClientGeneral[] = {
    {.mnemonic = MNM_ACCOUNT_ID, .counts = false},  // Client Id
    {54002},                                        // Client Name
    {64009},                                        // Exch Acct Id
    {50110},                                        // Email Add
    {64840},                                        // NSE UCC
    {64841},                                        // BSE UCC
    {64842},                                        // NFO UCC
    {64843},                                        // NCDEX UCC
    {64844},                                        // MCX UCC
    {64845},                                        // BFO UCC
    {64846},                                        // CDS UCC
    {64847},                                        // ICEX UCC
    {64848},                                        // IPO UCC
    {64849},                                        // NSPOT UCC
    {64850},                                        // MFS UCC
    {64851},                                        // LME UCC
    {64852},                                        // MCX UCC
    {64853},                                        // DGCX UCC
    {64854},                                        // RCME UCC
    {64855},                                        // ACE UCC
    {64856},                                        // USE UCC
    {64857},                                        // NMCE UCC
    {64858},                                        // CMEMX UCC
    {64859},                                        // SGX UCC
    {50111},                                        // Mobile No
    {10046},                                        // Address
    {64950},                                        // Off. Address
    {64952},                                        // Off.Phone No
    {64951},                                        // Res.Phone No
    {63216},                                        // Mac Address
    {MNM_USER_IP},                                  // User IP
    // The user IP makes this row too: without it there is none, without an ARN it says "NA".
    {.mnemonic = MNM_ARN, .gate = MNM_USER_IP},
    {12007},              // Client Type
    {MNM_CLIENT_STATUS},  // Client Status
};

// Behind the client context.
constexpr FieldRow kClientGeneralEnd[] = {
    {MNM_SOR_ENABLED, kSor, kSor, "SOR Enabled"},  // has no caption in the table
    {64935},                                       // Client DOB
};

constexpr FieldRow kBank[] = {
    {64953},             // Acct NO1
    {64911},             // Bank Name 1
    {64969},             // Bank Branch Name 1
    {64954},             // Address 1
    {64913},             // Bank Cust Id
    {64914},             // Account Type
    {64835},             // Statement Communication Mode
    {64834},             // Op Mode
    {49051},             // Dp Maker
    {49023},             // Pin Code
    {MNM_PAYMENT_MODE},  // Payment Mode
    {64916},             // Pan No
};

// Behind the payment code: accounts 2 to 6.
constexpr FieldRow kOtherBanks[] = {
    {64956},              // Bank Name 2
    {64959},              // Bank Address 2
    {MNM_BRANCH_NAME_2},  // Bank Branch Name 2
    // Acct NO2: the second branch name makes this row too, and the number alone counts for nothing.
    {.mnemonic = MNM_ACCOUNT_NUMBER_2, .gate = MNM_BRANCH_NAME_2, .counts = false},
    {64961},  // Bank Name 3
    {64964},  // Bank Address 3
    {64962},  // Bank Branch Name 3
    {64963},  // Acct NO3
    {64979},  // Bank Name 4
    {64982},  // Bank Address 4
    {64980},  // Bank Branch Name 4
    {64981},  // Acct NO4
    {64990},  // Bank Name 5
    {64993},  // Bank Address 5
    {64991},  // Bank Branch Name 5
    {64992},  // Acct NO5
    {64995},  // Bank Name 6
    {64998},  // Bank Address 6
    {64996},  // Bank Branch Name 6
    {64997},  // Acct NO6
};

constexpr FieldRow kDepository[] = {
    {64966},  // DP Account No 1
    {64973},  // DP Account No 2
    {64974},  // DP Account No 3
    {64976},  // DP Account No 4
    {64977},  // DP Account No 5
    {64978},  // DP Account No 6
    {64902},  // Gender
    {64919},  // Occupation
    {44513},  // City
    {44514},  // State
    {64826},  // Folio NO
    {64827},  // KYC Compliant
    {64923},  // Guardian Name
    {64949},  // Guardian Pan NO
    {64903},  // DOB
    {64833},  // Tax Status
};

// How a client trades, as one text; any other text says nothing of either.
struct ClientContext {
    std::string_view sent, context, squareOff;
};
constexpr ClientContext kContexts[] = {
    {"Online-Sqroff", "Internet", "Included"},
    {"Offline-Sqroff", "Offline", "Included"},
    {"Online-NonSqroff", "Internet", "Excluded"},
    {"Offline-NonSqroff", "Offline", "Excluded"},
};
constexpr std::string_view kContextCaption = "Client Context";
constexpr std::string_view kSquareOffCaption = "Square Off";

// Which field holds the payment code; other modes have none.
constexpr struct {
    std::string_view mode;
    int codeField;
} kPaymentModes[] = {{"ECS", 64955}, {"RTGS", 64839}, {"NEFT", 64832}};

// What counts as a modification besides the fields of the tables of rows. The product codes of the
// exchanges do not.
constexpr int kOtherClientFields[] = {MNM_CLIENT_CONTEXT, 64955,       64839, 64832,
                                      MNM_SEGMENTS,       MNM_PRODUCTS};

bool clientTellsNothing(const FieldReader& answer) {
    if (!answer.count(MNM_ACCOUNT_ID)) return true;
    if (carriesAny(answer, kOtherClientFields)) return false;
    const std::span<const FieldRow> tables[] = {kClientGeneral, kClientGeneralEnd, kBank,
                                                kOtherBanks, kDepository};
    return std::none_of(std::begin(tables), std::end(tables),
                        [&](const auto& table) { return carriesAny(answer, table); });
}

ClientContext decodeContext(std::string_view sent) {
    const auto* found = std::find_if(std::begin(kContexts), std::end(kContexts),
                                     [&](const auto& each) { return each.sent == sent; });
    return found != std::end(kContexts) ? *found : ClientContext{};
}

void appendContext(DetailGroup& group, const FieldReader& answer) {
    if (!answer.count(MNM_CLIENT_CONTEXT)) return;
    if (const auto sent = answer.text(MNM_CLIENT_CONTEXT)) {
        const ClientContext now = decodeContext(*sent);
        group.rows.push_back(newValueRow(kContextCaption, now.context));
        group.rows.push_back(newValueRow(kSquareOffCaption, now.squareOff));
    } else {
        group.rows.push_back(makeRow(kSquareOffCaption, kNotAvailable));
    }
    // The old context comes in the field of the client status, as that one's old value.
    if (const auto sent = answer.text(MNM_CLIENT_STATUS, 1)) {
        const ClientContext before = decodeContext(*sent);
        group.rows.push_back(oldValueRow(kContextCaption, before.context));
        group.rows.push_back(oldValueRow(kSquareOffCaption, before.squareOff));
    }
}

DetailGroup generalGroup(const FieldReader& answer) {
    DetailGroup group = makeGroup("General", answer, kClientGeneral);
    appendContext(group, answer);
    appendRows(group, answer, kClientGeneralEnd);
    return group;
}

void appendPaymentCode(DetailGroup& group, const FieldReader& answer) {
    const auto sent = answer.text(MNM_PAYMENT_MODE);
    for (const auto& [mode, codeField] : kPaymentModes) {
        if (sent != mode) continue;
        const FieldRow row{.mnemonic = codeField, .caption = "Payment Code"};
        appendRows(group, answer, {&row, 1});
    }
}

DetailGroup bankGroup(const FieldReader& answer) {
    DetailGroup group = makeGroup("Bank Details", answer, kBank);
    appendPaymentCode(group, answer);
    appendRows(group, answer, kOtherBanks);
    return group;
}

// One segment's heading and product code, both in the column of the new or of the old values.
DetailGroup segmentGroup(const FieldReader& answer, std::string_view code,
                         std::string sMCListStruct::*column) {
    DetailGroup group = makeGroup(kExchangeHeading);
    group.header.*column = SegmentDisplayName(code);
    const int id = ExchangeIdFromName(code);
    if (id == kNoExchange) return group;
    if (const auto productCode = answer.text(id))
        group.rows.emplace_back(makeRow("PCode", {})).*column = *productCode;
    return group;
}

// The new segments or, when these cannot be read, the old ones.
void buildSegments(DetailGroups& groups, const FieldReader& answer) {
    const auto now = answer.text(MNM_SEGMENTS);
    const auto codes = now ? now : answer.text(MNM_SEGMENTS, 1);
    const auto column = now ? &sMCListStruct::value : &sMCListStruct::oldValue;
    std::string_view left = codes.value_or("");
    while (!left.empty()) {
        const auto end = std::min(left.find('|'), left.size());
        if (end > 0) handOver(groups, segmentGroup(answer, left.substr(0, end), column));
        left.remove_prefix(std::min(end + 1, left.size()));
    }
}

DetailGroup productCodesGroup(const FieldReader& answer) {
    DetailGroup group = makeGroup("");
    for (const int id : kExchangeIds) {
        const auto code = answer.text(id);
        if (!code) continue;
        const auto old = answer.text(id, 1);
        group.rows.push_back(
            makeRow(std::string(ExchangeNameFromId(id)).append(" PCode"), *code, old.value_or("")));
        group.rows.back().change = fieldChange(code, old);
    }
    return group;
}

// A changed list shows its old value only: that row replaces the new value's.
DetailGroup clientProducts(const FieldReader& answer) {
    DetailGroup group = makeGroup("Products Enabled");
    if (!answer.count(MNM_PRODUCTS)) return group;
    const auto old = answer.text(MNM_PRODUCTS, 1);
    group.rows.push_back(old ? oldValueRow({}, shownProducts(old))
                             : newValueRow({}, shownProducts(answer.text(MNM_PRODUCTS))));
    return group;
}

}  // namespace

DetailGroups BuildClientDetails(const FieldReader& answer) {
    if (clientTellsNothing(answer)) return nothingModified();
    DetailGroups groups;
    handOver(groups, generalGroup(answer));
    handOver(groups, bankGroup(answer));
    handOver(groups, makeGroup("DP Details", answer, kDepository));
    buildSegments(groups, answer);
    handOver(groups, productCodesGroup(answer));
    handOver(groups, clientProducts(answer));
    return groups;
}

}  // namespace mc
