// The records' JSON form written, from the same rows that describe the interface.
#include "automation/fields.h"
#include "automation/json_form.h"

namespace zr::automation {
namespace {

template <class Record>
void write_properties(JsonWriter& json, std::span<const Property<Record>> properties,
                      const Record& record) {
    for (const Property<Record>& property : properties) {
        json.name(property.name);
        json.value(property.read(record));
    }
}

/// A collection of records of plain fields as an array under a name.
template <class Record, class Collection>
void write_array(JsonWriter& json, std::string_view name,
                 std::span<const Property<Record>> properties, const Collection& collection) {
    json.name(name);
    json.begin_array();
    for (const Record& record : collection) {
        json.begin_object();
        write_properties(json, properties, record);
        json.end_object();
    }
    json.end_array();
}

void write_code_tables(JsonWriter& json, const CodeTableCollection& tables) {
    json.name("CodeTables");
    json.begin_array();
    for (std::int32_t position = 1; position <= tables.Count(); ++position) {
        const CodeTableItems& table = tables.Item(position);
        json.begin_object();
        json.name("Name");
        json.text(tables.Key(position));
        json.name("AllowDuplicateCodes");
        json.boolean(table.AllowDuplicateCodes());
        write_array(json, "Items", code_table_item_properties(), table);
        json.end_object();
    }
    json.end_array();
}

void write_product(JsonWriter& json, const Product& product) {
    json.begin_object();
    write_properties(json, product_properties(), product);
    write_array(json, "ProductOptions", product_option_properties(), product.ProductOptions());
    write_code_tables(json, product.CodeTables());
    json.end_object();
}

void write_service(JsonWriter& json, const Service& service) {
    json.begin_object();
    json.name("ServiceName");
    json.text(service.ServiceName());
    json.name("ServiceNameFriendly");
    json.text(service.ServiceNameFriendly());
    json.name("Obsolete");
    json.boolean(service.Obsolete());
    json.name("Products");
    json.begin_array();
    for (const Product& product : service.Products()) {
        write_product(json, product);
    }
    json.end_array();
    write_code_tables(json, service.CodeTables());
    json.end_object();
}

}  // namespace

ResponseFields ResponseFields::all() {
    ResponseFields fields{{}, true, true};
    for (const Property<Response>& property : response_properties()) {
        fields.properties.push_back(&property);
    }
    return fields;
}

void write_response(JsonWriter& json, const Response& response, const ResponseFields& fields) {
    json.begin_object();
    for (const Property<Response>* const property : fields.properties) {
        json.name(property->name);
        json.value(property->read(response));
    }
    if (fields.elements) {
        write_array(json, "ResponseElements", response_element_properties(),
                    response.ResponseElements());
    }
    if (fields.selections) {
        write_array(json, "CompanySelections", company_selection_properties(),
                    response.CompanySelections());
    }
    json.end_object();
}

void write_catalogue(JsonWriter& json, const ZRCreditBureau& bureau) {
    json.begin_object();
    json.name("Country");
    json.text(bureau.Country());
    json.name("Services");
    json.begin_array();
    for (const Service& service : bureau.Services()) {
        write_service(json, service);
    }
    json.end_array();
    json.end_object();
}

}  // namespace zr::automation
