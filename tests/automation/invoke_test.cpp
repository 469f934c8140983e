// Hosts of other languages: by name and number, late bound, with whatever they pass in.
#include "automation/invoke.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "automation/cpp_types.h"
#include "records/component.h"

namespace zr::automation {
namespace {

/// A value of which a literal is a text.
struct Any : Variant {
    using Variant::Variant;
    Any(const char* literal) : Variant(std::string_view(literal)) {}
};
struct Values : std::vector<Variant> {
    Values(std::initializer_list<Any> values = {})
        : std::vector<Variant>(values.begin(), values.end()) {}
};

Variant get(const Object& self, std::string_view name, const Values& given = {}) {
    return read(self, member_of(self, name), given);
}
void put(const Object& self, std::string_view name, const Values& given) {
    write(self, member_of(self, name), given);
}
Object object(const Variant& value) { return std::get<Object>(value); }
std::string text(const Variant& value) { return std::string(text_in(value)); }

Object bureau_of(std::string_view country) {
    Object bureau = create("ZRCreditBureau5.ZRCreditBureau");
    EXPECT_TRUE(std::get<bool>(get(bureau, "Initialise", {country})));
    return bureau;
}

/// A stored reply of the examples, translated.
Object translated(const Object& bureau, std::string_view service, std::string_view product,
                  const std::string& file) {
    Object request = object(get(bureau, "CreateRequest"));
    put(request, "ServiceName", {service});
    put(request, "ProductId", {product});
    std::ifstream in(ZR_TEST_DATA "/../examples/" + file);
    std::stringstream reply;
    reply << in.rdbuf();
    EXPECT_TRUE(std::get<bool>(
        get(bureau, "BuildResponse", {request, DateTime::ymd(2012, 6, 5), reply.str()})))
        << text(get(bureau, "ErrorMessage"));
    return request;
}

Misuse misuse_of(const std::function<void()>& call) {
    try {
        call();
    } catch (const InvocationError& error) {
        EXPECT_FALSE(error.description().empty());
        return error.misuse();
    }
    ADD_FAILURE() << "no error";
    return {};
}

/// Whether a value is what its row says.
bool is_of(const Variant& value, const Type& type) {
    const bool null = std::holds_alternative<Null>(value);
    switch (type.kind) {
        case TypeKind::kText:
            return is_text(value);
        case TypeKind::kBoolean:
            return std::holds_alternative<bool>(value);
        case TypeKind::kCount:
            return std::holds_alternative<std::int16_t>(value);
        case TypeKind::kInteger:
        case TypeKind::kEnumeration:
            return std::holds_alternative<std::int32_t>(value);
        case TypeKind::kCurrency:
            return std::holds_alternative<Currency>(value);
        case TypeKind::kDate:
            return null || std::holds_alternative<DateTime>(value);
        case TypeKind::kDateOrNull:
            return null || is_text(value) || std::holds_alternative<DateTime>(value);
        case TypeKind::kObject:
            return std::holds_alternative<Object>(value) &&
                   (object(value) ? type.name == "Object" || object(value).type().name == type.name
                                  : type.may_be_none);
        case TypeKind::kEnumerator:
            return std::holds_alternative<Object>(value);
        default:
            return false;
    }
}

/// Reads all that can be read without arguments, of an object and of what it hands out, and all
/// items; tells each member that was met.
class Crawl {
  public:
    void visit(const Object& self) {
        for (const Member& row : self.type().members) {
            if (row.kind == MemberKind::kReadOnly || row.kind == MemberKind::kReadWrite) {
                if (row.is_default()) {
                    walk(self);
                } else if (row.arguments.empty() && row.name != "Application") {
                    met(self, row, read(self, row, {}));
                }
            }
        }
    }
    const std::set<std::string>& classes() const { return classes_; }
    const std::map<std::string, int>& texts() const { return texts_; }

  private:
    void met(const Object& self, const Member& row, const Variant& value) {
        EXPECT_TRUE(is_of(value, row.type)) << self.type().name << "." << row.name;
        classes_.emplace(self.type().name);
        if (is_text(value)) {
            texts_[std::string(row.name) + "=" + text(value)]++;
        } else if (row.type.kind == TypeKind::kObject && object(value)) {
            visit(object(value));
        }
    }
    void walk(const Object& collection) {
        Walk items(collection);
        std::int32_t count = 0;
        for (Variant item; items.next(item); ++count) {
            visit(object(item));
        }
        EXPECT_EQ(Variant(count), get(collection, "Count"));
    }

