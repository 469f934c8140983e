#include "checks/reply_watch.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "values/convert.h"

namespace zr {
namespace {

using layout::Form;

/// What a text should be that is read in this form; "" for any text.
std::string_view expected(Form form, std::string_view text) {
    switch (form) {
        case Form::kDate:
        case Form::kGeneralDate:
            return convert::to_date(text) ? "" : "not a date";
        case Form::kMoney:
        case Form::kMoneySymbol:
        case Form::kMoneyText:
        case Form::kCount:
            return convert::is_currency(text) ? "" : "not an amount";
        case Form::kNumber:
        case Form::kNumberText:
        case Form::kPercent:
            return convert::is_number(text) ? "" : "not a number";
        case Form::kText:
        case Form::kPersonName:
            break;
    }
    return "";
}

}  // namespace

void ReplyCheck::Watch::set_translator(const Translator& translator) {
    definition_ = &translator.definition();
    names_ = &translator.names();
    find_places(definition_->individual);
    if (definition_->company) {
        find_places(definition_->company->part);
    }
}

void ReplyCheck::Watch::find_places(const ReportPart& part) {
    for (const layout::Section& section : part.sections) {
        for (const layout::Line& line : section.lines) {
            for (const layout::Piece& piece : line.value.pieces) {
                places_[&piece] = {&section, &line, true};
            }
            for (const layout::Piece& piece : line.label.pieces) {
                places_[&piece] = {&section, &line, false};
            }
        }
    }
}

void ReplyCheck::Watch::begin_report(const Response& response) {
    response_ = &response;
    texts_.clear();
    attributes_.clear();
    frames_.clear();
    reads_.clear();
    lines_.clear();
    path_reads_.clear();
    counted_.clear();
    open_records_ = {};
    unconverted_.clear();
    last_ = {};
    findings.clear();
    explanation = {};
    begin_fields();
}

void ReplyCheck::Watch::end_report() {
    note_fields();
    std::erase_if(lines_, [](const Line& line) { return !line.filled; });
    quiet_ = true;
    const SourceMap source(response_->ResponseXML());
    find_unread(source);
    find_unconverted(source);
    find_uncounted(source);
    find_other_totals(source);
    if (explains_) {
        explain(source);
    }
    quiet_ = false;
    response_ = nullptr;
}

bool ReplyCheck::Watch::in_leaf() const {
    using namespace layout;
    if (frames_.empty()) {
        return false;
    }
    const Piece::What& what = frames_.back().piece->what;
    return std::holds_alternative<layout::Value>(what) || std::holds_alternative<Lookup>(what) ||
           std::holds_alternative<Choice>(what);
}

void ReplyCheck::Watch::read(XmlNode /*context*/, const XmlPath* path, XmlNode found,
                             XmlNameId attribute) {
    if (quiet_ || response_ == nullptr) {
        return;
    }
    note_fields();
    last_ = {found, attribute};
    if (!found) {
        return;
    }
    const bool leaf = in_leaf();
    if (attribute != 0) {
        attributes_.push_back(std::uint64_t{found.index()} << 16U | attribute);
    } else {
        texts_.resize(std::max<std::size_t>(texts_.size(), found.index() + 1));
        // What only asks whether an element is there does not show what is in it.
        texts_[found.index()] |= leaf ? kWithDescendants : kOwn;
    }
    if (leaf) {
        frames_.back().value = last_;
        reads_.push_back(last_);
    } else if (frames_.empty()) {
        path_reads_.push_back({path, last_});
    }
}

void ReplyCheck::Watch::begin(const layout::Piece& piece, XmlNode record) {
    if (frames_.empty()) {
        note_fields();
        path_reads_.clear();
        const Place& place = places_.at(&piece);
        const std::size_t number = lines_made();
        const bool goes_on = !lines_.empty() && lines_.back().line == place.line &&
                             lines_.back().record == record && lines_.back().number == number;
        if (place.of_value && !goes_on) {
            lines_.push_back({number, place.section, place.line, record, reads_.size()});
        }
        // A constant says whatever let it be written.
        if (std::holds_alternative<layout::Constant>(piece.what) && !piece.conditions.empty() &&
            last_.node) {
            reads_.push_back(last_);
        }
    }
    frames_.push_back({&piece});
}

void ReplyCheck::Watch::end(const layout::Piece& piece, std::string_view text) {
    const Frame frame = frames_.back();
    if (in_leaf() && frame.value.node) {
        convert(piece, frame.value, text);
    }
    frames_.pop_back();
    if (frames_.empty() && !lines_.empty()) {
        Line& line = lines_.back();
        line.filled = line.filled || (places_.at(&piece).of_value && !text.empty());
        line.reads_end = reads_.size();
    }
}

void ReplyCheck::Watch::convert(const layout::Piece& piece, const ReadValue& value,
                                std::string_view text) {
    using namespace layout;
    if (const auto* plain = std::get_if<layout::Value>(&piece.what)) {
        if (plain->form != Form::kText && plain->form != Form::kPersonName) {
            note_unconverted(value, expected(plain->form, text_of(value)));
        }
    } else if (const auto* lookup = std::get_if<Lookup>(&piece.what)) {
        if (text.empty()) {
            note_unconverted(value, "not a code of " + std::string(lookup->table));
        }
    } else if (const auto* choice = std::get_if<Choice>(&piece.what)) {
        const std::string_view code = text_of(value);
        // A single case is a mark, which is set or is not.
        const bool known =
            choice->cases.size() == 1 || std::ranges::any_of(choice->cases, [&](const Case& row) {
                return row.otherwise || row.code == code;
            });
        note_unconverted(value, known ? "" : "not a code that a line knows");
    }
}

void ReplyCheck::Watch::note_unconverted(const ReadValue& value, std::string_view what) {
    if (!what.empty() && !text_of(value).empty()) {
        unconverted_.push_back({value, std::string(what)});
    }
}

std::string_view ReplyCheck::Watch::text_of(const ReadValue& value) const {
    const bool was_quiet = std::exchange(quiet_, true);
    const std::string_view text = value.attribute == 0
                                      ? value.node.text()
                                      : value.node.attribute(value.attribute).value_or("");
    quiet_ = was_quiet;
    return text;
}

void ReplyCheck::Watch::counted(const StatisticsCategory& category, XmlNode record,
                                const CountedPaths& paths) {
    for (const auto& [path, value] : path_reads_) {
        if (path == paths.event_date) {
            note_unconverted(value, expected(Form::kDate, text_of(value)));
        } else if (path == paths.loaded || path == paths.outstanding) {
            note_unconverted(value, expected(Form::kMoney, text_of(value)));
        }
    }
    path_reads_.clear();
    std::int16_t& open = open_records_[static_cast<std::size_t>(category.family)];
    const std::int16_t open_now = response_->statistics(category.family).open;
    counted_.push_back({&category, record, std::exchange(open, open_now) != open_now});
    note_counts(record);
    last_ = {};
}

std::size_t ReplyCheck::Watch::lines_made() const {
    return static_cast<std::size_t>(response_->ResponseElements().Count());
}

}  // namespace zr
