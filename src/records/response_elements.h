// The bureau's report flattened into labelled lines.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "records/text_arena.h"

namespace zr {

/// One line of a report. Its texts are views that live as long as the collection it came from.
class ResponseElement {
  public:
    /// The section of the report.
    std::string_view ResponseGroup() const { return group_; }
    /// The group's sequence number, at least four digits, followed by the group: "0003Defaults".
    /// Groups sort by it in the order in which the report met them.
    std::string ResponseGroupSort() const;
    std::string_view ResponseSubGroup() const { return sub_group_; }
    /// The line's label.
    std::string_view ResponseName() const { return name_; }
    /// The line's value; never empty.
    std::string_view ResponseDescription() const { return description_; }

  private:
    friend class ResponseElements;
    std::string_view group_;
    std::string_view sub_group_;
    std::string_view name_;
    std::string_view description_;
    std::int16_t group_number_ = 0;
};

/// The lines of a report in the order of adding.
class ResponseElements {
  public:
    std::int32_t Count() const { return static_cast<std::int32_t>(count_); }

    /// The line at a 1-based position; raises the not-found error outside 1..Count.
    const ResponseElement& Item(std::int32_t position) const;

    class Iterator {
      public:
        Iterator(const ResponseElements* lines, std::size_t at) : lines_(lines), at_(at) {}
        const ResponseElement& operator*() const { return lines_->at(at_); }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

      private:
        const ResponseElements* lines_;
        std::size_t at_;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, count_}; }

    // Component-internal: hosts see the lines as const.

    /// Adds a line and returns it; a line with an empty description is not added, changes no
    /// counter and gives null. The texts are copied.
    const ResponseElement* AddElement(std::string_view group, std::string_view sub_group,
                                      std::string_view name, std::string_view description);

    /// As AddElement for texts that outlive the collection: constants, or what keep() returned.
    const ResponseElement* add_kept(std::string_view group, std::string_view sub_group,
                                    std::string_view name, std::string_view description);

    /// A copy of `value` that lives as long as the collection.
    std::string_view keep(std::string_view value) { return arena_.keep(value); }

  private:
    static constexpr std::size_t kBlockShift = 9;
    static constexpr std::size_t kBlockLines = std::size_t{1} << kBlockShift;

    const ResponseElement& at(std::size_t index) const {
        return blocks_[index >> kBlockShift][index & (kBlockLines - 1)];
    }

    TextArena arena_;
    std::vector<std::unique_ptr<ResponseElement[]>> blocks_;
    std::size_t count_ = 0;
    std::int16_t group_number_ = 0;
    std::string_view last_group_;
};

}  // namespace zr
