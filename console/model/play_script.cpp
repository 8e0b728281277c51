#include "console/model/play_script.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace zek {
namespace {

struct SyntaxError {
    std::string what;
};

struct Token {
    std::string text;
    bool inQuotes;
};

// --- The language --------------------------------------------------------------------------------

// A verb's words, and the kinds of its arguments (kKinds, or the words it may be with bars
// between).
struct Verb {
    std::string_view words;
    std::string_view arguments;
    PlayVerb verb;
};

constexpr Verb kVerbs[] = {
    {"hotkey", "", PlayVerb::hotkey},
    {"wait rows", "number", PlayVerb::waitRows},
    {"wait log", "text", PlayVerb::waitLog},
    {"wait message", "text", PlayVerb::waitMessage},
    {"wait details", "number", PlayVerb::waitDetails},
    {"select", "rows", PlayVerb::select},
    {"double-click", "row", PlayVerb::doubleClick},
    {"sort", "text", PlayVerb::sort},
    {"filter", "text text", PlayVerb::filter},
    {"list menu", "text", PlayVerb::listMenu},
    {"header menu", "text text", PlayVerb::headerMenu},
    {"press", "text", PlayVerb::press},
    {"focus", "number", PlayVerb::focus},
    {"choose", "number text", PlayVerb::choose},
    {"type", "text", PlayVerb::type},
    {"key", "key", PlayVerb::key},
    {"close message", "", PlayVerb::closeMessage},
    {"screenshot", "name", PlayVerb::screenshot},
    {"expect rows", "number", PlayVerb::expectRows},
    {"expect row", "row text text", PlayVerb::expectRow},
    {"expect log", "text", PlayVerb::expectLog},
    {"expect no log", "text", PlayVerb::expectNoLog},
    {"expect message", "text", PlayVerb::expectMessage},
    {"expect text", "number text", PlayVerb::expectText},
    {"submit next", "", PlayVerb::submitNext},
    {"submit all", "", PlayVerb::submitAll},
    {"submit storm", "number", PlayVerb::submitStorm},
    {"decide", "row accepted|rejected", PlayVerb::decide},
    {"user", "name", PlayVerb::user},
    {"menu", "text", PlayVerb::menu},
    {"dock", "left|top|right|bottom|float", PlayVerb::dock},
    {"close pane", "", PlayVerb::closePane},
    {"edit", "text text", PlayVerb::edit},
    {"expect detail", "text text text", PlayVerb::expectDetail},
    {"expect clean", "", PlayVerb::expectClean},
    {"quit", "", PlayVerb::quit},
};

constexpr std::string_view kModifiers[] = {"Ctrl+", "Shift+", "Alt+"};
constexpr std::string_view kKeys[] = {
    "Enter", "Esc",   "Tab",  "Space", "Backspace", "Delete",   "Insert", "Up",  "Down",
    "Left",  "Right", "Home", "End",   "PageUp",    "PageDown", "F1",     "F2",  "F3",
    "F4",    "F5",    "F6",   "F7",    "F8",        "F9",       "F10",    "F11", "F12",
};

bool isNumber(const Token& token) {
    return !token.inQuotes && toNumber(token.text).value_or(-1) >= 0;
}

bool isText(const Token& token) {
    return token.inQuotes;
}

bool isName(const Token& token) {
    return !token.text.empty();
}

bool isRow(const Token& token) {
    if (token.text.empty()) return false;
    if (token.inQuotes || token.text.front() != '#') return true;
    return toNumber(std::string_view(token.text).substr(1)).value_or(0) > 0;
}

bool isKey(const Token& token) {
    std::string_view key = token.text;
    for (const std::string_view modifier : kModifiers)
        if (key.starts_with(modifier)) key.remove_prefix(modifier.size());
    if (key.size() == 1) return std::isalnum(static_cast<unsigned char>(key.front())) != 0;
    return std::ranges::find(kKeys, key) != std::end(kKeys);
}

constexpr struct Kind {
    std::string_view name;
    bool (*fits)(const Token& token);
    std::string_view wanted;
} kKinds[] = {
    {"number", isNumber, "a number"},
    {"text", isText, "a text in quotes"},
    {"name", isName, "a name"},
    {"row", isRow, "a row (1001, #2 or \"name\")"},
    {"rows", isRow, "a row (1001, #2 or \"name\")"},
    {"key", isKey, "a key (Enter, F2, Ctrl+C; Ctrl+, Shift+, Alt+ in this order)"},
};

// --- Tokens --------------------------------------------------------------------------------------

// Takes a text in quotes off the front of `rest`, which begins with a quote.
std::string takeQuoted(std::string_view& rest) {
    std::string text;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return text;
        }
        if (rest[i] == '\\') {
            const std::string_view next = rest.substr(++i, 1);
            if (next != "\"" && next != "\\") throw SyntaxError{R"(only \" and \\ are escapes)"};
        }
        text += rest[i];
    }
    throw SyntaxError{"a quote is not closed"};
}

