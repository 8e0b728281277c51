#include "details/model/amounts.h"

#include <algorithm>
#include <vector>

#include "text/characters.h"
#include "text/text_difference.h"
#include "text/unseen.h"

namespace mc {
namespace {

constexpr std::size_t kMaxNamedSlips = 3;

void append(std::string& line, std::string_view part, std::string_view between = ", ") {
    if (part.empty()) return;
    if (!line.empty()) line += between;
    line += part;
}

// ---- Slips ----

// What the power of ten between two amounts means, of the older of which `whose` is the name.
std::string scaleSlip(std::ptrdiff_t power, std::string_view whose) {
    constexpr struct {
        std::ptrdiff_t power;
        const char* text;
    } names[] = {{1, "ten times "},   {2, "a hundred times "}, {3, "a thousand times "},
                 {-1, "a tenth of "}, {-2, "a hundredth of "}, {-3, "a thousandth of "}};
    for (const auto& each : names)
        if (each.power == power) return std::string(each.text).append(whose);
    return std::string("the digits of ").append(whose) + " with the point elsewhere";
}

// Two digits of one number, and nothing else, changed their positions.
bool digitsSwapped(const Decimal& a, const Decimal& b) {
    if (a.whole.size() != b.whole.size()) return false;
    const std::size_t behind = std::max(a.fraction.size(), b.fraction.size());
    const auto digits = [behind](const Decimal& number) {
        return number.whole + number.fraction + std::string(behind - number.fraction.size(), '0');
    };
    const std::string left = digits(a), right = digits(b);
    std::vector<std::size_t> unequal;
    for (std::size_t i = 0; i < left.size() && unequal.size() < 3; ++i)
        if (left[i] != right[i]) unequal.push_back(i);
    return unequal.size() == 2 && left[unequal[0]] == right[unequal[1]] &&
           left[unequal[1]] == right[unequal[0]];
}

// ---- Words ----

std::string numberInWords(std::string_view digits) {
    constexpr struct {
        std::size_t zeros;
        const char* name;
    } units[] = {{7, " crore"}, {5, " lakh"}, {3, " thousand"}, {0, ""}};
    std::string words;
    for (const auto& unit : units) {
        if (digits.size() <= unit.zeros) continue;
        const std::size_t count = digits.size() - unit.zeros;
        std::string_view part = digits.substr(0, count);
        digits.remove_prefix(count);
        part.remove_prefix(std::min(part.find_first_not_of('0'), part.size()));
        if (part.empty()) continue;
        // Crores are counted in lakhs and crores themselves.
        append(words, unit.zeros == 7 ? numberInWords(part) : std::string(part), " ");
        words += unit.name;
    }
    return words;
}

std::string paise(std::string fraction) {
    if (fraction.empty()) return {};
    fraction.resize(std::max<std::size_t>(fraction.size(), 2), '0');
    const std::string whole = fraction[0] == '0' ? fraction.substr(1, 1) : fraction.substr(0, 2);
    const std::string rest = fraction.substr(2);
    return whole + (rest.empty() ? "" : "." + rest) + " paise";
}

std::string signedText(const Decimal& number) {
    return number.negative || number.isZero() ? grouped(number) : "+" + grouped(number);
}

std::string percent(const AmountChange& change, const Decimal& step) {
    const auto tenths = perMille(step, change.old);
    if (!tenths) return {};
    if (*tenths == 0) return "under 0.1 %";
    std::string text = (step.negative ? "-" : "+") + std::to_string(*tenths / 10);
    if (*tenths % 10 != 0) text += "." + std::to_string(*tenths % 10);
    return text + " %";
}

// ---- Lines ----

std::optional<Decimal> amountOf(std::string_view text) {
    return readDecimal(trimmed(text));
}

std::string stepText(const AmountChange& change) {
    const Decimal step = difference(change.now, change.old);
    if (step.isZero()) return "the same amount";
    const std::string share = percent(change, step);
    return signedText(step) + (share.empty() ? "" : " (" + share + ")");
}

// What the text shown does not say.
std::string behindTheText(const sMCListStruct& row) {
    if (row.edited) return "Update sends " + row.value + ", the maker asked for " + row.sent->value;
    const auto sent = amountOf(row.sent->value);
    return sent == amountOf(row.value) ? "" : "sent as " + row.sent->value + ", shown rounded";
}

AboutLine lineAboutAmount(const sMCListStruct& row, const Decimal& now) {
    const auto change = amountChange(row);
    std::string line = row.caption + ": ";
    const std::string exact = row.edited ? row.value : row.sent->value;
    line += change ? row.sent->old + " to " + exact : exact;
    if (change) append(line, stepText(*change));
    append(line, inLakhAndCrore(now));
    append(line, behindTheText(row), "; ");
    const std::string slip = slipOf(row);
    if (slip.empty()) return {line};
    std::string first = slip;
    first[0] = static_cast<char>(first[0] - 'a' + 'A');
    return {first + ". " + line, true};
}

std::string lineAboutText(const sMCListStruct& row) {
    std::string line;
    const auto unseen = [&](const char* which, const std::string& text) {
        const std::string words = unseenInWords(text);
        if (!words.empty()) append(line, which + words, "; ");
    };
    if (row.change == FieldChange::changed) {
        const auto kind = differenceOf(row.value, row.oldValue).kind;
        if (kind == DifferenceKind::alike) line = "the values differ in look-alikes only";
        if (kind == DifferenceKind::blanks) line = "the values differ in blanks only";
    }
    unseen("value: ", row.value);
    unseen("old value: ", row.oldValue);
    return line.empty() ? "" : row.caption.empty() ? line : row.caption + ": " + line;
}

}  // namespace

std::string slipBetween(const Decimal& old, const Decimal& now, std::string_view whose) {
    if (old == now) return {};
    if (old.isZero()) return "from nothing";
    if (now.isZero()) return "to zero";
    std::string slip = old.negative != now.negative ? "the sign changed" : "";
    if (const auto power = powerOfTenBetween(old, now); power && *power != 0)
        append(slip, scaleSlip(*power, whose));
    else if (digitsSwapped(old, now))
        append(slip, std::string("two digits of ").append(whose) + " swapped");
    return slip;
}

std::string inLakhAndCrore(const Decimal& amount) {
    if (amount.isZero()) return "zero";
    std::string words = numberInWords(amount.whole);
    append(words, paise(amount.fraction), " and ");
    return amount.negative ? "minus " + words : words;
}

std::string grouped(const Decimal& amount) {
    std::string text = amount.whole.empty() ? "0" : amount.whole;
    for (std::size_t at = text.size(), step = 3; at > step; step = 2) text.insert(at -= step, ",");
    if (amount.negative) text.insert(0, "-");
    return amount.fraction.empty() ? text : text + "." + amount.fraction;
}

std::optional<AmountChange> amountChange(const sMCListStruct& row) {
    if (!row.sent) return std::nullopt;
    const auto now = amountOf(row.edited ? row.value : row.sent->value);
    const auto old = amountOf(row.sent->old);
    return now && old ? std::optional(AmountChange{*now, *old}) : std::nullopt;
}

std::string slipOf(const sMCListStruct& row) {
    if (!row.sent) return {};
    const auto change = amountChange(row);
    std::string slip = change ? slipBetween(change->old, change->now) : "";
    if (!slip.empty() || !row.edited) return slip;
    const auto asked = amountOf(row.sent->value), typed = amountOf(row.value);
    return asked && typed ? slipBetween(*asked, *typed, "what the maker asked for") : "";
}

AboutLine lineAbout(const sMCListStruct& row) {
    if (!row.sent) return {lineAboutText(row)};
    const auto now = amountOf(row.edited ? row.value : row.sent->value);
    return now ? lineAboutAmount(row, *now) : AboutLine{lineAboutText(row)};
}

void SlipsOf::add(const sMCListStruct& row) {
    const std::string slip = slipOf(row);
    if (!slip.empty() && m_count++ < kMaxNamedSlips)
        append(m_named, row.caption + " (" + slip + ")");
}

AboutLine SlipsOf::line() const {
    if (m_count == 0) return {};
    const std::string begin = m_count == 1 ? "Perhaps a slip: " : "Perhaps slips: ";
    const std::size_t more = m_count - std::min(m_count, kMaxNamedSlips);
    return {begin + m_named + (more != 0 ? " and " + std::to_string(more) + " more" : ""), true};
}

}  // namespace mc
