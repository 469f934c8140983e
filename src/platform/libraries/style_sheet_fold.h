// Keeps the page that a style sheet makes small while it grows.
#pragma once

#include <libxslt/xsltInternals.h>

#include <cstddef>

namespace zr {

/// True when a sheet's pages may be folded: HTML that is not indented, of which each part is
/// written as the same bytes whatever stands beside it.
bool makes_foldable_pages(xsltStylesheetPtr sheet);

/// Writes down what is finished in the body of the page that a run is making, and keeps the text in
/// place of its nodes, which take ten times as much. The page comes out the same. Gives the size of
/// the new text; where memory ends errno says so, and the page is as it was.
std::size_t fold_finished(xsltTransformContextPtr context);

}  // namespace zr