std::string takeWord(std::string_view& rest) {
    const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
    std::string word(rest.substr(0, end));
    rest.remove_prefix(end);
    return word;
}

std::vector<Token> tokensOf(std::string_view rest) {
    if (rest.find('\0') != std::string_view::npos) throw SyntaxError{"a zero byte"};
    std::vector<Token> tokens;
    while (!rest.empty()) {
        const bool inQuotes = rest.front() == '"';
        tokens.push_back({inQuotes ? takeQuoted(rest) : takeWord(rest), inQuotes});
        if (inQuotes && !rest.empty() && trimmed(rest.substr(0, 1)).size() == 1)
            throw SyntaxError{"a blank must follow a closing quote"};
        rest = trimmed(rest);
    }
    return tokens;
}

// Takes the first word off a table's text; false at its end.
bool nextWord(std::string_view& text, std::string_view& word, char separator) {
    if (text.empty()) return false;
    const std::size_t end = std::min(text.find(separator), text.size());
    word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return true;
}

// --- Steps ---------------------------------------------------------------------------------------

bool isOneOf(std::string_view alternatives, const Token& token) {
    std::string_view word;
    while (nextWord(alternatives, word, '|'))
        if (!token.inQuotes && token.text == word) return true;
    return false;
}

void check(std::string_view kind, const Token& token) {
    const auto* entry = std::ranges::find(kKinds, kind, &Kind::name);
    const bool isKind = entry != std::end(kKinds);
    if (isKind ? entry->fits(token) : isOneOf(kind, token)) return;
    throw SyntaxError{quoted(token.text) + " is not " + std::string(isKind ? entry->wanted : kind)};
}

// Rows in quotes keep their opening quote, which tells them from keys.
std::string argumentOf(std::string_view kind, const Token& token) {
    check(kind, token);
    const bool isRowName = kind.starts_with("row") && token.inQuotes;
    return isRowName ? '"' + token.text : token.text;
}

// How many tokens the verb's words take; 0 when the line is not of this verb.
std::size_t wordsMatched(std::string_view words, const std::vector<Token>& tokens) {
    std::size_t count = 0;
    std::string_view word;
    for (; nextWord(words, word, ' '); ++count)
        if (count == tokens.size() || tokens[count].inQuotes || tokens[count].text != word)
            return 0;
    return count;
}

std::vector<std::string> argumentsOf(const Verb& verb, const std::vector<Token>& tokens,
                                     std::size_t index) {
    std::vector<std::string> arguments;
    std::string_view kinds = verb.arguments;
    std::string_view kind;
    while (nextWord(kinds, kind, ' ')) {
        const std::size_t last = kind == "rows" ? std::max(tokens.size(), index + 1) : index + 1;
        for (; index < last; ++index) {
            if (index >= tokens.size()) throw SyntaxError{"too few arguments"};
            arguments.push_back(argumentOf(kind, tokens[index]));
        }
    }
    if (index < tokens.size()) throw SyntaxError{"too many arguments"};
    return arguments;
}

PlayStep stepOf(int line, const std::vector<Token>& tokens) {
    for (const Verb& verb : kVerbs)
        if (const std::size_t words = wordsMatched(verb.words, tokens); words > 0)
            return {line, verb.verb, argumentsOf(verb, tokens, words)};
    throw SyntaxError{"unknown command " + quoted(tokens.front().text)};
}

}  // namespace

PlayRow rowOf(const std::string& argument) {
    if (argument.starts_with('"')) return {PlayRow::By::name, argument.substr(1), 0};
    if (argument.starts_with('#'))
        return {
            PlayRow::By::position, {}, toNumber(std::string_view(argument).substr(1)).value_or(0)};
    return {PlayRow::By::key, argument, 0};
}

Parsed<std::vector<PlayStep>> parsePlayScript(std::string_view text, std::string_view file) {
    LineReader lines(text, file);
    std::vector<PlayStep> steps;
    try {
        while (const auto line = lines.next())
            steps.push_back(stepOf(lines.line(), tokensOf(*line)));
    } catch (const SyntaxError& error) {
        return {{}, lines.error(error.what)};
    }
    return {std::move(steps), {}};
}

std::string_view wordsOf(PlayVerb verb) {
    const auto* found = std::ranges::find(kVerbs, verb, &Verb::verb);
    return found != std::end(kVerbs) ? found->words : std::string_view();
}

}  // namespace zek
