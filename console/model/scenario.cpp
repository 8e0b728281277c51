#include "console/model/scenario.h"

#include <algorithm>
#include <utility>

namespace zek {
namespace {

// --- Texts and their escapes ---------------------------------------------------------------------

constexpr std::pair<char, char> kEscapes[] = {
    {'\\', '\\'}, {'|', '|'}, {'=', '='}, {'s', ' '}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
};
constexpr std::string_view kUnreadable = "\\?";

bool isBlankAt(std::string_view text, std::size_t index) {
    return index >= text.size() || text[index] == ' ' || text[index] == '\t';
}

// A bar with blanks, or the text's end, on both sides. Before the first character is nothing:
// index - 1 is then beyond every text.
bool isLoneBar(std::string_view text, std::size_t index) {
    return text[index] == '|' && isBlankAt(text, index - 1) && isBlankAt(text, index + 1);
}

// nullopt for an escape that does not exist.
std::optional<std::string> unescape(std::string_view written) {
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] != '\\') {
            text += written[i];
            continue;
        }
        const char letter = ++i < written.size() ? written[i] : '\0';
        const auto* escape = std::ranges::find(kEscapes, letter, &std::pair<char, char>::first);
        if (escape == std::end(kEscapes)) return std::nullopt;
        text += escape->second;
    }
    return text;
}

bool needsEscape(std::string_view text, std::size_t index) {
    const bool atEnd = index == 0 || index + 1 == text.size();
    switch (text[index]) {
        case '|':
            return isLoneBar(text, index);
        case ' ':
        case '=':
            return atEnd;
        default:
            return std::string_view("\\\n\r\t").find(text[index]) != std::string_view::npos;
    }
}

std::string escape(std::string_view text) {
    std::string written;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!needsEscape(text, i)) {
            written += text[i];
            continue;
        }
        const auto* entry = std::ranges::find(kEscapes, text[i], &std::pair<char, char>::second);
        written += {'\\', entry->first};
    }
    return written;
}

std::vector<std::string_view> splitOccurrences(std::string_view value) {
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (!isLoneBar(value, i)) continue;
        pieces.push_back(trimmed(value.substr(begin, i - begin)));
        begin = i + 1;
    }
    pieces.push_back(trimmed(value.substr(begin)));
    return pieces;
}

// --- The texts of each kind of section, by name --------------------------------------------------

template <class Entry>
struct Word {
    const char* word;
    std::string Entry::*text;
};

constexpr Word<User> kUserWords[] = {
    {"broker", &User::broker},
    {"branch", &User::branch},
    {"type", &User::type},
};
constexpr Word<Client> kClientWords[] = {
    {"owner", &Client::owner}, {"broker", &Client::broker}, {"branch", &Client::branch},
    {"group", &Client::group}, {"type", &Client::type},
};

std::span<const Word<User>> wordsOf(const User&) {
    return kUserWords;
}
std::span<const Word<Client>> wordsOf(const Client&) {
    return kClientWords;
}
std::span<const Identification> wordsOf(const Change&) {
    return identifications();
}

// --- Reading -------------------------------------------------------------------------------------

struct ScenarioError {
    std::string what;
};

std::string unescapeOrFail(std::string_view written) {
    std::optional<std::string> text = unescape(written);
    if (!text) throw ScenarioError{"unknown escape in " + quoted(written)};
    return *std::move(text);
}

Occurrence readOccurrence(std::string_view piece) {
    if (piece == kUnreadable) return std::nullopt;
    return unescapeOrFail(piece);
}

std::string codeOf(std::string_view written) {
    for (const ChangeCode& code : changeCodes())
        if (written == code.word) return code.code;
    if (!toNumber(written)) throw ScenarioError{"unknown kind of change " + quoted(written)};
    return std::string(written);
}

class Reader {
public:
    void take(std::string_view line);
    Scenario scenario;

private:
    // What may still be filled in the open section; pointers into the entry made last.
    struct Slot {
        std::string_view word;
        std::string* text;
        bool filled;
    };

    void open(std::string_view kind, std::string_view id);
    template <class Entry>
    Entry& fill(Entry& entry);
    void assign(const Assignment& assignment);
    void addField(std::string_view id, std::string_view value);

