// What is asked of the style sheet of every service: "au" and "nz" of VedaXML, "b2bay_au",
// "b2bay_nz" and "b2bay_nz_v2".
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace zr::sheet {

/// An example reply of the service.
std::string example(const std::string& service, const std::string& name);

/// The page that the service's sheet makes of a reply, with nothing known beside it.
std::string render(const std::string& service, const std::string& reply);

/// The same made by the component, of a response of 15 June 2012.
std::string render_by_component(const std::string& service, const std::string& reply,
                                const std::string& product, bool directors_counted = false);

/// A reply with this in its data.
std::string reply_with(const std::string& data, const std::string& code = "BCA001");

/// The headings of a page, a line each: "## Overview"; what marks a record left out.
std::string sections(const std::string& html);

/// The page of an example stands alone, is well-formed, and has its headings in order.
void expect_whole_page(const std::string& service, const std::string& name);

/// The page of an example shows what the report lines of it show, dates in labels included,
/// statistics apart.
void expect_every_line(const std::string& service, const std::string& name,
                       const std::string& product);

/// The headline on the page of an example has the response's own figures.
void expect_figures(const std::string& service, const std::string& name, const std::string& product,
                    bool directors_counted = false);

/// The sheet has every code of a table of the service, with its description, and shows a code that
/// it does not know as it stands. The record is in a report, with CODE where the code stands.
void expect_codes(const std::string& service, const std::string& product, const std::string& table,
                  const std::string& record);

/// Nothing in the text or the attributes of an example becomes markup of its page.
void expect_no_markup(const std::string& service, const std::string& name);

}  // namespace zr::sheet
