// What a check notes while a reply is translated.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "checks/reply_check.h"
#include "reports/report_watch.h"
#include "services/report_definition.h"

namespace zr {

/// A value of the reply: an element's text, or an attribute of it.
struct ReadValue {
    XmlNode node{};
    XmlNameId attribute = 0;  ///< 0: the text

    bool operator==(const ReadValue&) const = default;
};

class ReplyCheck::Watch final : public ReportWatch {
  public:
    explicit Watch(Depth depth) : explains_(depth == Depth::kExplanation) {}

    /// Before the first reply: what the translator that tells this watch was made of.
    void set_translator(const Translator& translator);

    /// Forgets a report that came to no end.
    void leave() { response_ = nullptr; }

    void begin_report(const Response& response) override;
    void end_report() override;
    void read(XmlNode context, const XmlPath* path, XmlNode found, XmlNameId attribute) override;
    void begin(const layout::Piece& piece, XmlNode record) override;
    void end(const layout::Piece& piece, std::string_view text) override;
    void counted(const StatisticsCategory& category, XmlNode record,
                 const CountedPaths& paths) override;

    std::vector<Finding> findings;
    Explanation explanation;

  private:
    /// Where a piece that no other has as a part stands in the definition.
    struct Place {
        const layout::Section* section;
        const layout::Line* line;
        bool of_value;  ///< else of the label
    };
    /// A piece being written.
    struct Frame {
        const layout::Piece* piece;
        ReadValue value{};  ///< what it read last
    };
    /// A line of the layout, and those of the reads that made it.
    struct Line {
        std::size_t number;  ///< 0-based in the response
        const layout::Section* section;
        const layout::Line* line;
        XmlNode record;
        std::size_t reads_begin;
        std::size_t reads_end = 0;
        bool filled = false;  ///< it has a value, without which it is no line
    };
    struct Unconverted {
        ReadValue value;
        std::string what;
    };
    struct Counted {
        const StatisticsCategory* category;
        XmlNode record;
        bool open;
    };
    struct PathRead {
        const XmlPath* path;
        ReadValue value;
    };

    /// How an element's text was read.
    enum : std::uint8_t { kOwn = 1, kWithDescendants = 2 };

    void find_places(const ReportPart& part);
    /// Whether the piece being written has a value of its own.
    bool in_leaf() const;
    void convert(const layout::Piece& piece, const ReadValue& value, std::string_view text);
    void note_unconverted(const ReadValue& value, std::string_view what);
    std::string_view text_of(const ReadValue& value) const;
    std::size_t lines_made() const;

    // findings.cpp
    const ReportPart& part() const;
    /// Every block that shows counts.
    std::vector<SummaryBlock> blocks() const;
    void add_finding(Finding finding);
    std::string_view attribute_name(const SourceMap& source, const ReadValue& value) const;
    void find_unread(const SourceMap& source);
    void find_unconverted(const SourceMap& source);
    /// Not of a director, nor of a possible match.
    bool is_of_subject(const Line& line) const;
    std::size_t records_with_lines(const std::function<bool(const layout::Section&)>& of) const;
    void find_uncounted(const SourceMap& source);
    /// What the report has of what the bureau totals under this label.
    std::optional<std::size_t> own_total(std::string_view label) const;
    /// The report's amounts of what the bureau totals so under this label; "" where one of them is
    /// that, and where the report has none.
    std::string other_amounts(std::string_view label, Currency total) const;
    void find_other_totals(const SourceMap& source);

    // explanation.cpp
    void begin_fields();
    /// Properties that have changed come from what was read last.
    void note_fields();
    void note_counts(XmlNode record);
    std::vector<Origin> to_origins(const SourceMap& source,
                                   const std::vector<ReadValue>& values) const;
    std::vector<ReadValue> origins_beside_layout(const ResponseElement& line) const;
    void explain(const SourceMap& source);

    const bool explains_;
    const ReportDefinition* definition_ = nullptr;
    const XmlNames* names_ = nullptr;
    std::unordered_map<const layout::Piece*, Place> places_;

    // Of the reply that is being translated.
    const Response* response_ = nullptr;
    mutable bool quiet_ = false;             ///< reads are the watch's own
    std::vector<std::uint8_t> texts_;        ///< how each element's text was read, by its index
    std::vector<std::uint64_t> attributes_;  ///< read: element and name
    std::vector<Frame> frames_;
    std::vector<ReadValue> reads_;  ///< of the pieces
    std::vector<Line> lines_;
    std::vector<PathRead> path_reads_;  ///< outside of pieces, since a record was counted
    std::vector<Counted> counted_;
    std::array<std::int16_t, kRecordFamilies> open_records_{};
    std::vector<Unconverted> unconverted_;
    ReadValue last_{};
    // Of the properties, when they are to be explained.
    std::vector<std::string> values_;
    std::vector<std::vector<ReadValue>> origins_;
    std::vector<bool> open_;  ///< not filled before
};

}  // namespace zr
