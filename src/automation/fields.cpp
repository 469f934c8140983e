#include "automation/fields.h"

#include "records/property_rows.h"

namespace zr::automation {
namespace {

constexpr Property<ResponseElement> kResponseElementFields[] = {
    property<&ResponseElement::ResponseGroup>("ResponseGroup", "the section of the report"),
    property<&ResponseElement::ResponseGroupSort>("ResponseGroupSort",
                                                  "the section's number and name, to sort by"),
    property<&ResponseElement::ResponseSubGroup>("ResponseSubGroup", "the part of the section"),
    property<&ResponseElement::ResponseName>("ResponseName", "the line's label"),
    property<&ResponseElement::ResponseDescription>("ResponseDescription",
                                                    "the line's value, never empty"),
};

constexpr Property<CompanySelection> kCompanySelectionFields[] = {
    property<&CompanySelection::CompanyName>("CompanyName", "company name"),
    property<&CompanySelection::CompanyNumber>("CompanyNumber", "registration number"),
    property<&CompanySelection::CompanyStatus>("CompanyStatus", "registration status"),
    property<&CompanySelection::CompanyType>("CompanyType", "company type code"),
    property<&CompanySelection::CompanyTypeDescription>("CompanyTypeDescription",
                                                        "description of the type code"),
    property<&CompanySelection::RegistrationArea>("RegistrationArea",
                                                  "area or register of the registration"),
    property<&CompanySelection::BureauFileId>("BureauFileId",
                                              "the bureau's file number of the company"),
};

constexpr Property<Product> kProductFields[] = {
    property<&Product::ProductId>("ProductId", "unique within the service"),
    property<&Product::Available>("Available", "whether the product may be requested"),
    property<&Product::ProductType>("ProductType", "an enquiry, or the lodging of a default"),
    property<&Product::Individual>("Individual", "true for a product about a person"),
    property<&Product::Company>("Company", "true for a product about a company"),
    property<&Product::Chargeable>("Chargeable", "whether the bureau charges for it"),
    property<&Product::Listable>("Listable", "whether a company search can precede it"),
    property<&Product::RequestOptions>("RequestOptions", "the request fields it uses, in brackets"),
    property<&Product::Warning>("Warning", "a text to show before it is requested"),
};

constexpr Property<ProductOption> kProductOptionFields[] = {
    property<&ProductOption::OptionId>("OptionId", "unique within the product"),
    property<&ProductOption::Description>("Description", "label to show"),
    property<&ProductOption::OptionType>("OptionType", "a text, or on and off"),
};

constexpr Property<CodeTableItem> kCodeTableItemFields[] = {
    {.name = "Code",
     .type = ValueType::kText,
     .meaning = "the bureau's code",
     .enumeration = {},
     .secret = false,
     .read = [](const CodeTableItem& item) { return Value(std::string_view(item.Code())); },
     .write = [](CodeTableItem& item, const Value& value) { item.Code(text_of(value)); }},
    {.name = "Description",
     .type = ValueType::kText,
     .meaning = "what it stands for",
     .enumeration = {},
     .secret = false,
     .read = [](const CodeTableItem& item) { return Value(std::string_view(item.Description())); },
     .write = [](CodeTableItem& item, const Value& value) { item.Description(text_of(value)); }},
};

}  // namespace

std::span<const Property<ResponseElement>> response_element_properties() {
    return kResponseElementFields;
}
std::span<const Property<CompanySelection>> company_selection_properties() {
    return kCompanySelectionFields;
}
std::span<const Property<Product>> product_properties() { return kProductFields; }
std::span<const Property<ProductOption>> product_option_properties() {
    return kProductOptionFields;
}
std::span<const Property<CodeTableItem>> code_table_item_properties() {
    return kCodeTableItemFields;
}

}  // namespace zr::automation
