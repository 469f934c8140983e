// The lines of a report while it is written.
#pragma once

#include <cstdint>
#include <string_view>

#include "records/text_arena.h"
#include "zrcreditbureau/response_elements.h"

namespace zr {

/// What ResponseElements is to the component: lines can be added.
class ReportLines final : public ResponseElements {
  public:
    /// Adds a line and returns it; a line with an empty description is not added, changes no
    /// counter and gives null. The texts are copied.
    const ResponseElement* AddElement(std::string_view group, std::string_view sub_group,
                                      std::string_view name, std::string_view description);

    /// As AddElement for a description that is not empty and texts that outlive the collection:
    /// constants, or what keep() returned.
    const ResponseElement* add_kept(std::string_view group, std::string_view sub_group,
                                    std::string_view name, std::string_view description);

    /// A copy of `value` that lives as long as the collection.
    std::string_view keep(std::string_view value) { return arena_.keep(value); }

  private:
    std::string_view last_group() const { return group_sort_.substr(digits_); }
    void begin_group(std::string_view group);

    TextArena arena_;
    std::int16_t group_number_ = 0;
    static constexpr std::string_view kNoGroup = "0000";  // and four digits at least
    std::uint8_t digits_ = kNoGroup.size();               ///< of the group's number
    std::string_view group_sort_ = kNoGroup;              ///< the group with its number
};

}  // namespace zr
