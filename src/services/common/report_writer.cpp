#include "services/common/report_writer.h"

#include <algorithm>

#include "platform/text.h"
#include "services/common/shared_procedures.h"
#include "xml/zr_xml_utilities.h"

namespace zr::layout {

CompiledLayout::CompiledLayout(std::span<const Section> sections, XmlNames& names)
    : type_("@type", names),
      first_given_name_("individual-name/first-given-name", names),
      other_given_name_("individual-name/other-given-name", names),
      family_name_("individual-name/family-name", names) {
    sections_.reserve(sections.size());
    for (const Section& section : sections) {
        CompiledSection compiled{&section, XmlPath(section.records, names), {}};
        for (const Line& line : section.lines) {
            compiled.lines.push_back(
                {compile(line.label, names), compile(line.value, names),
                 line.each.empty() ? std::nullopt : std::optional(XmlPath(line.each, names))});
        }
        sections_.push_back(std::move(compiled));
    }
}

CompiledLayout::CompiledText CompiledLayout::compile(const Pieces& pieces, XmlNames& names) {
    CompiledText text;
    for (const Piece& piece : pieces.all()) {
        if (piece.used()) {
            text.pieces.push_back(compile(piece, names));
        }
    }
    text.constant = text.pieces.size() == 1 && text.pieces[0].piece->form == Form::kConstant;
    return text;
}

CompiledLayout::CompiledPiece CompiledLayout::compile(const Piece& piece, XmlNames& names) {
    const auto path = [&names](std::string_view expression) {
        return expression.empty() ? XmlPath() : XmlPath(expression, names);
    };
    return {&piece, path(piece.path), path(piece.condition),
            piece.form == Form::kLookup ? table_index(piece.other) : 0};
}

std::size_t CompiledLayout::table_index(std::string_view name) {
    const auto found = std::find(tables_.begin(), tables_.end(), name);
    if (found != tables_.end()) {
        return static_cast<std::size_t>(found - tables_.begin());
    }
    tables_.push_back(name);
    return tables_.size() - 1;
}

ReportFormats::ReportFormats(const ServiceContext& context)
    : date(context.DateFormat(), context.region()),
      general_date("general date", context.region()),
      money(context.CurrencyFormat(), context.region()),
      money_symbol(context.CurrencyFormatSymbol(), context.region()),
      number("", context.region()) {}

ReportWriter::ReportWriter(const CompiledLayout& layout, const ReportFormats& formats,
                           const TableFinder& find_table, ResponseElements& lines)
    : layout_(layout), formats_(formats), lines_(lines) {
    tables_.reserve(layout.tables_.size());
    for (const std::string_view name : layout.tables_) {
        tables_.push_back(find_table(name));
    }
}

void ReportWriter::write(std::span<const XmlNode> sources, std::string_view prefix) {
    for (const auto& section : layout_.sections_) {
        write_section(section, sources[section.section->source], prefix);
    }
}

void ReportWriter::write_section(const CompiledLayout::CompiledSection& section, XmlNode source,
                                 std::string_view prefix) {
    source.select(section.records, records_);
    if (records_.empty()) {
        return;
    }
    section_ = section.section;
    group_ = section_->word;
    if (!prefix.empty() && section_->group == Group::kPerson) {
        group_ = lines_.keep(prefix);
    } else if (!prefix.empty() && section_->group == Group::kPrefixed) {
        group_ = lines_.keep(std::string(prefix).append(": ").append(section_->word));
    }
    position_ = 0;
    for (const XmlNode record : records_) {
        ++position_;
        sub_group_ = {};
        for (const auto& line : section.lines) {
            write_line(line, record);
        }
    }
}

void ReportWriter::write_line(const CompiledLayout::CompiledLine& line, XmlNode record) {
    if (!line.each) {
        add_line(line, record);
        return;
    }
    record.select(*line.each, nested_);
    for (const XmlNode nested : nested_) {
        add_line(line, nested);
    }
}

void ReportWriter::add_line(const CompiledLayout::CompiledLine& line, XmlNode record) {
    const std::string_view value = kept(line.value, record);
    if (!value.empty()) {
        lines_.add_kept(group_, sub_group(), kept(line.label, record), value);
    }
}

std::string_view ReportWriter::sub_group() {
    if (section_->numbering == Numbering::kNone) {
        return section_->sub_group;
    }
    if (sub_group_.empty()) {
        std::string numbered(section_->sub_group);
        numbered += ' ';
        numbered += std::to_string(position_);
        sub_group_ = lines_.keep(numbered);
    }
    return sub_group_;
}

std::string_view ReportWriter::kept(const CompiledText& text, XmlNode record) {
    if (text.constant) {
        return text.pieces.front().piece->before;
    }
    text_.clear();
    for (const CompiledPiece& piece : text.pieces) {
        append(text_, piece, record);
    }
    return lines_.keep(text_);
}

void ReportWriter::append(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    const Piece& piece = *compiled.piece;
    if (piece.when == When::kAlways && piece.before.empty()) {
        append_value(target, compiled, record);
        target += piece.after;
        return;
    }
    if (!condition_holds(compiled, record)) {
        return;
    }
    value_.clear();
    append_value(value_, compiled, record);
    const bool first = target.empty();
    const bool needs_value = piece.when == When::kIfValue || piece.when == When::kJoined ||
                             (piece.when == When::kUnless && first);
    if (value_.empty() && needs_value) {
        return;
    }
    if (piece.when != When::kJoined || !first) {
        target += piece.before;
    }
    target += value_;
    target += piece.after;
}

bool ReportWriter::condition_holds(const CompiledPiece& compiled, XmlNode record) {
    const Piece& piece = *compiled.piece;
    switch (piece.when) {
        case When::kIfNode:
            return record.value(compiled.condition).has_value();
        case When::kUnless:
            return !text::equal_ignoring_case(record.value(compiled.condition).value_or(""),
                                              piece.other);
        case When::kUnlessExactly:
            return record.value(compiled.condition).value_or("") != piece.other;
        default:
            return true;
    }
}

void ReportWriter::append_value(std::string& target, const CompiledPiece& compiled,
                                XmlNode record) {
    const auto amount = [&] {
        return ZRXMLUtilities::GetSubNodeCurrency(record, compiled.path, Currency());
    };
    switch (compiled.piece->form) {
        case Form::kConstant:
            return;
        case Form::kText:
            append_host_text(target, record.value(compiled.path).value_or(""));
            return;
        case Form::kDate:
            append_date(target, formats_.date, record.value(compiled.path));
            return;
        case Form::kGeneralDate:
            append_date(target, formats_.general_date, record.value(compiled.path));
            return;
        case Form::kMoney:
            formats_.money.append(target, amount());
            return;
        case Form::kMoneySymbol:
            formats_.money_symbol.append(target, amount());
            return;
        case Form::kNumber:
            formats_.number.append(target,
                                   ZRXMLUtilities::GetSubNodeDouble(record, compiled.path, 0));
            return;
        case Form::kLookup: {
            const CodeTableItems* table = tables_[compiled.table];
            const auto code = record.value(compiled.path);
            if (table != nullptr && code) {
                target += table->GetDescriptionFromCode(*code);
            }
            return;
        }
        case Form::kPersonName:
            append_person_name(target, record.first(compiled.path));
            return;
        case Form::kTyped:
            append_typed_value(target, record);
            return;
    }
}

void ReportWriter::append_date(std::string& target, const RegionalFormat& format,
                               std::optional<std::string_view> value) {
    if (const auto date = value ? convert::to_date(*value) : std::nullopt) {
        format.append(target, *date);
    }
}

void ReportWriter::append_typed_value(std::string& target, XmlNode record) {
    const std::string_view type = record.value(layout_.type_).value_or("");
    if (type == "amount") {
        formats_.money_symbol.append(target, ZRXMLUtilities::GetNodeCurrency(record, Currency()));
        return;
    }
    const std::string_view text = record.text();
    append_host_text(target, text);
    if (!text.empty() && (type == "months" || type == "years")) {
        target += ' ';
        target += type;
    }
}

void ReportWriter::append_person_name(std::string& target, XmlNode person) {
    std::string name;
    for (const XmlPath* part :
         {&layout_.first_given_name_, &layout_.other_given_name_, &layout_.family_name_}) {
        std::string text;
        append_host_text(text, person.value(*part).value_or(""));
        join_part(name, " ", text);
    }
    target += name;
}

}  // namespace zr::layout
