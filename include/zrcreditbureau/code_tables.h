// Code tables: the bureau's codes and their descriptions, looked up in both directions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/collection.h"

namespace zr {

/// One row of a code table. Hosts may write both texts; what is looked up follows, ListCodes and
/// ListDescriptions stay as the table was built. Lives as long as its table.
class CodeTableItem {
  public:
    /// What the bureau sends and is sent.
    const std::string& Code() const { return code_; }
    void Code(TextArg code) const {
        code_ = code;
        *recoded_ = true;
    }
    /// What is shown for it, and written into a request.
    const std::string& Description() const { return description_; }
    void Description(TextArg description) const { description_ = description; }

  private:
    friend struct Component;
    CodeTableItem(std::string_view code, std::string_view description, bool* recoded)
        : code_(code), description_(description), recoded_(recoded) {}

    // The host's to write in a table that is const to it.
    mutable std::string code_;
    mutable std::string description_;
    bool* recoded_;  // the table's note that one of its codes was written
};

/// An ordered table of codes. Codes are keys, compared without regard to letter case, unless the
/// table allows the same code twice. Lives as long as the service that it came from.
class CodeTableItems {
  public:
    CodeTableItems(const CodeTableItems&) = delete;
    CodeTableItems& operator=(const CodeTableItems&) = delete;

    /// Whether a code may stand twice; the items then have no keys.
    bool AllowDuplicateCodes() const { return allow_duplicate_codes_; }

    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// The item at a 1-based position; raises the not-found error outside 1..Count.
    const CodeTableItem& Item(NumberArg position) const { return item_at(items_, position); }

    /// The item with this code; raises the not-found error when there is none, and always in a
    /// table that allows duplicate codes.
    const CodeTableItem& Item(TextArg code) const;

    /// The code of the first item whose description equals this one in any letter case;
    /// `default_code` when there is none. No blanks are trimmed.
    std::string GetCodeFromDescription(TextArg description, TextArg default_code = "") const;

    /// The description of the (first) item with this code in any letter case, "" when there is
    /// none. A view that is valid until that description is written.
    std::string_view GetDescriptionFromCode(TextArg code) const;

    /// The description as the table spells it, found in any letter case; "" when it is not in the
    /// table.
    std::string ValidateDescription(TextArg description) const;

    /// The codes, or the descriptions, in insertion order joined by commas, without any quoting.
    const std::string& ListCodes() const { return code_list_; }
    const std::string& ListDescriptions() const { return description_list_; }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

  private:
    friend struct Component;
    explicit CodeTableItems(bool allow_duplicate_codes)
        : allow_duplicate_codes_(allow_duplicate_codes) {}
    const CodeTableItem* find_code(std::string_view code) const;
    const CodeTableItem* find_description(std::string_view description) const;

    const bool allow_duplicate_codes_;
    std::vector<CodeTableItem> items_;
    KeyIndex index_;  // as they were added; of no use once a host has written a code
    bool recoded_ = false;
    std::string code_list_;
    std::string description_list_;
};

/// Code tables by table name.
using CodeTableCollection = KeyedCollection<CodeTableItems>;

}  // namespace zr
