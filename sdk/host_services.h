// The services that a host exports from its executable, by these names, for its plug-ins.
//
// The plug-in looks each service up among the exports of the process's main module at the moment
// it needs it, so a host may lack any of them; what then happens is said at each. All are called
// on the host's user-interface thread, with C linkage, as calling.h says. None
// may let an exception out.
#pragma once

#include "sdk/calling.h"
#include "sdk/host_string.h"
#include "sdk/receive_control.h"

// The menu items that the plug-in asks for with pu_get_find_menu_item_in_roles.
inline constexpr int kMenuItemSeeLimits = 60302;               // RMS limits changes
inline constexpr int kMenuItemSeeUsers = 60303;                // changes of users
inline constexpr int kMenuItemSeeClientsAndInvestors = 60304;  // clients, and investor users

// The function code that governs export and copying of lists (pu_is_function_restricted).
inline constexpr int kFunctionExportAndCopy = 64169;

extern "C" {

// Who is logged in: the broker id, a second text that the plug-in does not read, and the user id.
// The host replaces the three texts. Missing: "Exe is not compatible with ZEK", no workbench.
using PuGetPeerData = void VOSK_CALL(HostString& brokerId, HostString& second, HostString& userId);

// The privilege of who is logged in: a text that the plug-in does not read, and the level that
// chooses the subscription (0, 1, 2 or 4). Missing: as above.
using PuGetUserPrivilige = void VOSK_CALL(HostString& text, int& level);

// Appends a line to the host's tabbed log. The host owns, and releases, `line`.
// Missing: nothing is logged.
using PuAddToTabbedLog = void VOSK_CALL(HostString line);

// Non-zero when a role of who is logged in holds the menu item. Missing: no item is held.
using PuGetFindMenuItemInRoles = int VOSK_CALL(int menuItem);

// Non-zero when who is logged in may modify RMS limits. Missing: may not.
using PuGetMakerCheckerModifyRight = int VOSK_CALL();

// With a `receiver`: makes the control of `kind` (0 or 3) bound to it, or returns null.
// With `receiver` null: releases `release`; the result is null.
// Missing: "From ZEK Connection to quon failed"; nothing can be sent.
using GetQuonRxControlService = CQuonRxControl* VOSK_CALL(int kind, CQuonRxNotifierBase* receiver,
                                                          CQuonRxControl* release);

// Non-zero when the function may not be used; 0 means allowed. Missing: restricted.
using PuIsFunctionRestricted = int VOSK_CALL(int functionCode);

}  // extern "C"

inline constexpr char kPuGetPeerData[] = "pu_get_peer_data";
inline constexpr char kPuGetUserPrivilige[] = "pu_get_user_privilige";
inline constexpr char kPuAddToTabbedLog[] = "pu_add_to_tabbed_log";
inline constexpr char kPuGetFindMenuItemInRoles[] = "pu_get_find_menu_item_in_roles";
inline constexpr char kPuGetMakerCheckerModifyRight[] = "pu_get_maker_checker_Modify_Right";
inline constexpr char kGetQuonRxControl[] = "GetQuonRxControl";
inline constexpr char kPuIsFunctionRestricted[] = "pu_is_function_restricted";
