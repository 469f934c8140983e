// The bureau's report flattened into labelled lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "zrcreditbureau/collection.h"

namespace zr {

/// One line of a report. Its texts are views that live as long as the Response it came from; so do
/// those of a copy.
class ResponseElement {
  public:
    /// The section of the report.
    std::string_view ResponseGroup() const { return group_sort_.substr(digits_); }
    /// The group's sequence number, at least four digits, followed by the group: "0003Defaults".
    /// Groups sort by it in the order in which the report met them.
    std::string_view ResponseGroupSort() const { return group_sort_; }
    /// The part of the section, for example one record of several; may be empty.
    std::string_view ResponseSubGroup() const { return sub_group_; }
    /// The line's label.
    std::string_view ResponseName() const { return name_; }
    /// The line's value; never empty.
    std::string_view ResponseDescription() const { return description_; }

  private:
    friend class ReportLines;
    ResponseElement() = default;
    std::string_view group_sort_;
    std::string_view sub_group_;
    std::string_view name_;
    std::string_view description_;
    std::uint8_t digits_ = 0;  // of the group's number
};

/// The lines of a report in their order. Lives as long as its Response.
class ResponseElements {
  public:
    using Iterator = PositionIterator<ResponseElements, const ResponseElement>;

    ResponseElements(const ResponseElements&) = delete;
    ResponseElements& operator=(const ResponseElements&) = delete;

    std::int32_t Count() const { return static_cast<std::int32_t>(count_); }

    /// The line at a 1-based position; raises the not-found error outside 1..Count.
    const ResponseElement& Item(NumberArg position) const;

    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, count_}; }

  private:
    friend class ReportLines;
    friend Iterator;
    static constexpr std::size_t kBlockShift = 9;
    static constexpr std::size_t kBlockLines = std::size_t{1} << kBlockShift;

    ResponseElements() = default;
    const ResponseElement& at_index(std::size_t index) const {
        return blocks_[index >> kBlockShift][index & (kBlockLines - 1)];
    }

    std::vector<std::unique_ptr<ResponseElement[]>> blocks_;
    std::size_t count_ = 0;
};

}  // namespace zr
