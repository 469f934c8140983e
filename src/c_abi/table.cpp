#include "c_abi/table.h"

#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "automation/invoke.h"
#include "values/convert.h"

namespace zr::c_abi {
namespace {

using automation::InvocationError;
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

void append(std::string& bytes, const Variant& value) {
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
            } else if constexpr (std::is_same_v<Held, double>) {
                bytes += convert::to_text(held);
            } else if constexpr (std::is_integral_v<Held>) {
                bytes += std::to_string(held);
            } else if constexpr (std::is_same_v<Held, Object>) {
                throw InvocationError(Misuse::kWrongType, "A column's values are objects.");
            }
        },
        value);
}

}  // namespace

Object read_table(const Object& collection, std::span<const std::int32_t> ids, zr_table& table) {
    auto read = std::make_shared<Table>();
    automation::Walk items(collection);
    std::size_t rows = 0;
    for (Variant item; items.next(item); ++rows) {
        const Object& object = std::get<Object>(item);
        for (const std::int32_t id : ids) {
            append(read->bytes, automation::read(object, automation::member_of(object, id), {}));
            read->offsets.push_back(read->bytes.size());
        }
    }
    table = {rows, ids.size(), read->offsets.data(), read->bytes.data()};
    return {table_class(), read};
}

}  // namespace zr::c_abi
