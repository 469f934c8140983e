// What every transport does alike: the request checked before anything is sent, the reply's bytes
// made text.
#pragma once

#include <string>
#include <string_view>

#include "zrcreditbureau/http.h"

namespace zr {

/// Refuses a control character in any text that becomes part of an address or a header: throws
/// PlatformError(kInvalidAddress), whose description names the text and never shows it.
void check_no_control_characters(const HttpRequest& request);

/// The reply's bytes as UTF-8: by byte-order mark (which is dropped), else by the charset of the
/// Content-Type value, else as UTF-8. Throws PlatformError(kInvalidReply) as text::decode does, and
/// for a second mark.
std::string decode_reply(std::string_view bytes, std::string_view content_type);

}  // namespace zr
