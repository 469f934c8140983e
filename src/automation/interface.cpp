#include "automation/interface.h"

#include <algorithm>
#include <memory>
#include <string>

#include "automation/describe.h"
#include "automation/invoke.h"

namespace zr::automation {
namespace {

#define ZR_ENUMERATION_VALUE(Enumeration, Name, meaning) \
    EnumerationValue { #Name, static_cast < std::int32_t>(Enumeration::Name), meaning }

constexpr EnumerationValue kProductTypes[] = {
    ZR_ENUMERATION_VALUE(zreProductType, zreProductTypeEnquiry, "retrieves a report"),
    ZR_ENUMERATION_VALUE(zreProductType, zreProductTypeDefault,
                         "concerns the lodging of a default"),
};

constexpr EnumerationValue kOptionTypes[] = {
    ZR_ENUMERATION_VALUE(zreOptionType, zreOptionTypeGeneral, "carries a text"),
    ZR_ENUMERATION_VALUE(zreOptionType, zreOptionTypeBoolean, "is on or off"),
};

constexpr EnumerationValue kEncodeOptions[] = {
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsNone,
                         "leaves the text as it stands"),
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsNonASCII,
                         "characters beyond ASCII become references"),
    ZR_ENUMERATION_VALUE(zreXMLBuilderEncodeOptions, zreXMLBuilderEncodeOptionsLineFeeds,
                         "line breaks become references"),
};

constexpr std::string_view kTypeKindNames[] = {"nothing", "text",     "boolean",     "int16",
                                               "int32",   "currency", "date",        "date-or-null",
                                               "index",   "object",   "enumeration", "enumerator"};

constexpr std::string_view kMemberKindNames[] = {"operation", "read", "read-write", "write"};

constexpr char folded(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::string_view type_kind_name(TypeKind kind) {
    return kTypeKindNames[static_cast<std::size_t>(kind)];
}

std::string_view member_kind_name(MemberKind kind) {
    return kMemberKindNames[static_cast<std::size_t>(kind)];
}

std::size_t NameHash::operator()(std::string_view name) const {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(folded(letter))) * 1099511628211U;
    }
    return hash;
}

bool SameName::operator()(std::string_view left, std::string_view right) const {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return folded(a) == folded(b); });
}

const Member* Class::find(std::string_view member_name) const {
    const auto found = by_name_.find(member_name);
    return found == by_name_.end() ? nullptr : found->second;
}

const Member* Class::find(std::int32_t id) const {
    const bool listed = id >= kFirstPropertyId;
    const std::vector<const Member*>& members_by_id = listed ? properties_by_id_ : by_id_;
    const auto place =
        static_cast<std::size_t>(std::int64_t{id} - (listed ? kFirstPropertyId : kNewEnumId));
    return place < members_by_id.size() ? members_by_id[place] : nullptr;
}

void Class::index() {
    for (const Member& member : members) {
        const bool listed = member.dispatch_id >= kFirstPropertyId;
        std::vector<const Member*>& members_by_id = listed ? properties_by_id_ : by_id_;
        const auto place =
            static_cast<std::size_t>(member.dispatch_id - (listed ? kFirstPropertyId : kNewEnumId));
        members_by_id.resize(std::max(members_by_id.size(), place + 1));
        members_by_id[place] = &member;
        by_name_.emplace(member.name, &member);
    }
}

Library::Library()
    : enumerations{{"zreProductType", "what a product is for", kProductTypes},
                   {"zreOptionType", "what an option carries", kOptionTypes},
                   {"zreXMLBuilderEncodeOptions", "flags of the encoding step", kEncodeOptions}} {
    describe_facade(classes);
    describe_records(classes);
    describe_catalogue(classes);
    describe_xml(classes);
    describe_services(classes);
    for (Class& described : classes) {
        for (Member& member : described.members) {
            member.item_class = member.item_at != nullptr ? find(member.type.name) : nullptr;
        }
        described.index();
    }
}

const Class* Library::find(std::string_view class_name) const {
    if (class_name.size() > name.size() && class_name[name.size()] == '.' &&
        SameName()(class_name.substr(0, name.size()), name)) {
        class_name.remove_prefix(name.size() + 1);
    }
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const Class& described) {
        return SameName()(described.name, class_name);
    });
    return found == classes.end() ? nullptr : &*found;
}

Class make_class(std::string_view name, std::string_view meaning, std::vector<Member> rows) {
    std::int32_t next_id = 1;
    for (Member& row : rows) {
        if (row.name != "Item" && row.name != "NewEnum") {
            row.dispatch_id = next_id++;
        }
    }
    Class made;
    made.name = name;
    made.meaning = meaning;
    made.members = std::move(rows);
    return made;
}

Member new_enum_row() {
    return {.name = "NewEnum",
            .kind = MemberKind::kReadOnly,
            .dispatch_id = kNewEnumId,
            .type = {TypeKind::kEnumerator},
            .arguments = {},
            .meaning = "walks over the items in order",
            .read = [](const Object& self, const void*, std::span<Variant>) -> Variant {
                return walk_over(self);
            }};
}

const Class& class_of_service(const Service& service) {
    return *library().find("Service" + std::string(service.ServiceName()));
}

const Object& needed_object(const Variant& value) {
    const auto& object = std::get<Object>(value);
    if (!object) {
        throw InvocationError(Misuse::kWrongType, "An object is needed.");
    }
    return object;
}

Variant from_property(const Value& value, ValueType type) {
    if (const auto* number = std::get_if<std::int32_t>(&value);
        number != nullptr && type == ValueType::kCount) {
        return static_cast<std::int16_t>(*number);
    }
    return std::visit([](const auto& held) { return Variant(held); }, value);
}

Value to_property(const Variant& value) {
    return std::visit(
        [](const auto& held) -> Value {
            if constexpr (std::is_constructible_v<Value, decltype(held)>) {
                return held;
            } else {
                throw std::bad_variant_access();  // values of a property's type are none of these
            }
        },
        value);
}

const Library& library() {
    static const Library kLibrary;
    return kLibrary;
}

}  // namespace zr::automation
