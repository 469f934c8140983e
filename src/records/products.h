// The product catalogue that a service publishes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "records/code_tables.h"
#include "records/collection.h"

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
    ProductOption(std::string_view id, std::string_view description, zreOptionType type)
        : option_id_(id), description_(description), option_type_(type) {}

    /// Unique within the product, in any letter case; the key of the request's option values.
    const std::string& OptionId() const { return option_id_; }
    /// Label to show; may be empty.
    const std::string& Description() const { return description_; }
    zreOptionType OptionType() const { return option_type_; }

  private:
    std::string option_id_;
    std::string description_;
    zreOptionType option_type_;
};

/// The options of a product, keyed by OptionId.
class ProductOptions : public KeyedCollection<ProductOption> {
  public:
    /// Component-internal. Raises the duplicate-key error for an id that is there already.
    ProductOption& AddOption(std::string_view id, std::string_view description, zreOptionType type);
};

/// A product of a service.
class Product {
  public:
    Product(std::string_view id, bool available, zreProductType type, bool individual)
        : product_id_(id), available_(available), product_type_(type), individual_(individual) {}

    /// Unique within the service, in any letter case.
    const std::string& ProductId() const { return product_id_; }
    /// Whether the product may be requested.
    bool Available() const { return available_; }
    zreProductType ProductType() const { return product_type_; }
    /// Whether the product is about a person; a company's answers false.
    bool Individual() const { return individual_; }
    bool Company() const { return !individual_; }
    /// Whether the bureau charges for it.
    bool Chargeable() const { return chargeable_; }
    /// Whether a company search can precede it.
    bool Listable() const { return listable_; }
    /// The request fields that it uses, as bracketed names: "[Employer][Suburb]".
    const std::string& RequestOptions() const { return request_options_; }
    /// A text to show before it is requested; empty when there is none.
    const std::string& Warning() const { return warning_; }
    const zr::ProductOptions& ProductOptions() const { return options_; }
    /// The product's code tables by name, for example "AccountTypes".
    const CodeTableCollection& CodeTables() const { return code_tables_; }

    // Component-internal: hosts see products as const.
    void Chargeable(bool chargeable) { chargeable_ = chargeable; }
    void Listable(bool listable) { listable_ = listable; }
    void RequestOptions(std::string_view options) { request_options_ = options; }
    void Warning(std::string_view warning) { warning_ = warning; }
    void Available(bool available) { available_ = available; }
    zr::ProductOptions& options() { return options_; }
    CodeTableCollection& code_tables() { return code_tables_; }

  private:
    std::string product_id_;
    bool available_;
    zreProductType product_type_;
    bool individual_;
    bool chargeable_ = false;
    bool listable_ = false;
    std::string request_options_;
    std::string warning_;
    zr::ProductOptions options_;
    CodeTableCollection code_tables_;
};

/// The products of a service, keyed by ProductId.
class Products : public KeyedCollection<Product> {
  public:
    /// Component-internal. Raises the duplicate-key error for an id that is there already.
    Product& AddProduct(std::string_view id, bool available, zreProductType type, bool individual);
};

}  // namespace zr
