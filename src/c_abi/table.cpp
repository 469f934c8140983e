#include "c_abi/table.h"

#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "automation/invoke.h"

namespace zr::c_abi {
namespace {

using automation::InvocationError;
using automation::Member;
using automation::Misuse;
using automation::Object;
using automation::Variant;

struct Table {
    std::vector<std::size_t> offsets = {0};
    std::string bytes;
};

const automation::Class& table_class() {
    static const automation::Class kClass = [] {
        automation::Class made;
        made.name = "Table";
        return made;
    }();
    return kClass;
}

void append(std::string& bytes, const Value& value) {
    if (const auto* view = std::get_if<std::string_view>(&value)) {
        bytes += *view;  // most are
        return;
    }
    std::visit(
        [&bytes](const auto& held) {
            using Held = std::remove_cvref_t<decltype(held)>;
            if constexpr (std::is_convertible_v<Held, std::string_view>) {
                bytes += held;
            } else if constexpr (std::is_same_v<Held, bool>) {
                bytes += held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, Currency>) {
                bytes += held.to_fixed4();
            } else if constexpr (std::is_same_v<Held, DateTime>) {
                bytes += held.to_iso();
            } else if constexpr (std::is_same_v<Held, std::int32_t>) {
                bytes += std::to_string(held);
            }
        },
        value);
}

}  // namespace

Object read_table(const Object& collection, std::span<const std::int32_t> ids, zr_table& table) {
    const Member& item = automation::member_of(collection, automation::kDefaultMemberId);
    if (item.item_at == nullptr) {
        throw InvocationError(Misuse::kWrongType, "The items have no class of their own.");
    }
    std::vector<const Member*> columns;
    for (const std::int32_t id : ids) {
        const Member* const member = item.item_class->find(id);
        if (member == nullptr || member->peek == nullptr) {
            throw InvocationError(Misuse::kUnknownMember,
                                  "The items have no property of this number.");
        }
        columns.push_back(member);
    }
    const Variant count =
        automation::read(collection, automation::member_of(collection, "Count"), {});
    const auto rows = static_cast<std::size_t>(std::get<std::int32_t>(count));
    auto read = std::make_shared<Table>();
    read->offsets.reserve(rows * columns.size() + 1);
    constexpr std::size_t kUsualText = 16;
    read->bytes.reserve(rows * columns.size() * kUsualText);
    for (std::size_t row = 1; row <= rows; ++row) {
        const void* const record = item.item_at(collection, static_cast<std::int32_t>(row));
        for (const Member* const column : columns) {
            append(read->bytes, column->peek(record, column->property));
            read->offsets.push_back(read->bytes.size());
        }
    }
    table = {rows, columns.size(), read->offsets.data(), read->bytes.data()};
    return {table_class(), read};
}

}  // namespace zr::c_abi
