#include "reports/writer.h"

#include <algorithm>
#include <utility>

#include "reports/report_watch.h"
#include "reports/runs.h"
#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr::layout {

/// Compiles pieces for a layout, whose tables it collects.
class CompiledLayout::Compiler {
  public:
    Compiler(CompiledLayout& layout, XmlNames& names) : layout_(layout), names_(names) {}

    CompiledText compile(const Text& text) const {
        CompiledText compiled{compile(text.pieces), false};
        compiled.constant = text.pieces.size() == 1 && text.pieces.front().conditions.empty() &&
                            std::holds_alternative<Constant>(text.pieces.front().what);
        return compiled;
    }

  private:
    std::vector<CompiledPiece> compile(std::span<const Piece> pieces) const {
        std::vector<CompiledPiece> compiled;
        for (const Piece& piece : pieces) {
            compiled.push_back(compile(piece));
        }
        return compiled;
    }

    CompiledPiece compile(const Piece& piece) const {
        CompiledPiece compiled{&piece};
        for (const Condition& condition : piece.conditions) {
            compiled.conditions.push_back({&condition, XmlPath(condition.path, names_)});
        }
        std::visit([&](const auto& what) { compile(what, compiled); }, piece.what);
        compiled.append =
            layout_.watch_ == nullptr ? writer_of(piece) : &ReportWriter::append_watched;
        return compiled;
    }

    static void compile(const Constant& constant, CompiledPiece& piece) {
        piece.text = constant.text;
    }
    void compile(const Value& value, CompiledPiece& piece) const {
        piece.path = XmlPath(value.path, names_);
        piece.form = value.form;
        piece.value = true;
    }
    void compile(const Lookup& lookup, CompiledPiece& piece) const {
        piece.path = XmlPath(lookup.path, names_);
        piece.table = table_index(lookup.table);
        piece.value = true;
    }
    static void compile(const Position& /*position*/, CompiledPiece& piece) { piece.value = true; }
    void compile(const All& all, CompiledPiece& piece) const { piece.parts = compile(all.parts); }
    void compile(const Each& each, CompiledPiece& piece) const {
        piece.path = XmlPath(each.path, names_);
        piece.parts = compile(each.parts);
        piece.text = each.separator;
    }
    void compile(const EachOfRun& each, CompiledPiece& piece) const {
        piece.parts = compile(each.parts);
        piece.text = each.separator;
    }
    void compile(const Choice& choice, CompiledPiece& piece) const {
        piece.path = XmlPath(choice.path, names_);
        piece.cases = &choice.cases;
        for (const Case& row : choice.cases) {
            piece.parts.push_back(compile(row.piece));
        }
    }

    std::size_t table_index(std::string_view name) const {
        std::vector<std::string_view>& tables = layout_.tables_;
        const auto found = std::find(tables.begin(), tables.end(), name);
        const auto index = static_cast<std::size_t>(found - tables.begin());
        if (found == tables.end()) {
            tables.push_back(name);
        }
        return index;
    }

    CompiledLayout& layout_;
    XmlNames& names_;
};

CompiledLayout::Append CompiledLayout::writer_of(const Piece& piece) {
    constexpr struct {
        Append operator()(const Value& value) const {
            switch (value.form) {
                case Form::kText:
                    return &ReportWriter::append_text;
                case Form::kDate:
                case Form::kGeneralDate:
                    return &ReportWriter::append_date;
                case Form::kPersonName:
                    return &ReportWriter::append_name;
                default:
                    return &ReportWriter::append_amount;
            }
        }
        Append operator()(const Constant&) const { return &ReportWriter::append_constant; }
        Append operator()(const Lookup&) const { return &ReportWriter::append_description; }
        Append operator()(const Position&) const { return &ReportWriter::append_position; }
        Append operator()(const All&) const { return &ReportWriter::append_all; }
        Append operator()(const Each&) const { return &ReportWriter::append_each; }
        Append operator()(const EachOfRun&) const { return &ReportWriter::append_run; }
        Append operator()(const Choice&) const { return &ReportWriter::append_choice; }
    } kWriters;
    return std::visit(kWriters, piece.what);
}

