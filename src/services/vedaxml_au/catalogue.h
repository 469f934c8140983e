// The catalogue of the Australian bureau: products, their options, and code tables.
#pragma once

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/products.h"

namespace zr {

/// Fills a service's catalogue with the Australian products and code tables.
void build_australian_catalogue(Products& products, CodeTableCollection& code_tables);

}  // namespace zr
