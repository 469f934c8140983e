#include "automation/json.h"

#include <gtest/gtest.h>

#include <string>

namespace zr::automation {
namespace {

std::string fault_of(const std::string& text) {
    try {
        (void)parse_json(text);
    } catch (const JsonError& error) {
        return error.what();
    }
    return "";
}

TEST(Json, KeepsTheDigitsOfNumbersAndTheOrderOfMembers) {
    const JsonValue value =
        parse_json(R"({"b":0.1000000000000000055,"a":[1e3,true,null,"\u00e9"]})");
    ASSERT_EQ(value.members().size(), 2U);
    EXPECT_EQ(value.members()[0].first, "b");
    EXPECT_EQ(value.members()[0].second.text(), "0.1000000000000000055");
    const auto& items = value.members()[1].second.items();
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[0].text(), "1e3");
    EXPECT_TRUE(items[1].boolean());
    EXPECT_TRUE(items[2].is_null());
    EXPECT_EQ(items[3].text(), "\u00e9");
}

TEST(Json, FindsTheExactNameBeforeAnotherLetterCase) {
    const JsonValue value = parse_json(R"({"name":"lower","Name":"exact","NAME":"upper"})");
    EXPECT_EQ(value.find("Name")->text(), "exact");
    EXPECT_EQ(value.find("nAME")->text(), "upper");
    EXPECT_EQ(value.find("other"), nullptr);
}

TEST(Json, RefusesWhatIsNotJsonWithAReason) {
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("{} x"), std::string("{'a':1}"),
          std::string("01"), std::string("\"\xff\""), std::string("{\"\xc3\":1}"),
          std::string(R"("\ud800")"), std::string(R"("\udc00")"), std::string("\"a\0b\"", 5)}) {
        EXPECT_NE(fault_of(text), "") << text;
    }
    EXPECT_EQ(fault_of("[1,]"), "Not valid JSON at byte 4: Invalid value.");
    EXPECT_EQ(fault_of("[\n1,\n 2,]"), "Not valid JSON at line 3, column 4: Invalid value.");
}

TEST(Json, BoundsNesting) {
    const auto nested = [](int depth) {
        const auto size = static_cast<std::size_t>(depth);
        return std::string(size, '[') + std::string(size, ']');
    };
    EXPECT_EQ(fault_of(nested(kDeepestJson)), "");
    EXPECT_EQ(fault_of(nested(kDeepestJson + 1)),
              "The JSON text cannot be used: it is nested more than 64 deep.");
    EXPECT_NE(fault_of(std::string(1'000'000, '[')), "");
}

std::string written(const Value& value) {
    JsonWriter json;
    json.value(value);
    return std::string(json.view());
}

TEST(Json, WritesValuesInTheirForms) {
    EXPECT_EQ(written(Null{}), "null");
    EXPECT_EQ(written(std::string_view()), "\"\"");
    EXPECT_EQ(written(std::string("a\"\\\r\n\t\x01/")), R"("a\"\\\r\n\t\u0001/")");
    EXPECT_EQ(written(true), "true");
    EXPECT_EQ(written(std::int32_t{-32768}), "-32768");
    EXPECT_EQ(written(Currency::from_units(150009900)), "15000.9900");
    EXPECT_EQ(written(Currency::from_units(-1)), "-0.0001");
    EXPECT_EQ(written(DateTime::ymd(2012, 6, 5)), "\"2012-06-05\"");
    EXPECT_EQ(written(DateTime{DateTime::ymd(2012, 6, 5).date, std::chrono::seconds{50829}}),
              "\"2012-06-05T14:07:09\"");
}

TEST(Json, WritesEveryCharacterWhereverItStands) {
    for (int code = 0; code < 0x80; ++code) {
        for (std::size_t size = 1; size <= 20; ++size) {
            for (std::size_t at = 0; at < size; ++at) {
                std::string text(size, 'x');
                text[at] = static_cast<char>(code);
                const std::string json = written(text);
                const bool plain = code >= 0x20 && code != '"' && code != '\\';
                ASSERT_EQ(json.size() == size + 2, plain) << json;
                ASSERT_EQ(parse_json(json).text(), text) << json;
            }
        }
    }
}

TEST(Json, RepairsTextThatIsNotUtf8) {
    EXPECT_EQ(written(std::string_view("a\xff\x62\xc3")), "\"a\uFFFDb\uFFFD\"");
}

TEST(Json, WritesOneTextAfterAnother) {
    JsonWriter json;
    for (int round = 0; round < 2; ++round) {
        json.begin_object();
        json.name("First");
        json.begin_array();
        json.number(1);
        json.null();
        json.end_array();
        json.name("Second");
        json.boolean(false);
        json.end_object();
        EXPECT_EQ(json.view(), R"({"First":[1,null],"Second":false})");
        json.clear();
    }
}

TEST(Json, HandsALongDocumentOnInPiecesThatMakeTheWhole) {
    const auto write = [](JsonWriter& json) {
        json.begin_object();
        json.name("Items");
        json.begin_array();
        for (int item = 0; item < 3000; ++item) {
            json.begin_object();
            json.name("Text");
            json.text(std::string(1000, 'x') + "\xC3\xA9" + std::to_string(item));
            json.end_object();
        }
        json.end_array();
        json.end_object();
    };
    JsonWriter whole;
    write(whole);
    std::string pieces;
    int count = 0;
    JsonWriter streamed([&](std::string_view text) {
        pieces += text;
        ++count;
    });
    write(streamed);
    pieces += streamed.view();
    EXPECT_GE(count, 2);
    EXPECT_EQ(pieces, whole.view());
}

}  // namespace
}  // namespace zr::automation