CompiledLayout::CompiledLayout(std::span<const Section> sections, XmlNames& names,
                               MissingAmounts missing)
    : watch_(dynamic_cast<ReportWatch*>(names.watch())),
      missing_(missing),
      first_given_name_("individual-name/first-given-name", names),
      other_given_name_("individual-name/other-given-name", names),
      family_name_("individual-name/family-name", names) {
    const Compiler compiler(*this, names);
    sections_.reserve(sections.size());
    for (const Section& section : sections) {
        CompiledSection compiled{&section,
                                 XmlPath(section.records, names),
                                 path_or_none(section.sub_group.id, names),
                                 path_or_none(section.without, names),
                                 {}};
        for (const Line& line : section.lines) {
            compiled.lines.push_back(
                {compiler.compile(line.label), compiler.compile(line.value),
                 line.each.empty() ? std::nullopt : std::optional(XmlPath(line.each, names))});
        }
        sections_.push_back(std::move(compiled));
    }
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
                           const TableFinder& find_table, ReportLines& lines,
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
    const auto& [kind, word] = section.section->group;
    group_ = word;
    if (!prefix.empty() && kind == Group::Kind::kPerson) {
        group_ = lines_.keep(prefix);
    } else if (!prefix.empty() && kind == Group::Kind::kPrefixed) {
        group_ = lines_.keep(std::string(prefix).append(": ").append(word));
    }
    const std::span<const XmlNode> records = records_;
    position_ = 0;
    for (std::size_t next = 0; next < records.size();) {
        const std::size_t end = end_of_run(records, next, section.id, section.section->runs);
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
    using Numbering = SubGroup::Numbering;
    const auto& [words, numbering, id] = section_->section->sub_group;
    if (numbering == Numbering::kNone) {
        return words;
    }
    if (sub_group_.empty()) {
        std::string numbered(words);
        numbered += ' ';
        if (numbering == Numbering::kPosition) {
            numbered += std::to_string(position_);
        } else {
            numbered += unique_id(run_.front(), section_->id, section_->section->runs);
        }
        sub_group_ = lines_.keep(numbering == Numbering::kTrimmedId ? text::trim_right(numbered)
                                                                    : std::string_view(numbered));
    }
    return sub_group_;
}

std::string_view ReportWriter::kept(const CompiledText& text, XmlNode record) {
    if (text.constant) {
        return text.pieces.front().text;
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
    for (const auto& condition : compiled.conditions) {
        if (!holds(condition, record)) {
            return;
        }
    }
    // Written in place and taken back when it turns out to be empty.
    const Piece& piece = *compiled.piece;
    const std::size_t piece_begin = target.size();
    if (piece_begin != start && !piece.separator.empty()) {
        target += piece.separator;
    }
    if (!piece.before.empty()) {
        target += piece.before;
    }
    const std::size_t value_begin = target.size();
    const std::size_t values_before = values_;
    (this->*compiled.append)(target, compiled, record);
    const bool empty = target.size() == value_begin;
    if (compiled.value && !empty) {
        ++values_;
    }
    if ((piece.needs_value && empty) || (piece.needs_any_value && values_ == values_before)) {
        target.resize(piece_begin);
    } else if (!piece.after.empty()) {
        target += piece.after;
    }
}

bool ReportWriter::holds(const CompiledLayout::CompiledCondition& compiled, XmlNode record) const {
    using Kind = Condition::Kind;
    const XmlPath& path = compiled.path;
    const std::string_view expected = compiled.condition->value;
    switch (compiled.condition->kind) {
        case Kind::kNode:
            return record.value(path).has_value();
        case Kind::kEqual:
            return text::equal_ignoring_case(record.value(path).value_or(""), expected);
        case Kind::kUnless:
            return !text::equal_ignoring_case(record.value(path).value_or(""), expected);
        case Kind::kUnlessExactly:
            return record.value(path).value_or("") != expected;
        case Kind::kAmount:
            return !ZRXMLUtilities::GetSubNodeCurrency(record, path, Currency()).is_zero();
        case Kind::kOtherBirth: {
            const auto date = ZRXMLUtilities::GetSubNodeDate(record, path);
            return date && date != date_of_birth_;
        }
    }
    return false;
}

void ReportWriter::append_constant(std::string& target, const CompiledPiece& compiled,
                                   XmlNode /*record*/) {
    target += compiled.text;
}

void ReportWriter::append_text(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    append_sub_node_text(target, record, compiled.path);
}

void ReportWriter::append_date(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    const auto value = record.value(compiled.path);
    if (const auto date = value ? convert::to_date(*value) : std::nullopt) {
        const bool general = compiled.form == Form::kGeneralDate;
        (general ? formats_.fixed.general_date : formats_.date).append(target, *date);
    }
}

void ReportWriter::append_amount(std::string& target, const CompiledPiece& compiled,
                                 XmlNode record) {
    const auto text = record.value(compiled.path);
    if (text.value_or("").empty() && layout_.missing_ == MissingAmounts::kNoLine) {
        return;
    }
    const Form form = compiled.form;
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

void ReportWriter::append_name(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    const XmlNode person = record.first(compiled.path);
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

void ReportWriter::append_position(std::string& target, const CompiledPiece& /*compiled*/,
                                   XmlNode /*record*/) {
    target += std::to_string(position_);
}

void ReportWriter::append_description(std::string& target, const CompiledPiece& compiled,
                                      XmlNode record) {
    const CodeTableItems* table = tables_[compiled.table];
    const auto code = record.value(compiled.path);
    if (table != nullptr && code) {
        target += table->GetDescriptionFromCode(*code);
    }
}

void ReportWriter::append_all(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    append(target, compiled.parts, record);
}

void ReportWriter::append_each(std::string& target, const CompiledPiece& compiled, XmlNode record) {
    append_repeated(target, compiled, record.select(compiled.path));
}

void ReportWriter::append_run(std::string& target, const CompiledPiece& compiled,
                              XmlNode /*record*/) {
    append_repeated(target, compiled, run_);
}

void ReportWriter::append_watched(std::string& target, const CompiledPiece& compiled,
                                  XmlNode record) {
    const std::size_t begin = target.size();
    layout_.watch_->begin(*compiled.piece, record);
    (this->*CompiledLayout::writer_of(*compiled.piece))(target, compiled, record);
    layout_.watch_->end(*compiled.piece, std::string_view(target).substr(begin));
}

void ReportWriter::append_repeated(std::string& target, const CompiledPiece& compiled,
                                   std::span<const XmlNode> records) {
    const std::size_t start = target.size();
    for (const XmlNode record : records) {
        const std::size_t separator_begin = target.size();
        if (separator_begin != start) {
            target += compiled.text;
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
    const std::vector<Case>& cases = *compiled.cases;
    for (std::size_t index = 0; index < cases.size(); ++index) {
        if (cases[index].otherwise || cases[index].code == code) {
            append(target, target.size(), compiled.parts[index], record);
            return;
        }
    }
}

}  // namespace zr::layout
