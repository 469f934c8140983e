// Templates of replies. A template is the reply as it is to be, with placeholders {XPath} in texts
// and attributes, and with what stands in the namespace urn:bureau-gateway:
//
//   t:repeat="N or nodes"  the element so many times ($n counts), or once for each node ($it)
//   t:if="test"            the element only when the test holds
//   t:file="reference"     from here in, draws are those of the file of this reference
//   t:fill="test"          this repetition goes on when a large report is wanted
//   <t:let a="XPath"/>     names values, one after the other; they can be named anew
//   <t:group>              its content alone
//   <t:include file="f" a="XPath"/>  the content of f.xml, with values named first
//   <t:hold name="a">      keeps its content aside as $a
//   <t:copy select="XPath"/>         copies what the reply holds so far
//
// XPath looks at the reply so far, from the element that is being filled; $request is the request,
// $words the words, $large the size wanted. What a placeholder leaves empty is left out. Functions:
// between(a,b), chance(percent), pick(nodes or 'a|b'), maybe(percent, value), either(test, a, b),
// some('clean average heavy') as in some('0 0-2 3-9'), digits(n), cents(a,b), two(number),
// day(ago), months(date), oldest(dates), newest(dates), upper(text), codes(table), burden(),
// possible(), reference(), person(family, first, birth), company(number), companies(name).
#pragma once

#include <functional>
#include <string>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/documents/xml.h"

namespace zr::gateway {

/// What a reply is made from.
struct ReplyFacts {
    xmlNode& request;
    xmlNode& words;
    xmlNode& codes;  ///< of the country
    Date today;
    std::size_t large_bytes = 0;  ///< at least so large a report; 0: as it comes
    /// The root of a template that another includes, null when there is none.
    std::function<xmlNode*(const std::string& file)> find;
};

/// Gives an XPath the function codes(table): the enumeration of a table of codes.
void offer_codes(XPath& xpath, xmlNode& codes);

/// Writes what the template makes of the facts into `place`. Throws std::runtime_error that says
/// what is not in order in the template.
void expand(const xmlNode& root, const ReplyFacts& facts, xmlNode& place);

}  // namespace zr::gateway