    std::vector<Slot> m_slots;
    Fields* m_fields = nullptr;
};

void Reader::take(std::string_view line) {
    if (line.find('\0') != std::string_view::npos) throw ScenarioError{"a zero byte"};
    const std::size_t wordEnd = std::min(line.find_first_of(" \t="), line.size());
    const std::string_view word = line.substr(0, wordEnd);
    const std::string_view rest = trimmed(line.substr(wordEnd));
    const std::optional<Assignment> assignment = splitAssignment(rest);
    if (assignment && assignment->name.empty())
        assign({word, assignment->value});
    else if (word == "field" && assignment)
        addField(assignment->name, assignment->value);
    else
        open(word, rest);
}

void Reader::open(std::string_view kind, std::string_view id) {
    const std::string text = unescapeOrFail(id);
    if (kind == "user") {
        fill(scenario.users.emplace_back()).id = text;
    } else if (kind == "client") {
        fill(scenario.clients.emplace_back()).id = text;
    } else if (kind == "change") {
        fill(scenario.changes.emplace_back()).code = codeOf(id);
    } else {
        throw ScenarioError{"not a section and not an assignment: " + quoted(kind)};
    }
    if (id.empty()) throw ScenarioError{"what follows " + quoted(kind) + " is missing"};
}

template <class Entry>
Entry& Reader::fill(Entry& entry) {
    m_slots.clear();
    for (const auto& word : wordsOf(entry))
        m_slots.push_back({word.word, &(entry.*word.text), false});
    m_fields = &entry.fields;
    return entry;
}

void Reader::assign(const Assignment& assignment) {
    const auto slot = std::ranges::find(m_slots, assignment.name, &Slot::word);
    if (slot == m_slots.end()) throw ScenarioError{quoted(assignment.name) + " has no place here"};
    if (std::exchange(slot->filled, true))
        throw ScenarioError{quoted(assignment.name) + " is given twice"};
    *slot->text = unescapeOrFail(assignment.value);
}

void Reader::addField(std::string_view id, std::string_view value) {
    const std::optional<int> number = toNumber(id);
    if (m_fields == nullptr) throw ScenarioError{"a field outside of a section"};
    if (!number || *number < 0) throw ScenarioError{"not a field id: " + quoted(id)};
    if (findField(*m_fields, *number) != nullptr)
        throw ScenarioError{"field " + std::to_string(*number) + " is given twice"};
    Field field{*number, {}};
    for (const std::string_view piece : splitOccurrences(value))
        field.occurrences.push_back(readOccurrence(piece));
    m_fields->push_back(std::move(field));
}

// --- Writing -------------------------------------------------------------------------------------

std::string written(const Field& field) {
    std::string line = "field " + std::to_string(field.id) + " =";
    const char* separator = " ";
    for (const Occurrence& occurrence : field.occurrences) {
        line += separator + (occurrence ? escape(*occurrence) : std::string(kUnreadable));
        separator = " | ";
    }
    return line + "\n";
}

template <class Entry>
std::string written(const char* kind, const std::string& id, const Entry& entry) {
    std::string section = std::string("\n") + kind + " " + escape(id) + "\n";
    for (const auto& word : wordsOf(entry))
        if (!(entry.*word.text).empty())
            section += std::string(word.word) + " = " + escape(entry.*word.text) + "\n";
    for (const Field& field : entry.fields) section += written(field);
    return section;
}

std::string wordOf(const Change& change) {
    const ChangeCode& code = changeCode(change.code);
    return code.kind != ChangeKind::unknown ? code.word : change.code;
}

}  // namespace

Parsed<Scenario> parseScenario(std::string_view text, std::string_view file) {
    LineReader lines(text, file);
    Reader reader;
    try {
        while (const auto line = lines.next()) reader.take(*line);
    } catch (const ScenarioError& error) {
        return {{}, lines.error(error.what)};
    }
    return {std::move(reader.scenario), {}};
}

std::string writeScenario(const Scenario& scenario) {
    std::string text;
    for (const User& user : scenario.users) text += written("user", user.id, user);
    for (const Client& client : scenario.clients) text += written("client", client.id, client);
    for (const Change& change : scenario.changes) text += written("change", wordOf(change), change);
    return text;
}

}  // namespace zek
