// All keys of the workbench as one text to read and to copy, made of the tables that the keys run
// by.
#pragma once

#include <span>
#include <string>

#include "framework/model/key_name.h"
#include "listctrl/model/list_commands.h"

namespace mc {

// `buttons` are the keys that press a button, with what each does. `offers` is what the main list
// offers, `edits` whether values can be edited.
std::string keyList(std::span<const fw::KeyWords> buttons, const ListOffers& offers, bool edits);

}  // namespace mc
