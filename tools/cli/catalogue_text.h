// A country's catalogue to read.
#pragma once

#include <string>

#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {

/// The services with their products, options and code tables.
std::string catalogue_text(const ZRCreditBureau& bureau);

}  // namespace zr::cli
