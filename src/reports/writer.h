// Writes the lines of a report from its layout.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/report_lines.h"
#include "reports/layout.h"
#include "values/regional_format.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/response_elements.h"

namespace zr {
class ReportWatch;  // report_watch.h
}

namespace zr::layout {

class ReportWriter;

/// A layout whose paths are compiled against a service's names. Constant once made; the sections
/// stay with their owner.
class CompiledLayout {
  public:
    CompiledLayout(std::span<const Section> sections, XmlNames& names,
                   MissingAmounts missing = MissingAmounts::kZero);

  private:
    friend class ReportWriter;
    class Compiler;

    struct CompiledPiece;
    /// Writes the value of a piece.
    using Append = void (ReportWriter::*)(std::string& target, const CompiledPiece& piece,
                                          XmlNode record);
    static Append writer_of(const Piece& piece);

    struct CompiledCondition {
        const Condition* condition;
        XmlPath path;
    };
    struct CompiledPiece {
        const Piece* piece;
        Append append = nullptr;
        XmlPath path{};
        std::vector<CompiledCondition> conditions{};
        Form form{};
        std::string_view text{};             ///< the constant, or the separator of repeated parts
        std::size_t table = 0;               ///< index into tables_
        std::vector<CompiledPiece> parts{};  ///< of the piece's parts or cases
        const std::vector<Case>* cases = nullptr;
        bool value = false;  ///< one of the reply itself, neither constant nor made of parts
    };
    struct CompiledText {
        std::vector<CompiledPiece> pieces;
        bool constant = false;  ///< one constant piece: nothing to copy
    };
    struct CompiledLine {
        CompiledText label;
        CompiledText value;
        std::optional<XmlPath> each;
    };
    struct CompiledSection {
        const Section* section;
        XmlPath records;
        XmlPath id;
        XmlPath without;
        std::vector<CompiledLine> lines;
    };

    std::vector<CompiledSection> sections_;
    std::vector<std::string_view> tables_;
    ReportWatch* watch_;
    MissingAmounts missing_;
    XmlPath first_given_name_;
    XmlPath other_given_name_;
    XmlPath family_name_;
};

/// The formats that no setting of the facade changes, made once for each region.
struct FixedFormats {
    explicit FixedFormats(Region region);
    static const FixedFormats& of(Region region);

    RegionalFormat general_date;
    RegionalFormat number;
    RegionalFormat count;
    RegionalFormat percent;
};

/// The formats of dates and amounts that a host chooses, and the region they are written for.
struct FormatSettings {
    std::string_view date;
    std::string_view money;
    std::string_view money_symbol;
    Region region;
};

/// The formats of one translation, compiled once from the settings.
struct ReportFormats {
    explicit ReportFormats(const FormatSettings& settings);

    RegionalFormat date;
    RegionalFormat money;
    RegionalFormat money_symbol;
    const FixedFormats& fixed;
};

/// Finds a code table by name; null for one that the service does not have.
using TableFinder = std::function<const CodeTableItems*(std::string_view name)>;

/// Writes a layout's lines into a response.
class ReportWriter {
  public:
    /// `date_of_birth` is the subject's, for pieces that show another one only.
    ReportWriter(const CompiledLayout& layout, const ReportFormats& formats,
                 const TableFinder& find_table, ReportLines& lines,
                 const std::optional<DateTime>& date_of_birth = {});

    /// Writes every section. `sources` are the nodes that sections start from; an absent one leaves
    /// its sections out. The prefix is "" for the subject itself.
    void write(std::span<const XmlNode> sources, std::string_view prefix);

  private:
    friend class CompiledLayout;
    using CompiledText = CompiledLayout::CompiledText;
    using CompiledPiece = CompiledLayout::CompiledPiece;

    using CompiledSection = CompiledLayout::CompiledSection;
    using CompiledLine = CompiledLayout::CompiledLine;

    void write_section(const CompiledSection& section, XmlNode source, std::string_view prefix);
    void write_record(const CompiledSection& section);
    void add_line(const CompiledLine& line, XmlNode record);

    /// The text of the pieces, kept as long as the lines.
    std::string_view kept(const CompiledText& text, XmlNode record);
    void append(std::string& target, std::span<const CompiledPiece> pieces, XmlNode record);
    /// `start` is where the text that the piece belongs to begins in the target.
    void append(std::string& target, std::size_t start, const CompiledPiece& piece, XmlNode record);
    bool holds(const CompiledLayout::CompiledCondition& condition, XmlNode record) const;

    // The value of a piece, without what stands around it.
    void append_constant(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_text(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_date(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_amount(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_name(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_position(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_description(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_all(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_each(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_run(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_choice(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_watched(std::string& target, const CompiledPiece& piece, XmlNode record);
    void append_repeated(std::string& target, const CompiledPiece& piece,
                         std::span<const XmlNode> records);
    std::string_view sub_group();

    const CompiledLayout& layout_;
    const ReportFormats& formats_;
    ReportLines& lines_;
    std::vector<const CodeTableItems*> tables_;
    std::vector<XmlNode> records_;
    std::vector<XmlNode> nested_;
    std::string text_;        ///< of the label or value being made
    std::size_t values_ = 0;  ///< that were not empty so far
    std::optional<DateTime> date_of_birth_;

    // Where the writer stands.
    const CompiledSection* section_ = nullptr;
    std::string_view group_;
    std::size_t position_ = 0;
    std::span<const XmlNode> run_;  ///< the record, and those merged into it
    std::string_view sub_group_;    ///< of the record, once it has a line
};

}  // namespace zr::layout
