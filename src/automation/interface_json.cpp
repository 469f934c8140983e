#include "automation/interface_json.h"

#include "automation/interface.h"

namespace zr::automation {
namespace {

void write_text(JsonWriter& json, std::string_view name, std::string_view text) {
    json.name(name);
    json.text(text);
}

template <class Items, class WriteItem>
void write_array(JsonWriter& json, std::string_view name, const Items& items,
                 WriteItem write_item) {
    json.name(name);
    json.begin_array();
    for (const auto& item : items) {
        json.begin_object();
        write_text(json, "name", item.name);
        write_item(item);
        write_text(json, "meaning", item.meaning);
        json.end_object();
    }
    json.end_array();
}

void write_type(JsonWriter& json, const Type& type) {
    write_text(json, "type", type_kind_name(type.kind));
    if (!type.name.empty()) {
        write_text(json, "of", type.name);
    }
}

void write_argument(JsonWriter& json, const Argument& argument) {
    write_type(json, argument.type);
    json.name("optional");
    json.boolean(argument.optional);
    if (argument.optional) {
        write_text(json, "default", argument.default_value);
    }
}

void write_member(JsonWriter& json, const Member& member) {
    json.name("id");
    json.number(member.dispatch_id);
    write_text(json, "kind", member_kind_name(member.kind));
    write_type(json, member.type);
    json.name("mayBeNone");
    json.boolean(member.type.may_be_none);
    json.name("raises");
    json.begin_array();
    if (member.raises != 0) {
        json.number(member.raises);
    }
    json.end_array();
    write_array(json, "arguments", member.arguments,
                [&](const Argument& argument) { write_argument(json, argument); });
}

}  // namespace

void write_interface(JsonWriter& json) {
    json.begin_object();
    write_text(json, "name", library().name);
    write_text(json, "version", library().version);
    write_array(json, "classes", library().classes, [&](const Class& described) {
        json.name("creatable");
        json.boolean(described.create != nullptr);
        write_array(json, "members", described.members,
                    [&](const Member& member) { write_member(json, member); });
    });
    write_array(json, "enumerations", library().enumerations, [&](const Enumeration& enumeration) {
        write_array(json, "values", enumeration.values, [&](const EnumerationValue& value) {
            json.name("value");
            json.number(value.value);
        });
    });
    json.end_object();
}

}  // namespace zr::automation
