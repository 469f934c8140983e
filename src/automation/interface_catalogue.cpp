// Products, options and code tables as hosts see them.
#include "automation/describe.h"
#include "automation/fields.h"

namespace zr::automation {
namespace {

using Text = std::string_view;

template <class Collection>
Class keyed_class(std::string_view name, std::string_view meaning) {
    using C = const Collection;
    return make_class(name, meaning,
                      {ZR_READ_ONLY(C, Count, "number of items"),
                       ZR_OPERATION(C, Exists, "whether an item has this key",
                                    In<Text>{"Index", "a key in any letter case"}),
                       item_row<Collection>(), new_enum_row()});
}

Class product_class() {
    Class described = class_with("Product", "a product of a service", product_properties());
    const auto id = static_cast<std::int32_t>(described.members.size()) + 1;
    described.members.push_back(
        ZR_READ_ONLY(const Product, ProductOptions, "the product's options"));
    described.members.back().dispatch_id = id;
    described.members.push_back(
        ZR_READ_ONLY(const Product, CodeTables, "the product's code tables by name"));
    described.members.back().dispatch_id = id + 1;
    return described;
}

Class code_table_class() {
    using T = const CodeTableItems;
    return make_class(
        "CodeTableItems", "codes and their descriptions",
        {ZR_READ_ONLY(T, AllowDuplicateCodes, "whether a code may stand twice; then without keys"),
         ZR_OPERATION(T, Count, "number of items"), item_row<CodeTableItems>(), new_enum_row(),
         ZR_READ_ONLY(T, GetCodeFromDescription, "the code of a description in any letter case",
                      In<Text>{"Description", "what is looked for"},
                      In<Text>{"Default", "the result when it is not in the table", true, ""}),
         ZR_READ_ONLY(T, GetDescriptionFromCode, "the description of a code in any letter case",
                      In<Text>{"Code", "what is looked for"}),
         ZR_READ_ONLY(T, ValidateDescription, "a description as the table spells it",
                      In<Text>{"Description", "what is looked for"}),
         ZR_READ_ONLY(T, ListCodes, "the codes joined by commas"),
         ZR_READ_ONLY(T, ListDescriptions, "the descriptions joined by commas")});
}

Class code_tables_class() {
    using C = const CodeTableCollection;
    return make_class("CodeTables", "code tables by name",
                      {ZR_READ_ONLY(C, Count, "number of items"), item_row<CodeTableCollection>(),
                       new_enum_row()});
}

}  // namespace

void describe_catalogue(std::vector<Class>& classes) {
    classes.push_back(keyed_class<Products>("Products", "the products of a service by id"));
    classes.push_back(product_class());
    classes.push_back(
        keyed_class<ProductOptions>("ProductOptions", "the options of a product by id"));
    classes.push_back(
        class_with("ProductOption", "an option of a product", product_option_properties()));
    classes.push_back(code_table_class());
    classes.push_back(
        class_with("CodeTableItem", "one row of a code table", code_table_item_properties()));
    classes.push_back(code_tables_class());
}

}  // namespace zr::automation