    std::set<std::string> classes_;
    std::map<std::string, int> texts_;
};

TEST(Invoke, ReachesEverythingByItsRows) {
    Crawl crawl;
    for (const char* country : {"AU", "NZ"}) {
        const Object bureau = bureau_of(country);
        crawl.visit(bureau);
        if (country == std::string("AU")) {
            crawl.visit(
                translated(bureau, "VedaXMLAU", "consumer-enquiry", "vedaxml_au_adverse.xml"));
            const auto found = std::shared_ptr<Request>(Component::make_request());
            Component::add(Component::selections(Component::new_response(*found)));
            crawl.visit(object_of(found));
        }
    }
    for (const Class& described : library().classes) {
        if (described.create == nullptr || described.name == "ZRCreditBureau") {
            EXPECT_TRUE(crawl.classes().contains(std::string(described.name))) << described.name;
        }
    }
    EXPECT_EQ(crawl.texts().at("Country=NZ"), 1);
    EXPECT_TRUE(crawl.texts().contains("ResponseGroup=Consumer Defaults"));
}

TEST(Invoke, WritesWhatItReads) {
    const Object request = object(get(bureau_of("AU"), "CreateRequest"));
    const std::map<TypeKind, Values> kWritten = {
        {TypeKind::kText, {"a text", std::string("another")}},
        {TypeKind::kCount, {std::int16_t{7}}},
        {TypeKind::kCurrency, {Currency::from_units(123456)}},
        {TypeKind::kDate, {DateTime::ymd(2012, 6, 5)}},
        {TypeKind::kDateOrNull, {DateTime::ymd(1970, 1, 2), Null{}}}};
    int written = 0;
    for (const Member& row : request.type().members) {
        if (row.kind == MemberKind::kReadWrite && row.arguments.empty() && row.name != "Response" &&
            row.name != "Gender") {
            for (const Variant& value : kWritten.at(row.type.kind)) {
                write(request, row, {&value, 1});
                const Variant now = read(request, row, {});
                EXPECT_TRUE(is_text(value) ? text(now) == text(value) : now == value) << row.name;
                ++written;
            }
        }
    }
    EXPECT_EQ(written, 99);
    // What automation hosts pass for a number, an amount and an option.
    put(request, "XRMApplicantIndex", {std::int32_t{70000}});
    EXPECT_EQ(get(request, "XRMApplicantIndex"), Variant(std::int16_t{32767}));
    put(request, "EnquiryAmount", {15000.99});
    EXPECT_EQ(get(request, "EnquiryAmount"), Variant(Currency::from_units(150009900)));
    put(request, "OptionChecked", {"AnOption", true});
    EXPECT_EQ(get(request, "optionchecked", {"ANOPTION"}), Variant(true));
    put(request, "Response", {Object()});
    const Object before = object(get(request, "Response"));
    EXPECT_EQ(object(get(request, "Response")), before);
}

// Each would be a use after free if what is held did not keep what it is a part of.
TEST(Invoke, HostsHoldWhatTheyWereHanded) {
    Object bureau = bureau_of("AU");
    Object request = translated(bureau, "VedaXMLAU", "consumer-enquiry", "vedaxml_au_adverse.xml");
    const Object lines = object(get(object(get(request, "Response")), "ResponseElements"));
    const Object line = object(get(lines, "Item", {1}));
    const Object service = object(get(object(get(bureau, "Services")), "Item", {"vedaxmlau"}));
    const Object products = object(get(bureau, "ServiceProducts", {"VedaXMLAU"}));
    const Object product = object(get(products, "Item", {1}));
    const Object table = object(get(object(get(product, "CodeTables")), "Item", {1}));
    const Object code = object(get(table, "Item", {1}));
    EXPECT_EQ(object(get(service, "Application")), bureau);
    const std::string label = text(get(line, "ResponseName"));
    const std::string first_code = text(get(code, "Code"));
    const auto check = [&] {
        EXPECT_EQ(text(get(line, "ResponseName")), label);
        EXPECT_EQ(text(get(object(get(lines, "Item", {1})), "ResponseName")), label);
        EXPECT_EQ(text(get(service, "ServiceName")), "VedaXMLAU");
        EXPECT_EQ(text(get(product, "ProductId")),
                  text(get(object(get(products, "Item", {1})), "ProductId")));
        EXPECT_EQ(text(get(code, "Code")), first_code);
    };
    request = translated(bureau, "VedaXMLAU", "consumer-enquiry", "vedaxml_au_clean.xml");
    check();
    get(bureau, "Initialise", {"NZ"});
    check();
    EXPECT_FALSE(object(get(service, "Application")));
    get(bureau, "Dispose");
    bureau = Object();
    request = Object();
    check();
    put(code, "Code", {"Changed"});
    EXPECT_EQ(text(get(table, "GetDescriptionFromCode", {"changed"})),
              text(get(code, "Description")));
}

TEST(Invoke, TellsWhatAHostDidWrong) {
    const Object bureau = bureau_of("AU");
    const Object request = object(get(bureau, "CreateRequest"));
    const Object builder = create("ZRXMLBuilder");
    const Object lines = object(get(object(get(request, "Response")), "ResponseElements"));
    const DateTime day = DateTime::ymd(2012, 6, 5);
    using enum Misuse;
    struct Case {
        Object self;
        const char* member;
        Values given;
        bool writes;
        Misuse misuse;
    };
    for (const Case& wrong : std::initializer_list<Case>{
             {bureau, "Initialize", {"AU"}, false, kUnknownMember},
             {bureau, "Initialise", {}, false, kArgumentMissing},
             {bureau, "Initialise", {Empty()}, false, kArgumentMissing},
             {bureau, "Initialise", {"AU", "NZ"}, false, kWrongCount},
             {bureau, "Initialise", {std::int32_t{1}}, false, kWrongType},
             {bureau, "Initialise", {Null{}}, false, kWrongType},
             {bureau, "ExecuteCreditEnquiry", {Object()}, false, kWrongType},
             {bureau, "ExecuteCreditEnquiry", {bureau}, false, kWrongType},
             {bureau, "ExecuteCreditEnquiry", {"a text"}, false, kWrongType},
             {bureau, "BuildResponse", {request, Null{}, "<a/>"}, false, kWrongType},
             {bureau,
              "BuildResponse",
              {request, DateTime::ymd(2011, 2, 30), "<a/>"},
              false,
              kWrongType},
             {bureau, "Country", {"AU"}, true, kNotWritable},
             {bureau, "TestMode", {std::int32_t{1}}, true, kWrongType},
             {bureau, "TestMode", {}, true, kWrongCount},
             {request, "Application", {}, false, kNotReadable},
             {request, "LastName", {true}, true, kWrongType},
             {request, "LastName", {"A", "B"}, true, kWrongCount},
             {request, "EnquiryAmount", {1e300}, true, kOutOfRange},
             {request, "EnquiryAmount", {"12"}, true, kWrongType},
             {request, "XRMApplicantIndex", {3e9}, true, kOutOfRange},
             {request, "XRMApplicantIndex", {day}, true, kWrongType},
             {request, "DateOfBirth", {true}, true, kWrongType},
             {request, "OptionChecked", {true}, true, kWrongCount},
             {request, "Response", {request}, true, kWrongType},
             {builder, "XML", {true, "none"}, false, kWrongType},
         }) {
        EXPECT_EQ(misuse_of([&] {
                      const Member& row = member_of(wrong.self, wrong.member);
                      wrong.writes ? write(wrong.self, row, wrong.given)
                                   : void(read(wrong.self, row, wrong.given));
                  }),
                  wrong.misuse)
            << wrong.member << wrong.given.size();
    }
    EXPECT_EQ(misuse_of([] { create("ZRCreditBureau5.Request"); }), kUnknownClass);
    EXPECT_EQ(misuse_of([&] { (void)member_of(request, 999); }), kUnknownMember);
    for (const std::int32_t index : {0, 1, -1}) {
        EXPECT_THROW(get(lines, "Item", {index}), PlatformError);
    }
    EXPECT_THROW(get(builder, "WriteAttribute", {"a", "b"}), PlatformError);
}

TEST(Invoke, TakesArgumentsByNameAndLeavesThemOut) {
    const Object builder = create("ZRXMLBuilder");
    const auto call = [&](const char* name, const Values& given,
                          const std::vector<std::string_view>& names) {
        const Member& row = member_of(builder, name);
        return read(builder, row, in_their_places(row, given, names));
    };
    call("TagOpen", {"a"}, {"TAGNAME"});
    call("WriteAttribute", {"n", true, ""}, {"DontWriteIfValueBlank", "AttributeValue"});
    call("WriteAttribute", {"m", ""}, {});
    call("WriteTagWithText", {"b", "1", Empty()}, {});
    call("TagClose", {"a"}, {});
    EXPECT_EQ(text(call("XML", {true}, {"IncludeHeader"})),
              text(get(builder, "XMLHeader")) + "<a m=\"\"><b>1</b></a>\r");
    EXPECT_EQ(misuse_of([&] { call("TagOpen", {"a"}, {"Name"}); }), Misuse::kUnknownArgument);
    EXPECT_EQ(misuse_of([&] {
                  call("WriteTagWithText", {"a", "b"}, {"TagName"});
              }),
              Misuse::kWrongCount);
}

}  // namespace
}  // namespace zr::automation
