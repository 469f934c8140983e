#include "reports/description.h"

#include <span>

#include "values/text.h"

namespace zr::layout {
namespace {

std::string quoted(std::string_view text) {
    return "\"" + text::replace_all(text, text::kCrLf, "\\r\\n") + "\"";
}

/// Appends a part behind a separator, which stands between two parts only.
void add(std::string& target, std::string_view separator, std::string_view part) {
    target.append(target.empty() || part.empty() ? "" : separator).append(part);
}

std::string_view name_of(Form form) {
    constexpr std::string_view kNames[] = {
        "text",          "date",   "general date",   "money", "money with symbol",
        "money or text", "number", "number or text", "count", "percentage",
        "person's name"};
    return kNames[static_cast<std::size_t>(form)];
}

std::string describe(std::span<const Piece> pieces);

struct Describer {
    std::string operator()(const Constant& constant) const { return quoted(constant.text); }
    std::string operator()(const Value& value) const {
        return std::string(name_of(value.form)).append(" ").append(value.path);
    }
    std::string operator()(const Lookup& lookup) const {
        return std::string("table ").append(lookup.table).append(" for ").append(lookup.path);
    }
    std::string operator()(const Position& /*position*/) const { return "position"; }
    std::string operator()(const All& all) const { return "(" + describe(all.parts) + ")"; }
    std::string operator()(const Each& each) const {
        return std::string("each ").append(each.path) + " (" + describe(each.parts) + ") by " +
               quoted(each.separator);
    }
    std::string operator()(const EachOfRun& each) const {
        return "each of run (" + describe(each.parts) + ") by " + quoted(each.separator);
    }
    std::string operator()(const Choice& choice) const;
};

std::string describe(const Condition& condition) {
    const std::string path(condition.path);
    switch (condition.kind) {
        case Condition::Kind::kNode:
            return "if there is " + path;
        case Condition::Kind::kEqual:
            return "if " + path + " is " + quoted(condition.value);
        case Condition::Kind::kUnless:
            return "unless " + path + " is " + quoted(condition.value);
        case Condition::Kind::kUnlessExactly:
            return "unless " + path + " is exactly " + quoted(condition.value);
        case Condition::Kind::kAmount:
            return "if not 0";
        case Condition::Kind::kOtherBirth:
            return "if not the person's own";
    }
    return {};
}

std::string describe(const Piece& piece) {
    std::string text = piece.before.empty() ? std::string() : quoted(piece.before);
    add(text, " ", std::visit(Describer(), piece.what));
    add(text, " ", piece.after.empty() ? std::string() : quoted(piece.after));
    std::string conditions;
    if (!piece.separator.empty()) {
        conditions = "behind " + quoted(piece.separator);
    }
    add(conditions, ", ", piece.needs_value ? "if filled" : "");
    add(conditions, ", ", piece.needs_any_value ? "if any part is filled" : "");
    for (const Condition& condition : piece.conditions) {
        add(conditions, ", ", describe(condition));
    }
    return conditions.empty() ? text : text + " [" + conditions + "]";
}

std::string describe(std::span<const Piece> pieces) {
    std::string text;
    for (const Piece& piece : pieces) {
        add(text, " + ", describe(piece));
    }
    return text;
}

std::string Describer::operator()(const Choice& choice) const {
    std::string cases;
    for (const Case& row : choice.cases) {
        add(cases, ", ",
            (row.otherwise ? "otherwise" : quoted(row.code)) + ": " + describe(row.piece));
    }
    return std::string("by ").append(choice.path) + " (" + cases + ")";
}

std::string listed(std::span<const std::string_view> values) {
    std::string list;
    for (const std::string_view value : values) {
        add(list, ", ", value);
    }
    return list;
}

std::string open_rule(const StatisticsCategory& category) {
    const std::string status(category.status_path);
    switch (category.open) {
        case Open::kOwing:
            return category.outstanding.empty() ? "" : "open while it owes";
        case Open::kUnlessStatus:
            return "open unless " + status + " is " + listed(category.statuses);
        case Open::kIfStatus:
            return "open if " + status + " is " + listed(category.statuses);
        case Open::kUnlessNode:
            return "open unless there is " + status;
        case Open::kNever:
            break;
    }
    return "never open";
}

std::string settled_rule(const StatisticsCategory& category) {
    const std::string path(category.settled_path);
    if (category.settled_by_any_code) {
        return "owes nothing with any " + path;
    }
    if (category.settled_without_code) {
        return "owes nothing without " + path;
    }
    return path.empty() ? path
                        : "owes nothing if " + path + " is " + listed(category.settled_codes);
}

std::string which(const StatisticsCategory& category) {
    const std::string path(category.only_path);
    if (path.empty()) {
        return {};
    }
    return "only if " + path + " is " + (category.only_others ? "not " : "") +
           (category.only_codes.empty() ? std::string(category.only_value)
                                        : listed(category.only_codes));
}

std::string labelled(std::string_view label, std::string_view path) {
    return path.empty() ? std::string() : std::string(label).append(path);
}

}  // namespace

std::string describe(const Text& text) { return describe(std::span<const Piece>(text.pieces)); }

std::string describe(const SubGroup& sub_group) {
    std::string text(sub_group.words);
    switch (sub_group.numbering) {
        case SubGroup::Numbering::kNone:
            return text;
        case SubGroup::Numbering::kPosition:
            return text + " (position)";
        case SubGroup::Numbering::kId:
        case SubGroup::Numbering::kTrimmedId:
            break;
    }
    return text.append(" (").append(sub_group.id).append(")");
}

std::string_view name_of(RecordFamily family) {
    constexpr std::string_view kNames[kRecordFamilies] = {"Bankruptcy", "Collection",   "Default",
                                                          "Judgement",  "PublicNotice", "Enquiry"};
    return kNames[static_cast<std::size_t>(family)];
}

std::string describe(const StatisticsCategory& category) {
    std::string text(category.records);
    for (const std::string& part :
         {labelled("not beside ", category.instead_of), which(category),
          labelled("once a run of ", category.run_id), labelled("dated ", category.event_date),
          labelled("lodged ", category.loaded), labelled("owing ", category.outstanding),
          settled_rule(category), open_rule(category)}) {
        add(text, "; ", part);
    }
    return text;
}

}  // namespace zr::layout
