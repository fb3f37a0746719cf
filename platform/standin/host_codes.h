#pragma once

#include "platform/suites/result_code.h"

/// The codes that the host's own operations answer. They are plain numbers, for which the host's
/// string list 257 has texts.
namespace standin {

inline constexpr ResultCode kBadArgument{400};      // a null where something must stand
inline constexpr ResultCode kSuiteNotFound{401};    // no suite of this name
inline constexpr ResultCode kSuiteVersion{402};     // a suite of this name, but not this version
inline constexpr ResultCode kSuiteNotHeld{403};     // released more often than acquired
inline constexpr ResultCode kUnknownPlugin{404};    // no plug-in has this reference
inline constexpr ResultCode kUnknownHandle{405};    // a handle that was never given or given back
inline constexpr ResultCode kContextOrder{406};     // contexts close in the reverse order
inline constexpr ResultCode kNoListEntry{407};      // the string list has no entry at this index
inline constexpr ResultCode kDamagedList{408};      // the string list cannot be read
inline constexpr ResultCode kSuiteTaken{409};       // another suite of this name and version
inline constexpr ResultCode kUnknownEncoding{410};  // only encoding 0, which is UTF-8, is known
inline constexpr ResultCode kPluginInUse{411};      // something still needs the plug-in in memory
inline constexpr ResultCode kNotLoaded{412};        // the plug-in's code is not in memory

}  // namespace standin
