// The XML writer and the string builder as hosts see them.
#include "automation/describe.h"
#include "zrcreditbureau/zr_string_builder.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

constexpr In<bool> kDontWriteIfBlank = {"DontWriteIfValueBlank",
                                        "whether an empty value leaves nothing", true, "False"};

Class xml_builder_class() {
    using X = ZRXMLBuilder;
    using Flags = zreXMLBuilderEncodeOptions;
    constexpr In<Text> kTag = {"TagName", "the element's name"};
    constexpr In<bool> kFlag = {"TagValue", "what is written"};
    constexpr In<DateOrNull> kDate = {"TagValue", "a date, null, or a text that may read as one"};
    Class described = make_class(
        "ZRXMLBuilder", "writes XML text forwards",
        {ZR_OPERATION(X, TagOpen, "opens an element", kTag),
         ZR_OPERATION(X, TagClose, "closes an element", kTag),
         raising(
             error_number::kApplicationFirst,
             ZR_OPERATION(X, WriteAttribute, "an attribute of the element just opened",
                          In<Text>{"AttributeName", "the attribute's name"},
                          In<Text>{"AttributeValue", "its value, not escaped"}, kDontWriteIfBlank)),
         ZR_OPERATION(X, WriteText, "escaped text", In<Text>{"Text", "what is appended"}),
         ZR_OPERATION(X, WriteRaw, "text as it stands", In<Text>{"RawText", "what is appended"}),
         ZR_OPERATION(X, WriteBoolean, "\"true\" or \"false\"", kFlag),
         ZR_OPERATION(X, WriteDate, "a date; nothing for null", kDate),
         ZR_OPERATION(X, WriteDateTime, "a date and time; nothing for null", kDate),
         ZR_OPERATION(X, WriteTagWithText, "an element of text", kTag,
                      In<Text>{"TagValue", "its text, not escaped"}, kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithBoolean, "an element of \"true\" or \"false\"", kTag, kFlag),
         ZR_OPERATION(X, WriteTagWithDate, "an element of a date", kTag, kDate, kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithDateTime, "an element of a date and time", kTag, kDate,
                      kDontWriteIfBlank),
         ZR_OPERATION(X, WriteTagWithUtcDateTime, "an element of a date and time in UTC", kTag,
                      kDate, kDontWriteIfBlank),
         ZR_OPERATION(
             X, XML, "the text written so far",
             In<bool>{"IncludeHeader", "whether the declaration stands first", true, "False"},
             In<Flags>{"EncodeOptions", "other than 0: the encoding step is done", true, "0"}),
         ZR_OPERATION(X, XMLHeader, "the XML declaration"),
         ZR_READ_WRITE(X, Encoding, "the encoding that the declaration names"),
         ZR_READ_WRITE(X, EncodeOptions, "what the encoding step writes as references"),
         ZR_OPERATION(X, Clear, "empties the text")});
    let_create<X>(described);
    return described;
}

Class string_builder_class() {
    using S = ZRStringBuilder;
    Class described =
        make_class("ZRStringBuilder", "builds long text",
                   {ZR_OPERATION(S, Initialise, "sets the size that Clear restores, and clears",
                                 In<std::int32_t>{"Capacity", "number of characters"}),
                    ZR_OPERATION(S, Append, "appends text", In<Text>{"Text", "what is appended"}),
                    ZR_OPERATION(S, Clear, "empties it"),
                    ZR_READ_ONLY(S, Length, "number of characters written"),
                    ZR_OPERATION(S, ToString, "the content")});
    let_create<S>(described);
    return described;
}

}  // namespace

void describe_xml(std::vector<Class>& classes) {
    classes.push_back(xml_builder_class());
    classes.push_back(string_builder_class());
}

}  // namespace zr::automation
