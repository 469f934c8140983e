// The paths of New Zealand replies, compiled once against one table of names.
#pragma once

#include "platform/xml_document.h"
#include "services/common/reply_checks.h"
#include "services/vedaxml_nz/company_search.h"

namespace zr::new_zealand {

struct ReplyPaths {
    ReplyPaths();

    // First, since everything below is compiled against it.
    XmlNames names;

    ReplyCheckPaths checks;
    NewZealandSearchPaths search;
};

/// The one instance, made at first use.
const ReplyPaths& reply_paths();

}  // namespace zr::new_zealand
