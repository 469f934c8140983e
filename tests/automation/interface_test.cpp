#include "automation/interface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "automation/fields.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::automation {
namespace {

const Member& member(std::string_view class_name, std::string_view name) {
    static const Member kNone;
    const Class* described = library().find(class_name);
    const Member* found = described != nullptr ? described->find(name) : nullptr;
    EXPECT_NE(found, nullptr) << class_name << "." << name;
    return found != nullptr ? *found : kNone;
}

std::string kind_text(const Type& type) {
    static const std::map<TypeKind, std::string> kNames = {
        {TypeKind::kNothing, "nothing"},   {TypeKind::kText, "text"},
        {TypeKind::kBoolean, "boolean"},   {TypeKind::kCount, "count"},
        {TypeKind::kInteger, "integer"},   {TypeKind::kCurrency, "currency"},
        {TypeKind::kDate, "date"},         {TypeKind::kDateOrNull, "date-or-null"},
        {TypeKind::kIndex, "index"},       {TypeKind::kObject, "object"},
        {TypeKind::kEnumeration, "value"}, {TypeKind::kEnumerator, "enumerator"}};
    return type.name.empty() ? kNames.at(type.kind) : std::string(type.name);
}

/// A member as one line: "operation Clear([ClearAll boolean=True]) nothing".
std::string signature(const Member& row) {
    static const std::map<MemberKind, std::string> kKinds = {{MemberKind::kOperation, "operation"},
                                                             {MemberKind::kReadOnly, "read"},
                                                             {MemberKind::kReadWrite, "read/write"},
                                                             {MemberKind::kWriteOnly, "write"}};
    std::string text = kKinds.at(row.kind) + " " + std::string(row.name) + "(";
    for (const Argument& argument : row.arguments) {
        text += text.ends_with('(') ? "" : ", ";
        text += argument.optional ? "[" : "";
        text += std::string(argument.name) + " " + kind_text(argument.type);
        text += argument.optional ? "=" + std::string(argument.default_value) + "]" : "";
    }
    return text + ") " + kind_text(row.type);
}

/// The rows of a class that do not come from a list of properties.
std::vector<std::string> signatures(std::string_view class_name) {
    std::vector<std::string> lines;
    if (const Class* described = library().find(class_name)) {
        for (const Member& row : described->members) {
            if (row.dispatch_id < kFirstPropertyId) {
                lines.push_back(signature(row));
            }
        }
    }
    return lines;
}

// What hosts are promised, written out: a renamed argument or a changed type breaks them.
TEST(Interface, KeepsThePromisedSignatures) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(signatures("ZRCreditBureau"),
              (Lines{"operation Initialise(Country text) boolean", "read Country() text",
                     "operation CreateRequest() Request",
                     "operation ExecuteCreditEnquiry(Request Request) boolean",
                     "operation ExecuteGetList(Request Request) boolean",
                     "operation ExecuteVerifyConnection(ServiceName text) boolean",
                     "operation BuildResponse(Request Request, ResponseDate date, "
                     "ResponseXML text) boolean",
                     "operation ErrorMessage() text", "read Services() Services",
                     "read ServiceProducts(ServiceName text) Products",
                     "read/write TestMode() boolean", "read/write CurrencyFormat() text",
                     "read/write CurrencyFormatSymbol() text", "read/write DateFormat() text",
                     "read Version() text", "operation Dispose() nothing"}));
    EXPECT_EQ(signatures("Services"),
              (Lines{"read Application() ZRCreditBureau", "read Count() integer",
                     "operation Exists(Index text) boolean", "read Item(Index index) Object",
                     "read List(IncludeObsolete boolean) text"}));
    EXPECT_EQ(
        signatures("Request"),
        (Lines{"read/write Response() Response", "read/write OptionChecked(OptionId text) boolean",
               "read/write OptionValue(OptionId text) text",
               "read/write OptionTag(OptionId text) text", "operation OptionsClear() nothing",
               "operation Clear([ClearAll boolean=True]) nothing",
               "write Application() ZRCreditBureau"}));
    EXPECT_EQ(signatures("CompanySelections"),
              (Lines{"read Count() integer", "read Item(Index integer) CompanySelection",
                     "read NewEnum() enumerator"}));
    EXPECT_EQ(signatures("Products"),
              (Lines{"read Count() integer", "operation Exists(Index text) boolean",
                     "read Item(Index index) Product", "read NewEnum() enumerator"}));
    EXPECT_EQ(signatures("CodeTableItems"),
              (Lines{"read AllowDuplicateCodes() boolean", "operation Count() integer",
                     "read Item(Index index) CodeTableItem", "read NewEnum() enumerator",
                     "read GetCodeFromDescription(Description text, [Default text=]) text",
                     "read GetDescriptionFromCode(Code text) text",
                     "read ValidateDescription(Description text) text", "read ListCodes() text",
                     "read ListDescriptions() text"}));
    EXPECT_EQ(signature(member("ZRXMLBuilder", "XML")),
              "operation XML([IncludeHeader boolean=False], "
              "[EncodeOptions zreXMLBuilderEncodeOptions=0]) text");
    EXPECT_EQ(signature(member("ZRXMLBuilder", "WriteTagWithUtcDateTime")),
              "operation WriteTagWithUtcDateTime(TagName text, TagValue date-or-null, "
              "[DontWriteIfValueBlank boolean=False]) nothing");
}

