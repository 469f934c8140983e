#include "automation/fields.h"

#include <string>
#include <type_traits>

namespace zr::automation {
namespace {

template <class T>
Value field_value(T&& value) {
    if constexpr (std::is_enum_v<std::remove_cvref_t<T>>) {
        return static_cast<std::int32_t>(value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return std::forward<T>(value);  // computed: the value is its own
    } else if constexpr (std::is_convertible_v<T, std::string_view>) {
        return std::string_view(value);
    } else {
        return value;
    }
}

#define ZR_ROW(Record, Name, writable, meaning)                                                 \
    {                                                                                           \
#Name, type_of < decltype(std::declval <const Record&>().Name())>(), meaning, writable, \
            [](const Record& record) { return field_value(record.Name()); }                     \
    }

constexpr Field<ResponseElement> kResponseElementFields[] = {
    ZR_ROW(ResponseElement, ResponseGroup, false, "the section of the report"),
    ZR_ROW(ResponseElement, ResponseGroupSort, false, "the section's number and name, to sort by"),
    ZR_ROW(ResponseElement, ResponseSubGroup, false, "the part of the section"),
    ZR_ROW(ResponseElement, ResponseName, false, "the line's label"),
    ZR_ROW(ResponseElement, ResponseDescription, false, "the line's value, never empty"),
};

constexpr Field<CompanySelection> kCompanySelectionFields[] = {
    ZR_ROW(CompanySelection, CompanyName, false, "company name"),
    ZR_ROW(CompanySelection, CompanyNumber, false, "registration number"),
    ZR_ROW(CompanySelection, CompanyStatus, false, "registration status"),
    ZR_ROW(CompanySelection, CompanyType, false, "company type code"),
    ZR_ROW(CompanySelection, CompanyTypeDescription, false, "description of the type code"),
    ZR_ROW(CompanySelection, RegistrationArea, false, "area or register of the registration"),
    ZR_ROW(CompanySelection, BureauFileId, true, "the bureau's file number of the company"),
};

constexpr Field<Product> kProductFields[] = {
    ZR_ROW(Product, ProductId, false, "unique within the service"),
    ZR_ROW(Product, Available, false, "whether the product may be requested"),
    ZR_ROW(Product, ProductType, false, "an enquiry, or the lodging of a default"),
    ZR_ROW(Product, Individual, false, "true for a product about a person"),
    ZR_ROW(Product, Company, false, "true for a product about a company"),
    ZR_ROW(Product, Chargeable, false, "whether the bureau charges for it"),
    ZR_ROW(Product, Listable, false, "whether a company search can precede it"),
    ZR_ROW(Product, RequestOptions, false, "the request fields it uses, in brackets"),
    ZR_ROW(Product, Warning, false, "a text to show before it is requested"),
};

constexpr Field<ProductOption> kProductOptionFields[] = {
    ZR_ROW(ProductOption, OptionId, false, "unique within the product"),
    ZR_ROW(ProductOption, Description, false, "label to show"),
    ZR_ROW(ProductOption, OptionType, false, "a text, or on and off"),
};

constexpr Field<CodeTableItem> kCodeTableItemFields[] = {
    ZR_ROW(CodeTableItem, Code, true, "the bureau's code"),
    ZR_ROW(CodeTableItem, Description, true, "what it stands for"),
};

}  // namespace

std::span<const Field<ResponseElement>> response_element_fields() { return kResponseElementFields; }
std::span<const Field<CompanySelection>> company_selection_fields() {
    return kCompanySelectionFields;
}
std::span<const Field<Product>> product_fields() { return kProductFields; }
std::span<const Field<ProductOption>> product_option_fields() { return kProductOptionFields; }
std::span<const Field<CodeTableItem>> code_table_item_fields() { return kCodeTableItemFields; }

}  // namespace zr::automation
