// What the component itself may do with the records that hosts only read.
#pragma once

#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "records/report_lines.h"
#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/company_selections.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/products.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/response.h"

namespace zr {

/// A code and its description as data.
struct CodeRow {
    std::string_view code;
    std::string_view description;
};

struct Component {
    template <class T, class V>
    static void set(ReadOnly<T>& property, V&& value) {
        property.value_ = std::forward<V>(value);
    }
    /// An empty value, which tells nobody that it changed.
    template <class K>
    static void forget(Writable<K>& property) {
        property.value_ = {};
    }
    template <class K>
    static bool& changed(Writable<K>& property) {
        return property.changed_;
    }

    /// An object that hosts cannot make.
    template <class T, class... Arguments>
    static std::shared_ptr<T> make(Arguments&&... arguments) {
        return std::shared_ptr<T>(new T(std::forward<Arguments>(arguments)...));
    }
    static std::unique_ptr<Request> make_request() {
        return std::unique_ptr<Request>(new Request());
    }

    static void Dirty(Request& request, bool dirty);
    /// Takes the document, which has passwords, without leaving a copy.
    static void RequestXML(Request& request, std::string&& xml) {
        set(request.RequestXML, std::move(xml));
    }
    /// Attaches a new response, as it is before the reply is read: Individual, its ResponseDate
    /// now, its DateOfBirth an empty text. What the host holds of the one before stays.
    static Response& new_response(Request& request);
    /// The attached response, to be filled.
    static Response& response(Request& request) {
        return const_cast<Response&>(*request.response_);  // new_response made it
    }

    static FamilyStatistics& statistics(Response& response, RecordFamily family) {
        return response.families_[static_cast<std::size_t>(family)];
    }
    static ReportLines& lines(Response& response) {
        return static_cast<ReportLines&>(*response.elements_);
    }
    static CompanySelections& selections(Response& response) { return *response.selections_; }
    /// Appends a candidate that is empty.
    static CompanySelection& add(CompanySelections& selections) {
        return selections.items_.emplace_back();
    }

    /// Appends an item under a key; raises the duplicate-key error, adding nothing, when the key is
    /// taken.
    template <class T>
    static T& add(KeyedCollection<T>& collection, std::string_view key, std::shared_ptr<T> item) {
        if (!collection.index_.add(key, collection.items_.size())) {
            raise_duplicate_key();
        }
        collection.keys_.emplace_back(key);
        collection.items_.push_back(std::move(item));
        return *collection.items_.back();
    }
    /// Appends an item. Raises the duplicate-key error, adding nothing, for a code that is there
    /// already in a table that does not allow it.
    static const CodeTableItem& add(CodeTableItems& table, CodeRow row);
    static void add(CodeTableCollection& tables, std::string_view name,
                    std::span<const CodeRow> rows, bool allow_duplicate_codes = false);
    static ProductOption& add(ProductOptions& options, std::string_view id,
                              std::string_view description, zreOptionType type);
    static Product& add(Products& products, std::string_view id, bool available,
                        zreProductType type, bool individual);
    static ProductOptions& options(Product& product) { return product.options_; }
    static CodeTableCollection& code_tables(Product& product) { return product.code_tables_; }

  private:
    [[noreturn]] static void raise_duplicate_key();
};

}  // namespace zr
