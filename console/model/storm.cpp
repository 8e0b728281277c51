#include "console/model/storm.h"

#include <random>
#include <span>
#include <string>
#include <utility>

namespace zek {
namespace {

// --- Believable texts ----------------------------------------------------------------------------

// The standard library's distributions differ between platforms; a remainder does not. Nor may two
// draws are in one expression: which comes first is the compiler's choice.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    int below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }

    template <class Item, std::size_t count>
    const Item& oneOf(const Item (&items)[count]) {
        return items[static_cast<std::size_t>(below(static_cast<int>(count)))];
    }

private:
    std::mt19937 m_engine;
};

constexpr const char* kFirstNames[] = {"Aarav",  "Aditi",  "Ananya",  "Arjun",  "Bhavna", "Chirag",
                                       "Deepa",  "Farhan", "Gauri",   "Harish", "Ishaan", "Jyoti",
                                       "Kavita", "Imran",  "Manish",  "Meera",  "Nikhil", "Pooja",
                                       "Rahul",  "Rekha",  "Lakshmi", "Sanjay", "Shreya", "Suresh",
                                       "Tanvi",  "Usha",   "Varun",   "Vidya",  "Yash",   "Zoya"};
constexpr const char* kSurnames[] = {
    "Agarwal", "Bansal", "Chatterjee", "Desai", "D'Souza",  "Fernandes", "Ghosh", "Gupta", "Iyer",
    "Jain",    "Joshi",  "Kapoor",     "Khan",  "Kulkarni", "Menon",     "Mehta", "Nair",  "Patel",
    "Pillai",  "Rao",    "Reddy",      "Shah",  "Sharma",   "Singh",     "Varma"};
constexpr const char* kStreets[] = {"MG Road", "Linking Road", "Park Street",  "Anna Salai",
                                    "FC Road", "Ring Road",    "Station Road", "Mount Road"};
constexpr const char* kCities[] = {"Mumbai", "Delhi", "Bengaluru", "Chennai", "Kolkata", "Pune"};
constexpr const char* kBanks[] = {"Sahyadri Bank", "Konkan Cooperative Bank", "Deccan Union Bank"};
constexpr const char* kSegments[] = {"nse_cm", "nse_cm|bse_cm",        "nse_cm|nse_fo",
                                     "cde_fo", "nse_cm|nse_fo|mcx_fo", "bse_cm|bse_fo"};
constexpr const char* kProducts[] = {"CNC", "CNC|NRML", "NRML|MIS", "NRML|ML", "CNC|MIS|NRML"};
constexpr const char* kBranches[] = {"MUM01", "MUM02", "DEL01", "BLR01", "CHE01", "KOL01"};
constexpr const char* kGroups[] = {"RETAIL", "HNI", "PRO", "NRI", "INST"};
constexpr const char* kMakers[] = {"MAKER01", "MAKER02", "MAKER03", "MAKER04", "MAKER05"};
constexpr const char* kTypes[] = {"DEALER", "BRANCH_ADMIN", "DEALER"};
constexpr const char* kBroker = "ZEKB";

std::string digits(Random& random, int count) {
    std::string text;
    while (count-- > 0) text += static_cast<char>('0' + random.below(10));
    return text;
}

std::string letters(Random& random, int count) {
    std::string text;
    while (count-- > 0) text += static_cast<char>('A' + random.below(26));
    return text;
}

std::string name(Random& random) {
    const std::string first = random.oneOf(kFirstNames);
    return first + " " + random.oneOf(kSurnames);
}

std::string email(Random& random) {
    const std::string user = random.oneOf(kFirstNames);
    return user + digits(random, 3) + "@example.in";
}

std::string address(Random& random) {
    const std::string house = digits(random, 2) + ", ";
    const std::string street = random.oneOf(kStreets);
    return house + street + ", " + random.oneOf(kCities);
}

std::string mobile(Random& random) {
    return "9" + digits(random, 9);
}

std::string pan(Random& random) {
    std::string text = letters(random, 3) + "P";
    text += letters(random, 1);
    text += digits(random, 4);
    return text + letters(random, 1);
}

std::string uccCode(Random& random) {
    return "U" + digits(random, 6);
}

std::string account(Random& random) {
    return "50" + digits(random, 10);
}

std::string yesNo(Random& random) {
    return random.below(2) == 0 ? "Y" : "N";
}

std::string amount(Random& random) {
    return std::to_string(25000 * (1 + random.below(400))) + ".00";
}

std::string quantity(Random& random) {
    return std::to_string(50 * (1 + random.below(200)));
}

std::string bank(Random& random) {
    return random.oneOf(kBanks);
}
std::string segments(Random& random) {
    return random.oneOf(kSegments);
}
std::string products(Random& random) {
    return random.oneOf(kProducts);
}

// --- Changes -------------------------------------------------------------------------------------

struct FieldRecipe {
    int field;
    std::string (*text)(Random& random);
};

// The first field of an addition is always sent.
constexpr FieldRecipe kUserFields[] = {
    {30001, name},     {50110, email}, {10046, address},
    {63227, quantity}, {64916, pan},   {43438, yesNo},
};
constexpr FieldRecipe kClientFields[] = {
    {54002, name}, {50110, email},   {50111, mobile},   {64916, pan},      {64840, uccCode},
    {64911, bank}, {64953, account}, {64021, segments}, {64020, products}, {10046, address},
};
constexpr FieldRecipe kLimitFields[] = {
    {64031, amount}, {64164, amount}, {64033, amount},   {64035, amount},   {64177, amount},
    {64178, amount}, {54019, amount}, {64211, quantity}, {64210, quantity}, {41236, quantity},
};
// The limits that tell of a change of a broker or a branch.
constexpr FieldRecipe kWideLimitFields[] = {
    {41336, amount},
    {64420, amount},
    {64421, amount},
    {41282, amount},
};

class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    // Appends one change, or the two of an investor pair.
    void appendTo(std::vector<Change>& changes);

private:
    using Recipe = std::vector<Change> (Generator::*)();

