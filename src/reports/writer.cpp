#include "reports/writer.h"

#include <algorithm>

#include "reports/runs.h"
#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr::layout {

namespace {

XmlPath path_of(std::string_view expression, XmlNames& names) {
    return expression.empty() ? XmlPath() : XmlPath(expression, names);
}

}  // namespace

CompiledLayout::CompiledLayout(std::span<const Section> sections, XmlNames& names,
                               MissingAmounts missing)
    : missing_(missing),
      first_given_name_("individual-name/first-given-name", names),
      other_given_name_("individual-name/other-given-name", names),
      family_name_("individual-name/family-name", names) {
    sections_.reserve(sections.size());
    for (const Section& section : sections) {
        CompiledSection compiled{&section,
                                 XmlPath(section.records, names),
                                 path_of(section.id, names),
                                 path_of(section.without, names),
                                 {}};
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
    text.constant = text.pieces.size() == 1 && text.pieces[0].piece->is_constant();
    return text;
}

CompiledLayout::CompiledPiece CompiledLayout::compile(const Piece& piece, XmlNames& names) {
    CompiledPiece compiled{&piece,
                           path_of(piece.path, names),
                           path_of(piece.condition, names),
                           piece.form == Form::kLookup ? table_index(piece.other) : 0,
                           {}};
    for (const Piece& part : piece.parts) {
        compiled.parts.push_back(compile(part, names));
    }
    for (const Case& row : piece.cases) {
        compiled.parts.push_back(compile(row.piece, names));
    }
    return compiled;
}

std::size_t CompiledLayout::table_index(std::string_view name) {
    const auto found = std::find(tables_.begin(), tables_.end(), name);
    if (found != tables_.end()) {
        return static_cast<std::size_t>(found - tables_.begin());
    }
    tables_.push_back(name);
    return tables_.size() - 1;
}

FixedFormats::FixedFormats(Region region)
    : general_date("general date", region),
      number("", region),
      count("#,###,###,###,##0", region),
      percent("##0.00%", region) {}

const FixedFormats& FixedFormats::of(Region region) {
    static const FixedFormats australian(Region::kAustralia);
    static const FixedFormats new_zealand(Region::kNewZealand);
    return region == Region::kNewZealand ? new_zealand : australian;
}

ReportFormats::ReportFormats(const FormatSettings& settings)
    : date(settings.date, settings.region),
      money(settings.money, settings.region),
      money_symbol(settings.money_symbol, settings.region),
      fixed(FixedFormats::of(settings.region)) {}

ReportWriter::ReportWriter(const CompiledLayout& layout, const ReportFormats& formats,
                           const TableFinder& find_table, ResponseElements& lines,
                           const std::optional<DateTime>& date_of_birth)
    : layout_(layout), formats_(formats), lines_(lines), date_of_birth_(date_of_birth) {
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

void ReportWriter::write_section(const CompiledSection& section, XmlNode source,
                                 std::string_view prefix) {
    source.select(section.records, records_);
    if (records_.empty() || source.value(section.without)) {
        return;
    }
    section_ = &section;
    const Section& layout = *section.section;
    group_ = layout.word;
    if (!prefix.empty() && layout.group == Group::kPerson) {
        group_ = lines_.keep(prefix);
    } else if (!prefix.empty() && layout.group == Group::kPrefixed) {
        group_ = lines_.keep(std::string(prefix).append(": ").append(layout.word));
    }
    const std::span<const XmlNode> records = records_;
    position_ = 0;
    for (std::size_t next = 0; next < records.size();) {
        const std::size_t end = end_of_run(records, next, section.id, layout.runs);
        ++position_;
        run_ = records.subspan(next, end - next);
        write_record(section);
        next = end;
    }
}

void ReportWriter::write_record(const CompiledSection& section) {
    sub_group_ = {};
    for (const CompiledLine& line : section.lines) {
        if (!line.each) {
            add_line(line, run_.front());
            continue;
        }
        run_.front().select(*line.each, nested_);
        for (const XmlNode nested : nested_) {
            add_line(line, nested);
        }
    }
}

void ReportWriter::add_line(const CompiledLine& line, XmlNode record) {
    const std::string_view value = kept(line.value, record);
    if (!value.empty()) {
        lines_.add_kept(group_, sub_group(), kept(line.label, record), value);
    }
}

std::string_view ReportWriter::sub_group() {
    const Section& layout = *section_->section;
    if (layout.numbering == Numbering::kNone) {
        return layout.sub_group;
    }
    if (sub_group_.empty()) {
        std::string numbered(layout.sub_group);
        numbered += ' ';
        if (layout.numbering == Numbering::kPosition) {
            numbered += std::to_string(position_);
        } else {
            numbered += unique_id(run_.front(), section_->id, layout.runs);
        }
        sub_group_ =
            lines_.keep(layout.numbering == Numbering::kTrimmedId ? text::trim_right(numbered)
                                                                  : std::string_view(numbered));
    }
    return sub_group_;
}

std::string_view ReportWriter::kept(const CompiledText& text, XmlNode record) {
    if (text.constant) {
        return text.pieces.front().piece->before;
    }
    text_.clear();
    append(text_, text.pieces, record);
    return lines_.keep(text_);
}

void ReportWriter::append(std::string& target, std::span<const CompiledPiece> pieces,
                          XmlNode record) {
    const std::size_t start = target.size();
    for (const CompiledPiece& piece : pieces) {
        append(target, start, piece, record);
    }
}

void ReportWriter::append(std::string& target, std::size_t start, const CompiledPiece& compiled,
                          XmlNode record) {
    const Piece& piece = *compiled.piece;
    if (piece.when == When::kAlways && piece.before.empty()) {
        append_value(target, compiled, record);
        target += piece.after;
        return;
    }
    if (!condition_holds(compiled, record)) {
        return;
    }
    // Written in place and taken back when it turns out to be empty.
    const std::size_t piece_begin = target.size();
    const bool first = piece_begin == start;
    if (piece.when != When::kJoined || !first) {
        target += piece.before;
    }
    const std::size_t value_begin = target.size();
    const std::size_t values_before = values_;
    append_value(target, compiled, record);
    const bool needs_value = piece.when == When::kIfValue || piece.when == When::kJoined;
    if ((needs_value && target.size() == value_begin) ||
        (piece.when == When::kIfAnyValue && values_ == values_before)) {
        target.resize(piece_begin);
        return;
    }
    target += piece.after;
}

bool ReportWriter::condition_holds(const CompiledPiece& compiled, XmlNode record) const {
    const Piece& piece = *compiled.piece;
    const auto is_other = [&] {
        return text::equal_ignoring_case(record.value(compiled.condition).value_or(""),
                                         piece.other);
    };
    switch (piece.when) {
        case When::kIfAmount:
            return !ZRXMLUtilities::GetSubNodeCurrency(record, compiled.path, Currency()).is_zero();
        case When::kIfOtherBirth: {
            const auto date = ZRXMLUtilities::GetSubNodeDate(record, compiled.path);
            return date && date != date_of_birth_;
        }
        case When::kIfNode:
            return record.value(compiled.condition).has_value();
        case When::kIfEqual:
            return is_other();
        case When::kUnless:
            return !is_other();
        case When::kUnlessExactly:
            return record.value(compiled.condition).value_or("") != piece.other;
        default:
            return true;
    }
}

void ReportWriter::append_value(std::string& target, const CompiledPiece& compiled,
                                XmlNode record) {
    const std::size_t begin = target.size();
    append_form(target, compiled, record);
    if (compiled.parts.empty() && target.size() != begin) {
        ++values_;
    }
}

void ReportWriter::append_form(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    switch (compiled.piece->form) {
        case Form::kConstant:
            return;
        case Form::kText:
            append_sub_node_text(target, record, compiled.path);
            return;
        case Form::kDate:
            return append_date(target, formats_.date, record.value(compiled.path));
        case Form::kGeneralDate:
            return append_date(target, formats_.fixed.general_date, record.value(compiled.path));
        case Form::kMoney:
        case Form::kMoneySymbol:
        case Form::kMoneyText:
        case Form::kNumber:
        case Form::kNumberText:
        case Form::kCount:
        case Form::kPercent:
            return append_amount(target, compiled, record);
        case Form::kLookup:
            return append_description(target, compiled, record);
        case Form::kPersonName:
            return append_person_name(target, record.first(compiled.path));
        case Form::kId:
            target += unique_id(record, compiled.path);
            return;
        case Form::kPosition:
            target += std::to_string(position_);
            return;
        case Form::kAll:
            return append(target, compiled.parts, record);
        case Form::kEach:
            return append_each(target, compiled, record.select(compiled.path));
        case Form::kRun:
            return append_each(target, compiled, run_);
        case Form::kChoice:
            return append_choice(target, compiled, record);
    }
}

void ReportWriter::append_amount(std::string& target, const CompiledPiece& compiled,
                                 XmlNode record) const {
    const auto text = record.value(compiled.path);
    if (text.value_or("").empty() && layout_.missing_ == MissingAmounts::kNoLine) {
        return;
    }
    const Form form = compiled.piece->form;
    if ((form == Form::kMoneyText && !convert::is_currency(text.value_or(""))) ||
        (form == Form::kNumberText && !convert::is_number(text.value_or("")))) {
        append_sub_node_text(target, record, compiled.path);
        return;
    }
    const auto amount = [&] { return convert::to_currency(text.value_or("")); };
    const auto number = [&] { return ZRXMLUtilities::GetSubNodeDouble(record, compiled.path, 0); };
    switch (form) {
        case Form::kMoney:
            return formats_.money.append(target, amount());
        case Form::kMoneyText:
        case Form::kMoneySymbol:
            return formats_.money_symbol.append(target, amount());
        case Form::kCount:
            return formats_.fixed.count.append(target, amount());
        case Form::kPercent:
            return formats_.fixed.percent.append(target, number());
        default:
            return formats_.fixed.number.append(target, number());
    }
}

void ReportWriter::append_date(std::string& target, const RegionalFormat& format,
                               std::optional<std::string_view> value) {
    if (const auto date = value ? convert::to_date(*value) : std::nullopt) {
        format.append(target, *date);
    }
}

void ReportWriter::append_description(std::string& target, const CompiledPiece& compiled,
                                      XmlNode record) const {
    const CodeTableItems* table = tables_[compiled.table];
    const auto code = record.value(compiled.path);
    if (table != nullptr && code) {
        target += table->GetDescriptionFromCode(*code);
    }
}

void ReportWriter::append_each(std::string& target, const CompiledPiece& compiled,
                               std::span<const XmlNode> records) {
    const std::size_t start = target.size();
    for (const XmlNode record : records) {
        const std::size_t separator_begin = target.size();
        if (separator_begin != start) {
            target += compiled.piece->other;
        }
        const std::size_t begin = target.size();
        append(target, compiled.parts, record);
        if (target.size() == begin) {
            target.resize(separator_begin);
        }
    }
}

void ReportWriter::append_choice(std::string& target, const CompiledPiece& compiled,
                                 XmlNode record) {
    const std::string_view code = record.value(compiled.path).value_or("");
    const std::span<const Case> cases = compiled.piece->cases;
    for (std::size_t index = 0; index < cases.size(); ++index) {
        if (cases[index].otherwise || cases[index].code == code) {
            append(target, target.size(), compiled.parts[index], record);
            return;
        }
    }
}

void ReportWriter::append_person_name(std::string& target, XmlNode person) {
    const std::size_t start = target.size();
    for (const XmlPath* part :
         {&layout_.first_given_name_, &layout_.other_given_name_, &layout_.family_name_}) {
        const std::size_t end = target.size();
        const std::string_view separator = end == start ? "" : " ";
        target += separator;
        append_sub_node_text(target, person, *part);
        if (target.size() == end + separator.size()) {
            target.resize(end);  // no such name
        }
    }
}

}  // namespace zr::layout
