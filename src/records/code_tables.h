// Code tables: the bureau's codes and their descriptions, looked up in both directions.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "records/collection.h"

namespace zr {

/// One row of a code table. Hosts may write both; what is looked up follows, ListCodes and
/// ListDescriptions stay as the table was built.
class CodeTableItem {
  public:
    /// `recoded` is the table's own note that one of its codes was written.
    CodeTableItem(std::string_view code, std::string_view description, bool* recoded)
        : code_(code), description_(description), recoded_(recoded) {}

    const std::string& Code() const { return code_; }
    void Code(std::string_view code) const {
        code_ = code;
        *recoded_ = true;
    }
    const std::string& Description() const { return description_; }
    void Description(std::string_view description) const { description_ = description; }

  private:
    // The host's to write in a table that is const to it.
    mutable std::string code_;
    mutable std::string description_;
    bool* recoded_;
};

/// A code and its description as data.
struct CodeRow {
    std::string_view code;
    std::string_view description;
};

/// An ordered table of codes. Codes are keys, compared without regard to letter case, unless the
/// table allows the same code twice.
class CodeTableItems {
  public:
    bool AllowDuplicateCodes() const { return allow_duplicate_codes_; }

    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// The item at a 1-based position; raises the not-found error outside 1..Count.
    const CodeTableItem& Item(std::int32_t position) const;

    /// The item with this code; raises the not-found error when there is none, and always in a
    /// table that allows duplicate codes, whose items have no keys.
    const CodeTableItem& Item(std::string_view code) const;

    /// The code of the first item whose description equals this one in any letter case;
    /// `default_code` when there is none. No blanks are trimmed.
    std::string GetCodeFromDescription(std::string_view description,
                                       std::string_view default_code = {}) const;

    /// The description of the (first) item with this code in any letter case, "" when there is
    /// none. The view lives as long as the table.
    std::string_view GetDescriptionFromCode(std::string_view code) const;

    /// The description as the table spells it, found in any letter case; "" when it is not in the
    /// table.
    std::string ValidateDescription(std::string_view description) const;

    /// The codes, or the descriptions, in insertion order joined by commas, without any quoting.
    const std::string& ListCodes() const { return code_list_; }
    const std::string& ListDescriptions() const { return description_list_; }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    // Component-internal: services build the tables.

    /// Set before items are added.
    void AllowDuplicateCodes(bool allow) { allow_duplicate_codes_ = allow; }

    /// Appends an item. Raises the duplicate-key error, adding nothing, for a code that is there
    /// already in a table that does not allow it.
    const CodeTableItem& AddItem(std::string_view code, std::string_view description);

    void add_rows(std::span<const CodeRow> rows);

  private:
    const CodeTableItem* find_code(std::string_view code) const;
    const CodeTableItem* find_description(std::string_view description) const;

    std::vector<CodeTableItem> items_;
    /// The first item with each code as it was added; of no use once a host has written a code.
    std::unordered_map<std::string, std::size_t, text::HashIgnoringCase, text::EqualIgnoringCase>
        positions_;
    std::unique_ptr<bool> recoded_ = std::make_unique<bool>(false);
    bool allow_duplicate_codes_ = false;
    std::string code_list_;
    std::string description_list_;
};

/// Code tables by table name.
using CodeTableCollection = KeyedCollection<CodeTableItems>;

/// Adds a table of rows to a collection under a name.
void add_code_table(CodeTableCollection& tables, std::string_view name,
                    std::span<const CodeRow> rows, bool allow_duplicate_codes = false);

}  // namespace zr
