#pragma once

#include "platform/suites/result_code.h"

/// The result codes of the host's own operations. The host's string list 257 has their texts.
namespace standin {

inline constexpr ResultCode kBadArgument{400};    // a required argument is null
inline constexpr ResultCode kSuiteNotFound{401};  // no suite of this name
inline constexpr ResultCode kSuiteVersion{402};   // no suite of this version
inline constexpr ResultCode kSuiteNotHeld{403};   // released more often than acquired
inline constexpr ResultCode kUnknownPlugin{404};  // not the reference of a plug-in
inline constexpr ResultCode kUnknownHandle{405};  // never issued, or released already
inline constexpr ResultCode kContextOrder{406};   // not the context that was opened last
inline constexpr ResultCode kNoListEntry{407};    // the string list lacks this entry
inline constexpr ResultCode kDamagedList{408};    // the string list cannot be read
inline constexpr ResultCode kSuiteExists{409};    // this version of the suite is registered already
inline constexpr ResultCode kUnknownEncoding{410};  // only 0, UTF-8, is supported
inline constexpr ResultCode kPluginInUse{411};      // the plug-in must stay in memory
inline constexpr ResultCode kNotLoaded{412};        // the plug-in's code is not in memory

}  // namespace standin