TEST(Interface, DescribesEveryListedProperty) {
    const auto check = [](std::string_view class_name, const auto& properties) {
        for (const auto& property : properties) {
            const Member& row = member(class_name, property.name);
            EXPECT_EQ(row.kind,
                      property.write != nullptr ? MemberKind::kReadWrite : MemberKind::kReadOnly)
                << property.name;
        }
    };
    check("Request", request_properties());
    check("Response", response_properties());
    for (const auto& [name, type] :
         std::map<std::string, TypeKind>{{"EnquiryAmount", TypeKind::kCurrency},
                                         {"XRMApplicantIndex", TypeKind::kCount},
                                         {"DefaultOccurredDate", TypeKind::kDate},
                                         {"DateOfBirth", TypeKind::kDateOrNull}}) {
        EXPECT_EQ(member("Request", name).type.kind, type) << name;
    }
}

// A service that is registered but not described would be out of reach of every binding.
TEST(Interface, DescribesEveryRegisteredService) {
    for (const char* country : {"AU", "NZ"}) {
        ZRCreditBureau bureau;
        ASSERT_TRUE(bureau.Initialise(country));
        const Services& services = bureau.Services();
        for (const Service& service : services) {
            const std::string name = "Service" + std::string(service.ServiceName());
            ASSERT_NE(library().find(name), nullptr) << name;
            for (const Property<Service>& setting : service.settings()) {
                (void)member(name, setting.name);
            }
            for (const char* common : {"Application", "CodeTables", "Products", "Obsolete",
                                       "ServiceName", "ServiceNameFriendly", "Dispose"}) {
                (void)member(name, common);
            }
        }
    }
}

TEST(Interface, NamesEveryClassThatItHandsOut) {
    std::set<std::string_view> known = {"Object"};
    for (const Class& described : library().classes) {
        EXPECT_TRUE(known.insert(described.name).second) << described.name;
    }
    for (const Enumeration& enumeration : library().enumerations) {
        known.insert(enumeration.name);
    }
    for (const Class& described : library().classes) {
        for (const Member& row : described.members) {
            EXPECT_TRUE(row.type.name.empty() || known.contains(row.type.name)) << row.type.name;
        }
    }
}

TEST(Interface, GivesEveryMemberOfAClassItsOwnNameAndId) {
    for (const Class& described : library().classes) {
        std::set<std::string_view> names;
        std::set<std::int32_t> ids;
        for (const Member& row : described.members) {
            EXPECT_TRUE(names.insert(row.name).second) << described.name << "." << row.name;
            EXPECT_TRUE(ids.insert(row.dispatch_id).second) << described.name << "." << row.name;
            EXPECT_EQ(row.is_default(), row.name == "Item");
        }
    }
    EXPECT_EQ(member("Products", "NewEnum").dispatch_id, -4);
    EXPECT_EQ(member("Request", "ServiceName").dispatch_id, kFirstPropertyId);
}

TEST(Interface, LetsHostsCreateThreeClasses) {
    std::vector<std::string_view> creatable;
    for (const Class& described : library().classes) {
        if (described.creatable) {
            creatable.push_back(described.name);
        }
    }
    EXPECT_EQ(creatable,
              (std::vector<std::string_view>{"ZRCreditBureau", "ZRXMLBuilder", "ZRStringBuilder"}));
    EXPECT_EQ(library().name, "ZRCreditBureau5");
}

}  // namespace
}  // namespace zr::automation
