// The catalogues of the New Zealand B2Bay reports: products, their options, and code tables.
#pragma once

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/products.h"

namespace zr::b2bay {

/// Each fills a service's catalogue.
void build_catalogue(Products& products, CodeTableCollection& code_tables);
void build_catalogue_of_version_2(Products& products, CodeTableCollection& code_tables);

}  // namespace zr::b2bay
