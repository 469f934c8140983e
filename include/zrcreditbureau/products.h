// The product catalogue that a service publishes. All of it lives as long as its service.
#pragma once

#include <cstdint>
#include <string>

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/collection.h"
#include "zrcreditbureau/property.h"

namespace zr {

enum class zreProductType : std::int32_t {
    zreProductTypeEnquiry = 0,  ///< retrieves a report
    zreProductTypeDefault = 1,  ///< concerns the lodging of a default
};

enum class zreOptionType : std::int32_t {
    zreOptionTypeGeneral = 0,  ///< carries a text: Request.OptionValue
    zreOptionTypeBoolean = 1,  ///< on or off: Request.OptionChecked
};

/// An option of a product.
class ProductOption {
  public:
    /// Unique within the product, in any letter case; the key of the request's option values.
    ReadOnly<std::string> OptionId;
    /// Label to show; may be empty.
    ReadOnly<std::string> Description;
    ReadOnly<zreOptionType> OptionType;

  private:
    friend struct Component;
    ProductOption() = default;
};

/// The options of a product, keyed by OptionId.
class ProductOptions : public KeyedCollection<ProductOption> {
    friend class Product;
    ProductOptions() = default;
};

/// A product of a service.
class Product {
  public:
    /// Unique within the service, in any letter case; goes into Request.ProductId.
    ReadOnly<std::string> ProductId;
    /// Whether the product may be requested.
    ReadOnly<bool> Available;
    ReadOnly<zreProductType> ProductType;
    /// Whether the product is about a person, or else about a company.
    ReadOnly<bool> Individual;
    bool Company() const { return !Individual(); }
    /// Whether the bureau charges for it.
    ReadOnly<bool> Chargeable;
    /// Whether a company search can precede it.
    ReadOnly<bool> Listable;
    /// The request's properties that it uses, as bracketed names: "[Employer][Suburb]".
    ReadOnly<std::string> RequestOptions;
    /// A text to show before it is requested; empty when there is none.
    ReadOnly<std::string> Warning;

    const zr::ProductOptions& ProductOptions() const { return options_; }
    /// The product's code tables by name, for example "AccountTypes".
    const CodeTableCollection& CodeTables() const { return code_tables_; }

  private:
    friend struct Component;
    struct Tables : CodeTableCollection {};
    Product() = default;

    zr::ProductOptions options_;
    Tables code_tables_;
};

/// The products of a service, keyed by ProductId.
class Products : public KeyedCollection<Product> {
    friend struct Component;
    Products() = default;
};

}  // namespace zr
