#include "cli/catalogue_text.h"

#include "cli/report_text.h"

namespace zr::cli {
namespace {

/// The names of the flags that hold, joined by commas.
std::string flags_of(const Product& product) {
    const struct {
        bool holds;
        std::string_view name;
    } rows[] = {
        {product.ProductType() == zreProductType::zreProductTypeEnquiry, "enquiry"},
        {product.ProductType() == zreProductType::zreProductTypeDefault, "default"},
        {product.Individual(), "person"},
        {product.Company(), "company"},
        {product.Chargeable(), "chargeable"},
        {product.Listable(), "company search first"},
        {!product.Available(), "not available"},
    };
    std::string flags;
    for (const auto& row : rows) {
        if (row.holds) {
            flags.append(flags.empty() ? "" : ", ").append(row.name);
        }
    }
    return flags;
}

void append_code_tables(std::string& text, const CodeTableCollection& tables, std::size_t indent) {
    for (std::int32_t position = 1; position <= tables.Count(); ++position) {
        text.append(indent, ' ') += "Code table " + tables.Key(position) + "\n";
        AlignedLines lines(indent + 2);
        for (const CodeTableItem& item : tables.Item(position)) {
            lines.add(item.Code(), item.Description());
        }
        lines.append_to(text);
    }
}

void append_product(std::string& text, const Product& product) {
    text += "\n  " + product.ProductId() + "\n";
    AlignedLines lines(4);
    lines.add("Kind", flags_of(product));
    if (!product.RequestOptions().empty()) {
        lines.add("Fields", product.RequestOptions());
    }
    if (!product.Warning().empty()) {
        lines.add("Warning", product.Warning());
    }
    for (const ProductOption& option : product.ProductOptions()) {
        const bool boolean = option.OptionType() == zreOptionType::zreOptionTypeBoolean;
        lines.add("Option " + option.OptionId() + (boolean ? "" : "=TEXT"), option.Description());
    }
    lines.append_to(text);
    append_code_tables(text, product.CodeTables(), 4);
}

}  // namespace

std::string catalogue_text(const ZRCreditBureau& bureau) {
    std::string text = "Country " + bureau.Country() + "\n";
    const Services& services = bureau.Services();
    for (const Service& service : services) {
        text.append("\n").append(service.ServiceName()).append(": ");
        text.append(service.ServiceNameFriendly());
        text += service.Obsolete() ? " (obsolete)\n" : "\n";
        for (const Product& product : service.Products()) {
            append_product(text, product);
        }
        text += "\n";
        append_code_tables(text, service.CodeTables(), 2);
    }
    return text;
}

}  // namespace zr::cli
