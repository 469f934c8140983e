#include "automation/interface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "automation/interface_json.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::automation {
namespace {

std::string text_of(const Type& type) {
    return std::string(type.name.empty() ? type_kind_name(type.kind) : type.name) +
           (type.may_be_none ? "?" : "");
}

/// A member as one line: "Request 6 operation Clear([ClearAll boolean=True]) nothing".
std::string signature(const Class& described, const Member& row) {
    std::string text = std::string(described.name) + " " + std::to_string(row.dispatch_id) + " " +
                       std::string(member_kind_name(row.kind)) + " " + std::string(row.name) + "(";
    for (const Argument& argument : row.arguments) {
        text += text.ends_with('(') ? "" : ", ";
        text += argument.optional ? "[" : "";
        text += std::string(argument.name) + " " + text_of(argument.type);
        text += argument.optional ? "=" + std::string(argument.default_value) + "]" : "";
    }
    return text + ") " + text_of(row.type) +
           (row.raises != 0 ? " raises " + std::to_string(row.raises) : "");
}

std::vector<std::string> described_lines() {
    std::vector<std::string> lines;
    for (const Class& described : library().classes) {
        for (const Member& row : described.members) {
            lines.push_back(signature(described, row));
        }
    }
    for (const Enumeration& enumeration : library().enumerations) {
        for (const EnumerationValue& value : enumeration.values) {
            lines.push_back(std::string(enumeration.name) + " " + std::to_string(value.value) +
                            " value " + std::string(value.name));
        }
    }
    return lines;
}

// What hosts are promised for ever: names, ids, types, order. New members have their line appended
// to those of their class; a line that is there neither changes nor goes.
TEST(Interface, IsWhatWasPromised) {
    std::ifstream file(ZR_TEST_DATA "/automation/promised_interface.txt");
    std::vector<std::string> promised;
    for (std::string line; std::getline(file, line);) {
        promised.push_back(line);
    }
    const std::vector<std::string> described = described_lines();
    for (std::size_t i = 0; i < std::max(promised.size(), described.size()); ++i) {
        ASSERT_EQ(i < described.size() ? described[i] : "", i < promised.size() ? promised[i] : "")
            << "line " << i + 1;
    }
}

// A service that is registered but not described would be out of reach of every binding.
TEST(Interface, DescribesEveryRegisteredService) {
    for (const char* country : {"AU", "NZ"}) {
        ZRCreditBureau bureau;
        ASSERT_TRUE(bureau.Initialise(country));
        for (const Service& service : bureau.Services()) {
            const std::string name = "Service" + std::string(service.ServiceName());
            const Class* described = library().find(name);
            ASSERT_NE(described, nullptr) << name;
            for (const Property<Service>& setting : service.settings()) {
                EXPECT_NE(described->find(setting.name), nullptr) << name << setting.name;
            }
        }
    }
}

TEST(Interface, IsWholeAndWithoutDoubles) {
    std::set<std::string_view> known = {"Object"};
    for (const Class& described : library().classes) {
        EXPECT_TRUE(known.insert(described.name).second) << described.name;
    }
    for (const Enumeration& enumeration : library().enumerations) {
        known.insert(enumeration.name);
    }
    for (const Class& described : library().classes) {
        std::set<std::string_view> names;
        std::set<std::int32_t> ids;
        EXPECT_FALSE(described.meaning.empty()) << described.name;
        for (const Member& row : described.members) {
            const std::string name = std::string(described.name) + "." + std::string(row.name);
            EXPECT_TRUE(names.insert(row.name).second) << name;
            EXPECT_TRUE(ids.insert(row.dispatch_id).second) << name;
            EXPECT_TRUE(row.type.name.empty() || known.contains(row.type.name)) << name;
            EXPECT_EQ(row.is_default(), row.name == "Item");
            EXPECT_EQ(described.find(row.dispatch_id), &row) << name;
            EXPECT_EQ(row.read == nullptr, row.kind == MemberKind::kWriteOnly) << name;
            EXPECT_EQ(row.write == nullptr,
                      row.kind != MemberKind::kWriteOnly && row.kind != MemberKind::kReadWrite)
                << name;
            EXPECT_FALSE(row.meaning.empty()) << name;
            for (const Argument& argument : row.arguments) {
                EXPECT_FALSE(argument.meaning.empty()) << name << argument.name;
            }
        }
    }
}

TEST(Interface, IsToldAsJson) {
    JsonWriter json;
    write_interface(json);
    const JsonValue told = parse_json(json.view());
    ASSERT_EQ(told.find("classes")->items().size(), library().classes.size());
    const JsonValue& request = told.find("classes")->items()[2];
    EXPECT_EQ(request.find("name")->text(), "Request");
    const JsonValue& clear = request.find("members")->items()[5];
    const JsonValue& argument = clear.find("arguments")->items()[0];
    EXPECT_EQ(clear.find("kind")->text(), "operation");
    EXPECT_EQ(argument.find("name")->text(), "ClearAll");
    EXPECT_EQ(argument.find("type")->text(), "boolean");
    EXPECT_EQ(argument.find("default")->text(), "True");
}

}  // namespace
}  // namespace zr::automation
