// The catalogue of the New Zealand bureau: products, their options, and code tables.
#pragma once

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/products.h"

namespace zr {

/// Fills a service's catalogue with the New Zealand products and code tables.
void build_new_zealand_catalogue(Products& products, CodeTableCollection& code_tables);

}  // namespace zr
