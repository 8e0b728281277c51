// The seven entry points that MakerChecker.dll exports, in the order in which a host calls them.
//
//   1. GetVoskPluginInfo, GetOptionalVoskPluginInfo   after LoadLibrary, to identify the plug-in
//   2. InitVoskPlugin                                 once; before or after the main frame exists
//   3. PluginProcessHotKey                            each time the user asks for the workbench
//   4. HandlePublishMsg                               for every message published to the host
//      ProcessVoskPluginMsg                           at will; the plug-in has no commands
//   5. ExitVoskPlugin                                 once, before FreeLibrary
//
// Only a PluginProcessHotKey that creates the pane subscribes to authorization traffic. A host that
// wants the subscription calls InitVoskPlugin before its main frame exists: start-up then stops
// short of the pane, and the first hot key makes and subscribes it. The main frame is the host's
// visible, resizable, unowned top-level window with a caption on the calling thread.
//
// Thread: the host's user-interface thread, for all seven. No exception leaves an entry point.
#pragma once

#include "sdk/calling.h"
#include "sdk/host_string.h"

extern "C" {

// Replaces `name` with a copy of `hostName` and `version` with "1.0.0.0"; sets `pluginId` to
// 29032010 and `flags` to 0xFFFFFFFF. A null `hostName` counts as empty. Returns 1.
using GetVoskPluginInfoEntry = int VOSK_CALL(HostString& name, HostString& version,
                                             const char* hostName, unsigned& pluginId,
                                             unsigned& flags);

// Empties `information`; the other arguments are not used.
using GetOptionalVoskPluginInfoEntry = void VOSK_CALL(void*, HostStringArray& information, void*,
                                                      void*);

// Start-up. `owned` is released; nothing else is used.
using InitVoskPluginEntry = void VOSK_CALL(void* handle, const char* text, unsigned,
                                           HostString owned);

// Creates the workbench pane and subscribes, or brings the existing pane to view. The arguments are
// not examined.
using PluginProcessHotKeyEntry = void VOSK_CALL(void*, unsigned, unsigned, void*);

// Does nothing. Returns 0.
using ProcessVoskPluginMsgEntry = int VOSK_CALL(void*);

// Takes in one published message (connectvosk.h). It belongs to the host and lives until the call
// returns. Null, or a message before there is a workbench, is ignored.
using HandlePublishMsgEntry = void VOSK_CALL(void* message);

// Shut-down: unsubscribes, closes whatever the plug-in has open and destroys the pane. Allowed at
// any time, also behind a message box of the plug-in; what was under way there has no effect any
// more, and the library stays mapped until it has returned. Returns non-zero when a pane was
// destroyed.
using ExitVoskPluginEntry = int VOSK_CALL();

}  // extern "C"

inline constexpr unsigned kVoskPluginId = 29032010;
inline constexpr unsigned kVoskPluginFlags = 0xFFFFFFFF;
inline constexpr char kVoskPluginVersion[] = "1.0.0.0";
