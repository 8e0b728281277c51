// Play scripts: a script is its lines, each of which reads alone as it does among the others, and
// the first that cannot be read is the one that the error names.
#include "console/model/play_script.h"
#include "tests/fuzz/input.h"

namespace {

// An argument that counts from 1 or names what is there.
void checkRow(const std::string& argument) {
    const zek::PlayRow row = zek::rowOf(argument);
    require(row.by != zek::PlayRow::By::position || row.position > 0, "a position", argument);
    require(row.by != zek::PlayRow::By::key || !row.text.empty(), "a key", argument);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::vector<zek::PlayStep> expected;
    std::string error;
    Input input(data, size);
    for (std::size_t above = 0; !input.empty() && error.empty(); ++above) {
        auto alone = zek::parsePlayScript(std::string(above, '\n') + input.until('\n'), "script");
        require(alone.value.size() <= 1, "a line is one step at most");
        error = alone.error;
        for (zek::PlayStep& step : alone.value) {
            require(step.line == static_cast<int>(above + 1), "a step knows its line");
            require(!zek::wordsOf(step.verb).empty(), "a verb has words");
            if (step.verb == zek::PlayVerb::select)
                for (const std::string& argument : step.arguments) checkRow(argument);
            expected.push_back(std::move(step));
        }
    }
    const auto script = zek::parsePlayScript(text, "script");
    require(script.error == error, "the first error", script.error + "> not <" + error);
    require(!error.empty() || script.value == expected, "the steps of the lines", text);
    return 0;
}
