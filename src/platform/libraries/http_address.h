// Addresses and proxies, checked and brought to one form before they are used.
#pragma once

#include <string>

namespace zr {

/// The address as it is used. Throws PlatformError(kInvalidAddress) for anything but a complete
/// https or http address, and for one with a user or password in it: those have their own place,
/// and an address is shown in messages.
std::string checked_address(const std::string& url);

/// True for an https address.
bool is_secure(const std::string& url);

/// The host of a checked address as certificates name it: in ASCII, without brackets.
std::string host_of(const std::string& url);

/// A proxy named "host:port" or "scheme://host:port" (http or https) with its scheme and port; port
/// 80 when an http proxy names none, 443 when an https proxy does. Anything else throws
/// PlatformError(kInvalidAddress).
std::string checked_proxy(const std::string& server);

}  // namespace zr
