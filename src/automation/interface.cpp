#include "automation/interface.h"

#include <algorithm>

#include "automation/describe.h"
#include "values/text.h"

namespace zr::automation {
namespace {

#define ZR_ENUMERATION_VALUE(Enumeration, Name) \
    EnumerationValue { #Name, static_cast < std::int32_t>(Enumeration::Name) }

constexpr EnumerationValue kProductTypes[] = {
    ZR_ENUMERATION_VALUE(zreProductType, zreProductTypeEnquiry),
    ZR_ENUMERATION_VALUE(zreProductType, zreProductTypeDefault),
};

constexpr EnumerationValue kOptionTypes[] = {
    ZR_ENUMERATION_VALUE(zreOptionType, zreOptionTypeGeneral),
    ZR_ENUMERATION_VALUE(zreOptionType, zreOptionTypeBoolean),
};

constexpr EnumerationValue kEncodeOptions[] = {
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsNone),
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsNonASCII),
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsLineFeeds),
};

template <class T>
const T* find_by_name(const std::vector<T>& items, std::string_view name) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const T& item) {
        return text::equal_ignoring_case(item.name, name);
    });
    return found == items.end() ? nullptr : &*found;
}

Library make_library() {
    Library made{.name = "ZRCreditBureau5",
                 .major_version = 1,
                 .minor_version = 0,
                 .classes = {},
                 .enumerations = {{"zreProductType", kProductTypes},
                                  {"zreOptionType", kOptionTypes},
                                  {"zreXMLBuilderEncodeOptions", kEncodeOptions}}};
    describe_facade(made.classes);
    describe_records(made.classes);
    describe_catalogue(made.classes);
    describe_xml(made.classes);
    describe_services(made.classes);
    return made;
}

}  // namespace

const Member* Class::find(std::string_view member_name) const {
    return find_by_name(members, member_name);
}

const Class* Library::find(std::string_view class_name) const {
    return find_by_name(classes, class_name);
}

Class make_class(std::string_view name, std::string_view meaning, std::vector<Member> rows) {
    std::int32_t next_id = 1;
    for (Member& row : rows) {
        if (row.name != "Item" && row.name != "NewEnum") {
            row.dispatch_id = next_id++;
        }
    }
    return {.name = name, .meaning = meaning, .creatable = false, .members = std::move(rows)};
}

const Library& library() {
    static const Library kLibrary = make_library();
    return kLibrary;
}

}  // namespace zr::automation
