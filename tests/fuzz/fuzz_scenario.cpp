// Scenario files: what was read is written so that it reads the same, an error names its line, and
// every change that is read reaches the server and is decided there once, not by its maker.
#include <algorithm>

#include "console/model/authorization_server.h"
#include "console/model/scenario.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto read = zek::parseScenario(text, "fuzzed");
    if (!read.ok()) {
        const std::string_view where = std::string_view(read.error).substr(7);  // behind "fuzzed:"
        const int line = zek::toNumber(where.substr(0, where.find(':'))).value_or(0);
        require(line >= 1 && line <= std::ranges::count(text, '\n') + 1, "an error's line",
                read.error);
        return 0;
    }
    const std::string written = zek::writeScenario(read.value);
    const auto again = zek::parseScenario(written, "written");
    require(again.ok(), "what was written can be read", again.error + written);
    require(again.value == read.value, "what was written reads the same", written);

    zek::AuthorizationServer server;
    for (const zek::Change& change : read.value.changes) {
        const std::string key = server.submit(change), checker = change.maker + "2";
        require(server.decideAs(change.maker, key, true, "") != "", "not by its maker", key);
        require(server.decideAs(checker, key, true, "") == "", "a change is decided", key);
        require(server.decideAs(checker, key, true, "") != "", "and once only", key);
    }
    return 0;
}
