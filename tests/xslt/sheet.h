// What is asked of the style sheet of every country: "au", "nz".
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace zr::sheet {

/// An example reply, examples/vedaxml_COUNTRY_NAME.xml.
std::string example(const std::string& country, const std::string& name);

/// The page that the country's sheet makes of a reply.
std::string render(const std::string& country, const std::string& reply);

/// A reply with this in its data.
std::string reply_with(const std::string& data, const std::string& code = "BCA001");

/// The headings of a page, a line each: "## Overview"; what marks a record left out.
std::string sections(const std::string& html);

/// The page of an example stands alone, is well-formed, and has its headings in order.
void expect_whole_page(const std::string& country, const std::string& name);

/// The page of an example shows what the report lines of it show, dates in labels included,
/// statistics apart.
void expect_every_line(const std::string& country, const std::string& name,
                       const std::string& product);

/// Nothing in the text or the attributes of the examples becomes markup of their pages.
void expect_no_markup(const std::string& country, std::initializer_list<const char*> names);

}  // namespace zr::sheet
