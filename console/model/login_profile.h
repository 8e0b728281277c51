// Who is logged in to the console, and what it plays: from the command line and a profile file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/model/parsed.h"

namespace zek {

struct LoginProfile {
    std::string user = "RISKADM1";
    std::string broker = "ZEKB";
    std::string second = "MUM01";                    // the second text of the peer data
    std::string privilege = "CHECKER";               // the text of the privilege
    int level = 0;                                   // 0, 1, 2 or 4; others subscribe to nothing
    std::vector<int> roles = {60302, 60303, 60304};  // menu items held
    bool modifyRight = true;
    std::vector<int> restricted;  // functions that may not be used
    std::string scenario;         // file to load at start
    std::string play;             // script to play
    int storm = 0;                // changes to submit at start

    bool operator==(const LoginProfile&) const = default;
};

// `ini` holds one section per profile, with the options' names without their dashes:
//
//   [JUNIOR]              the user is JUNIOR unless `user` says otherwise
//   level = 2
//   roles = 60302,60303
//   modify = no
//
// Options: --profile NAME, then --user --broker --second --privilege --level --roles --modify
// --restrict --scenario --play --storm, each with a value, and --no-modify. Without --profile the
// first section counts, without any section the defaults; options win over the section. An empty
// list (--roles "") holds nothing. `arguments` come without the program's name.
Parsed<LoginProfile> parseLogin(std::string_view ini, std::string_view iniFile,
                                const std::vector<std::string>& arguments);

}  // namespace zek
