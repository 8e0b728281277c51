// The details of a user's record.
#include "details/model/captions.h"
#include "details/model/details_builders.h"
#include "details/model/exchanges.h"
#include "details/model/field_change.h"
#include "link/model/mnemonics.h"

namespace mc {
namespace {

constexpr Decoding kReset{{}, "Reset"};  // the password itself is never shown
constexpr Decoding kEnabled{{{"Y", "Enabled"}}, "Disabled"};
constexpr Decoding kExpiry{{{"0", "NA"}}, {}};
constexpr Decoding kOrDefault{{{"-1", "Default"}}, {}};
constexpr Decoding kRouted{{{"OK", "Yes"}}, "NO"};

constexpr FieldRow kUserGeneral[] = {
    {.mnemonic = MNM_USER, .unless = MNM_EXCHANGE, .counts = false},  // Dealer ID
    {64017},                                                          // Target UserID
    {63248},                                                          // Max Portfolio Cnt
    {54220},                                                          // Peer Admin
    {64916},                                                          // Pan No
    {64903},                                                          // DOB
    {63235},                                                          // AutoSroff user
    {30001},                                                          // DealerName
    {.mnemonic = MNM_PASSWORD, .value = kReset, .oldValue = kReset, .secret = true},  // Password
    {50110},                                                                          // Email Add
    // A change that carries the old setting is not listed, and the old setting is never decoded.
    {.mnemonic = MNM_CLIENT_OVERVIEW, .value = kEnabled, .onlyWithoutOldValue = true},
    {10046},       // Address
    {MNM_TYPE},    // User Type
    {MNM_BROKER},  // Broker
    {MNM_BRANCH},  // Branch ID
    {43438},       // 2FA Enable
};

constexpr FieldRow kDetails[] = {
    {63227},        // Max Scrip Count
    {MNM_ARN},      // ARN NO
    {63216},        // Mac Address
    {64019},        // Days for Warning
    {MNM_USER_IP},  // User IP
    // Trans Password; its old text is shown as sent.
    {.mnemonic = MNM_TRANSACTION_PASSWORD, .value = kReset, .secret = true},
    {63213},  // User Status
    {64060},  // Role
    {63217},  // User Tag
    {31803},  // has no caption
    {64710},  // Pro Orders
    {54376},  // Round off Pref
};

struct ExchangeField {
    int mnemonic;
    const Decoding& decoding;
    bool ofFirst = false;  // every exchange shows occurrence 0, the first one's
};

// When every exchange has its expiry date: a group for each exchange.
constexpr ExchangeField kEachExchange[] = {
    {MNM_EXCHANGE_EXPIRY, kExpiry},         // Expiry Date
    {MNM_EXCHANGE_STATUS, kEnabled, true},  // Status
    {MNM_EXCHANGE_USER_ID, kOrDefault},     // Exch User ID
    {MNM_EXCHANGE_USER_INFO, kOrDefault},   // Exch User Info
    {MNM_ROUTE_TO_RMS, kRouted},            // Route to RMS
};

// Without an expiry date: one exchange was modified.
constexpr ExchangeField kOneExchange[] = {
    {MNM_EXCHANGE_STATUS, kEnabled},    {MNM_EXCHANGE_EXPIRY, kExpiry},
    {MNM_EXCHANGE_USER_ID, kOrDefault}, {MNM_EXCHANGE_USER_INFO, kOrDefault},
    {MNM_ROUTE_TO_RMS, kRouted},
};

constexpr int kLists[] = {MNM_ATTRIBUTES, MNM_ACTIONS, MNM_ORDER_TYPES};

// What counts as a modification besides the fields of the tables of rows.
constexpr int kOtherUserFields[] = {
    MNM_ACCESS_TYPE,        MNM_ACCESS_TYPE_OTHER, MNM_EXCHANGE,
    MNM_EXCHANGE_EXPIRY,    MNM_EXCHANGE_STATUS,   MNM_EXCHANGE_USER_ID,
    MNM_EXCHANGE_USER_INFO, MNM_ROUTE_TO_RMS,      MNM_PRODUCTS,
    MNM_ATTRIBUTES,         MNM_ACTIONS,           MNM_ORDER_TYPES};

bool userTellsNothing(const FieldReader& answer) {
    return !answer.text(MNM_USER) ||
           !(carriesAny(answer, kUserGeneral) || carriesAny(answer, kDetails) ||
             carriesAny(answer, kOtherUserFields));
}

// As many rows as the field has values, and all alike: each shows occurrences 0 and 1.
DetailGroup accessGroup(const FieldReader& answer) {
    DetailGroup group = makeGroup(captionOf(MNM_ACCESS_TYPE));
    const int field = answer.count(MNM_ACCESS_TYPE) ? MNM_ACCESS_TYPE : MNM_ACCESS_TYPE_OTHER;
    if (!answer.count(field)) return group;
    const int count = occurrencesOf(answer, field);
    const auto value = count > 0 ? answer.text(field) : std::nullopt;
    const auto old = count > 0 ? answer.text(field, 1) : std::nullopt;
    sMCListStruct row = makeRow({}, value.value_or(kNotAvailable), old.value_or(""));
    if (old) row.change = fieldChange(value, old);
    group.rows = repeatedRows(count, row);
    return group;
}

DetailGroup exchangeGroup(const FieldReader& answer, int occurrence) {
    const auto code = answer.text(MNM_EXCHANGE, occurrence);
    if (!code) return makeGroup({});
    return makeGroup(std::string(kExchangeHeading).append(SegmentDisplayName(*code)));
}

void buildEachExchange(DetailGroups& groups, const FieldReader& answer) {
    const int count = occurrencesOf(answer, MNM_EXCHANGE_EXPIRY);
    for (int i = 0; i < count; ++i) {
        DetailGroup group = exchangeGroup(answer, i);
        for (const ExchangeField& field : kEachExchange)
            if (const auto text = answer.text(field.mnemonic, field.ofFirst ? 0 : i))
                group.rows.push_back(makeRow(captionOf(field.mnemonic), field.decoding(*text)));
        handOver(groups, std::move(group));
    }
}

// The old value has a row of its own below that of the new one.
DetailGroup oneExchangeGroup(const FieldReader& answer) {
    DetailGroup group = exchangeGroup(answer, 0);
    for (const ExchangeField& field : kOneExchange) {
        const std::string_view caption = captionOf(field.mnemonic);
        if (const auto text = answer.text(field.mnemonic))
            group.rows.push_back(newValueRow(caption, field.decoding(*text)));
        if (const auto old = answer.text(field.mnemonic, 1))
            group.rows.push_back(oldValueRow(caption, field.decoding(*old)));
    }
    return group;
}

void buildExchanges(DetailGroups& groups, const FieldReader& answer) {
    if (!answer.count(MNM_EXCHANGE)) return;
    if (answer.count(MNM_EXCHANGE_EXPIRY))
        buildEachExchange(groups, answer);
    else
        handOver(groups, oneExchangeGroup(answer));
}

DetailGroup userProducts(const FieldReader& answer) {
    DetailGroup group = makeGroup(captionOf(MNM_PRODUCT_TYPES));
    if (!answer.count(MNM_PRODUCTS)) return group;
    group.rows.push_back(newValueRow({}, shownProducts(answer.text(MNM_PRODUCTS))));
    if (const auto old = answer.text(MNM_PRODUCTS, 1))
        group.rows.push_back(oldValueRow({}, shownProducts(old)));
    return group;
}

}  // namespace

DetailGroups BuildUserDetails(const FieldReader& answer) {
    if (userTellsNothing(answer)) return nothingModified();
    DetailGroups groups;
    handOver(groups, makeGroup("General", answer, kUserGeneral));
    handOver(groups, accessGroup(answer));
    handOver(groups, makeGroup("Details", answer, kDetails));
    buildExchanges(groups, answer);
    handOver(groups, userProducts(answer));
    for (const int list : kLists) handOver(groups, listGroup(answer, list));
    return groups;
}

}  // namespace mc
