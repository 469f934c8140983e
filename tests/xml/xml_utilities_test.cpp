#include <gtest/gtest.h>

#include <limits>

#include "xml/zr_xml_utilities.h"

namespace zr {
namespace {

using Xml = ZRXMLUtilities;

const DateTime kLeapDay = DateTime::ymd(2012, 2, 29);
const DateTime kDefault = DateTime::ymd(1999, 1, 1);

/// One element <n> under a root, found by a path, or not when there is no such element.
class Reading {
  public:
    explicit Reading(const std::string& content)
        : path_("r/n", names_),
          attribute_path_("r/n/@date", names_),
          date_(names_.add("date")),
          document_(std::get<XmlDocument>(XmlDocument::parse("<r>" + content + "</r>", names_))) {}

    XmlNode root() const { return document_.root(); }
    XmlNode node() const { return root().first(path_); }
    const XmlPath& path() const { return path_; }
    const XmlPath& attribute_path() const { return attribute_path_; }
    XmlNameId date() const { return date_; }

  private:
    XmlNames names_;
    XmlPath path_;
    XmlPath attribute_path_;
    XmlNameId date_;
    XmlDocument document_;
};

TEST(XmlUtilities, ReadsValuesOrDefaults) {
    const struct {
        const char* content;
        const char* text;
        std::int16_t integer;
        double number;
        std::int64_t units;
        std::optional<DateTime> date;
    } cases[] = {
        {"", "none", -7, -1.5, -3, kDefault},
        {"<n/>", "", 0, 0, 0, {}},
        {"<n>12</n>", "12", 12, 12, 120000, {}},
        {"<n>2.5</n>", "2.5", 2, 2.5, 25000, {}},
        {"<n>3.5</n>", "3.5", 4, 3.5, 35000, {}},
        {"<n>32767.4</n>", "32767.4", 32767, 32767.4, 327674000, {}},
        {"<n>32768</n>", "32768", -7, 32768, 327680000, {}},
        {"<n>-32768</n>", "-32768", -32768, -32768, -327680000, {}},
        {"<n>-32769</n>", "-32769", -7, -32769, -327690000, {}},
        {"<n>40000</n>", "40000", -7, 40000, 400000000, {}},
        {"<n>0.12345</n>", "0.12345", 0, 0.1234, 1234, {}},
        {"<n>abc</n>", "abc", 0, 0, 0, {}},
        {"<n>2012-02-29</n>", "2012-02-29", 0, 0, 0, kLeapDay},
        {"<n>2013-02-29</n>", "2013-02-29", 0, 0, 0, {}},
        {"<n>one\ntwo<b>\nthree</b></n>", "one\r\ntwo\r\nthree", 0, 0, 0, {}},
        {"<n>1</n><n>2</n>", "1", 1, 1, 10000, {}},
    };
    for (const auto& row : cases) {
        const Reading read(row.content);
        EXPECT_EQ(Xml::GetNodeString(read.node(), "none"), row.text) << row.content;
        EXPECT_EQ(Xml::GetSubNodeString(read.root(), read.path(), "none"), row.text) << row.content;
        EXPECT_EQ(Xml::GetNodeInteger(read.node(), -7), row.integer) << row.content;
        EXPECT_EQ(Xml::GetNodeDouble(read.node(), -1.5), row.number) << row.content;
        EXPECT_EQ(Xml::GetSubNodeDouble(read.root(), read.path(), -1.5), row.number) << row.content;
        const Currency fallback = Currency::from_units(-3);
        EXPECT_EQ(Xml::GetNodeCurrency(read.node(), fallback).units(), row.units) << row.content;
        EXPECT_EQ(Xml::GetSubNodeCurrency(read.root(), read.path(), fallback).units(), row.units)
            << row.content;
        EXPECT_EQ(Xml::GetNodeDate(read.node(), kDefault), row.date) << row.content;
        EXPECT_EQ(Xml::GetSubNodeDate(read.root(), read.path(), kDefault), row.date) << row.content;
    }
    const Reading read("");
    EXPECT_EQ(Xml::GetSubNodeString(XmlNode(), read.path(), "none"), "none");
    EXPECT_EQ(Xml::GetSubNodeDate(read.root(), read.path()), std::nullopt);
}

TEST(XmlUtilities, ReadsAttributesOrDefaults) {
    const struct {
        const char* content;
        const char* text;
        std::optional<DateTime> date;
    } cases[] = {
        {"", "none", kDefault},
        {"<n/>", "none", kDefault},
        {"<n date=''/>", "", kDefault},
        {"<n date='soon'/>", "soon", kDefault},
        {"<n date='2012-02-29'/>", "2012-02-29", kLeapDay},
        {"<n/><n date='2012-02-29'/>", "none", kDefault},
        {"<n date='one&#10;two'/>", "one\ntwo", kDefault},
    };
    for (const auto& row : cases) {
        const Reading read(row.content);
        EXPECT_EQ(Xml::GetAttributeString(read.node(), read.date(), "none"), row.text);
        EXPECT_EQ(Xml::GetSubNodeAttributeString(read.root(), read.path(), read.date(), "none"),
                  row.text);
        EXPECT_EQ(Xml::GetSubNodeString(read.root(), read.attribute_path(), "none"), row.text);
        EXPECT_EQ(Xml::GetAttributeDate(read.node(), read.date(), kDefault), row.date);
        EXPECT_EQ(Xml::GetSubNodeAttributeDate(read.root(), read.path(), read.date(), kDefault),
                  row.date);
    }
    EXPECT_EQ(Xml::GetAttributeDate(Reading("<n date='soon'/>").node(), 0), std::nullopt);
}

}  // namespace
}  // namespace zr
