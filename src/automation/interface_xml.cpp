// The XML writer and the string builder as hosts see them.
#include "automation/describe.h"
#include "zrcreditbureau/zr_string_builder.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

constexpr In<bool> kDontWriteIfBlank = {"DontWriteIfValueBlank", true, "False"};

Class xml_builder_class() {
    using X = ZRXMLBuilder;
    using Flags = zreXMLBuilderEncodeOptions;
    constexpr In<Text> kTag = {"TagName"};
    constexpr In<DateOrNull> kDate = {"TagValue"};
    return make_class(
        "ZRXMLBuilder", "writes XML text forwards",
        {ZR_OPERATION(X, TagOpen, "opens an element", kTag),
         ZR_OPERATION(X, TagClose, "closes an element", kTag),
         ZR_OPERATION(X, WriteAttribute, "an attribute of the element just opened",
                      In<Text>{"AttributeName"}, In<Text>{"AttributeValue"}, kDontWriteIfBlank),
         ZR_OPERATION(X, WriteText, "escaped text", In<Text>{"Text"}),
         ZR_OPERATION(X, WriteRaw, "text as it stands", In<Text>{"RawText"}),
         ZR_OPERATION(X, WriteBoolean, "\"true\" or \"false\"", In<bool>{"TagValue"}),
         ZR_OPERATION(X, WriteDate, "a date; nothing for null", kDate),
         ZR_OPERATION(X, WriteDateTime, "a date and time; nothing for null", kDate),
         ZR_OPERATION(X, WriteTagWithText, "an element of text", kTag, In<Text>{"TagValue"},
                      kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithBoolean, "an element of \"true\" or \"false\"", kTag,
                      In<bool>{"TagValue"}),
         ZR_OPERATION(X, WriteTagWithDate, "an element of a date", kTag, kDate, kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithDateTime, "an element of a date and time", kTag, kDate,
                      kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithUtcDateTime, "an element of a date and time in UTC", kTag,
                      kDate, kDontWriteIfBlank),
         ZR_OPERATION(X, XML, "the text written so far", In<bool>{"IncludeHeader", true, "False"},
                      In<Flags>{"EncodeOptions", true, "0"}),
         ZR_OPERATION(X, XMLHeader, "the XML declaration"),
         ZR_READ_WRITE(X, Encoding, "the encoding that the declaration names"),
         ZR_READ_WRITE(X, EncodeOptions, "what the encoding step writes as references"),
         ZR_OPERATION(X, Clear, "empties the text")});
}

Class string_builder_class() {
    using S = ZRStringBuilder;
    return make_class("ZRStringBuilder", "builds long text",
                      {ZR_OPERATION(S, Initialise, "sets the size that Clear restores, and clears",
                                    In<std::int32_t>{"Capacity"}),
                       ZR_OPERATION(S, Append, "appends text", In<Text>{"Text"}),
                       ZR_OPERATION(S, Clear, "empties it"),
                       ZR_READ_ONLY(S, Length, "number of characters written"),
                       ZR_OPERATION(S, ToString, "the content")});
}

}  // namespace

void describe_xml(std::vector<Class>& classes) {
    for (Class described : {xml_builder_class(), string_builder_class()}) {
        described.creatable = true;
        classes.push_back(std::move(described));
    }
}

}  // namespace zr::automation
