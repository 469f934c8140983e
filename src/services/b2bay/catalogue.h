// The catalogues of the New Zealand B2Bay reports: products, their options, and code tables.
#pragma once

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/products.h"

namespace zr::b2bay {

/// Fills a service's catalogue.
void build_catalogue(Products& products, CodeTableCollection& code_tables);

namespace version_2 {
void build_catalogue(Products& products, CodeTableCollection& code_tables);
}

}  // namespace zr::b2bay