    std::string newId(const char* prefix) { return prefix + std::to_string(++m_lastId); }
    std::string knownId(const char* prefix) {
        return prefix + std::to_string(1000 + m_random.below(4000));
    }

    Change start(ChangeKind kind, ChangeAction action);
    Change userChange(ChangeAction action, std::string id);
    Change clientChange(ChangeAction action, std::string id);
    Change& with(Change& change, std::span<const FieldRecipe> recipes);

    std::vector<Change> addUser();
    std::vector<Change> modifyUser();
    std::vector<Change> deleteUser() { return {userChange(ChangeAction::remove, knownId("DLR"))}; }
    std::vector<Change> addClient();
    std::vector<Change> modifyClient();
    std::vector<Change> deleteClient() {
        return {clientChange(ChangeAction::remove, knownId("C"))};
    }
    std::vector<Change> investorPair();
    std::vector<Change> limits();

    Random m_random;
    int m_lastId = 5000;  // beyond the known ones
};

void Generator::appendTo(std::vector<Change>& changes) {
    // A kind is there as often as it is likely.
    static constexpr Recipe kRecipes[] = {
        &Generator::limits,       &Generator::limits,       &Generator::limits,
        &Generator::limits,       &Generator::modifyClient, &Generator::modifyClient,
        &Generator::modifyClient, &Generator::addClient,    &Generator::modifyUser,
        &Generator::modifyUser,   &Generator::addUser,      &Generator::investorPair,
        &Generator::deleteUser,   &Generator::deleteClient,
    };
    for (Change& change : (this->*m_random.oneOf(kRecipes))()) changes.push_back(std::move(change));
}

Change Generator::start(ChangeKind kind, ChangeAction action) {
    Change change;
    change.code = codeOf(kind, action);
    change.maker = m_random.oneOf(kMakers);
    return change;
}

Change Generator::userChange(ChangeAction action, std::string id) {
    Change change = start(ChangeKind::user, action);
    change.type = m_random.oneOf(kTypes);
    change.broker = kBroker;
    change.branch = m_random.oneOf(kBranches);
    change.user = std::move(id);
    return change;
}

Change Generator::clientChange(ChangeAction action, std::string id) {
    Change change = start(ChangeKind::client, action);
    change.broker = kBroker;
    change.branch = m_random.oneOf(kBranches);
    change.group = m_random.oneOf(kGroups);
    change.client = std::move(id);
    return change;
}

// One to three neighbouring fields; a modification or a limit has an old value too.
Change& Generator::with(Change& change, std::span<const FieldRecipe> recipes) {
    const bool isAddition = changeCode(change.code).action == ChangeAction::add;
    const auto count = static_cast<std::size_t>(1 + m_random.below(3));
    const auto room = static_cast<int>(recipes.size() - count + 1);
    const auto first = isAddition ? 0 : static_cast<std::size_t>(m_random.below(room));
    for (const FieldRecipe& recipe : recipes.subspan(first, count)) {
        Field field = makeField(recipe.field, recipe.text(m_random));
        if (!isAddition) field.occurrences.emplace_back(recipe.text(m_random));
        change.fields.push_back(std::move(field));
    }
    return change;
}

std::vector<Change> Generator::addUser() {
    Change change = userChange(ChangeAction::add, newId("DLR"));
    return {with(change, kUserFields)};
}

std::vector<Change> Generator::modifyUser() {
    Change change = userChange(ChangeAction::modify, knownId("DLR"));
    return {with(change, kUserFields)};
}

std::vector<Change> Generator::addClient() {
    Change change = clientChange(ChangeAction::add, newId("C"));
    return {with(change, kClientFields)};
}

std::vector<Change> Generator::modifyClient() {
    Change change = clientChange(ChangeAction::modify, knownId("C"));
    return {with(change, kClientFields)};
}

std::vector<Change> Generator::investorPair() {
    const std::string id = newId("INV");
    Change user = userChange(ChangeAction::add, id);
    Change client = clientChange(ChangeAction::add, "C" + id);
    user.type = client.type = kInvestorClient;
    client.user = id;
    client.maker = user.maker;
    return {with(user, kUserFields), with(client, kClientFields)};
}

std::vector<Change> Generator::limits() {
    Change change = start(ChangeKind::limits, ChangeAction::set);
    switch (m_random.below(8)) {
        case 0:
            change.broker = kBroker;
            return {with(change, kWideLimitFields)};
        case 1:
            change.branch = m_random.oneOf(kBranches);
            return {with(change, kWideLimitFields)};
        case 2:
            change.group = m_random.oneOf(kGroups);
            return {with(change, kLimitFields)};
        case 3:
            change.user = knownId("DLR");
            return {with(change, kLimitFields)};
        default:
            change.client = knownId("C");
            return {with(change, kLimitFields)};
    }
}

}  // namespace

Scenario makeStorm(int count, unsigned seed) {
    const auto size = static_cast<std::size_t>(count > 0 ? count : 0);
    Scenario storm;
    for (const char* maker : kMakers) storm.users.push_back({maker, kBroker, "MUM01", "MAKER", {}});
    Generator generator(seed);
    storm.changes.reserve(size + 1);
    while (storm.changes.size() < size) generator.appendTo(storm.changes);
    storm.changes.resize(size);
    return storm;
}

}  // namespace zek
