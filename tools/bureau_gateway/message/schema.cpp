#include "bureau_gateway/message/schema.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/dates.h"

namespace zr::gateway {
namespace {

/// A kind of violation; no description repeats what the applicant's details were.
struct ViolationKind {
    std::string_view code;
    std::string_view type;
};
constexpr ViolationKind kMissingElement{"E101", "mandatory"};
constexpr ViolationKind kBlank{"E102", "mandatory"};
constexpr ViolationKind kMissingAttribute{"E103", "mandatory"};
constexpr ViolationKind kTooLong{"E201", "length"};
constexpr ViolationKind kNotWhole{"E301", "format"};
constexpr ViolationKind kNotDate{"E302", "format"};
constexpr ViolationKind kNotDigits{"E303", "format"};
constexpr ViolationKind kUnknownValue{"E401", "value"};
constexpr ViolationKind kUnexpectedElement{"E501", "structure"};
constexpr ViolationKind kUnexpectedAttribute{"E502", "structure"};
constexpr ViolationKind kUnexpectedText{"E503", "structure"};

class Checker {
  public:
    void check(const Element& element, const ElementRule& rule, std::string_view container) {
        for (const AttributeRule& each : rule.attributes) {
            check_attribute(element, each);
        }
        for (const auto& [name, value] : element.attributes) {
            if (std::none_of(rule.attributes.begin(), rule.attributes.end(),
                             [&, n = std::string_view(name)](const AttributeRule& each) {
                                 return each.name == n;
                             })) {
                add(kUnexpectedAttribute, element, element.name,
                    "Attribute '" + name + "' is not expected in '" + element.name + "'");
            }
        }
        check_content(element, rule, container);
        check_children(element, rule);
    }

    std::vector<Violation> take() { return std::move(violations_); }

  private:
    void add(ViolationKind kind, const Element& at, std::string_view container,
             std::string description) {
        violations_.push_back(
            {kind.code, std::move(description), kind.type, std::string(container), at.position});
    }

    void check_attribute(const Element& element, const AttributeRule& rule) {
        const auto value = element.attribute(rule.name);
        const std::string name = "Attribute '" + std::string(rule.name) + "' of '" + element.name;
        if (!value) {
            if (rule.required) {
                add(kMissingAttribute, element, element.name, name + "' is required");
            }
        } else if (rule.width != 0 && length(*value) > rule.width) {
            add(kTooLong, element, element.name,
                name + "' is longer than " + std::to_string(rule.width) + " characters");
        } else if (!rule.values.empty() &&
                   std::find(rule.values.begin(), rule.values.end(), *value) == rule.values.end()) {
            add(kUnknownValue, element, element.name, name + "' has an unknown value");
        }
    }

    void check_content(const Element& element, const ElementRule& rule,
                       std::string_view container) {
        const std::string_view text = element.text;
        const std::string name = "Element '" + element.name + "' ";
        const bool no_text = rule.content == Content::kNone || rule.content == Content::kElements;
        if (no_text && !text.empty()) {
            add(kUnexpectedText, element, container, name + "must not hold text");
        } else if (rule.content == Content::kFilledText && text.empty()) {
            add(kBlank, element, container, name + "must not be empty");
        } else if (rule.width != 0 && length(text) > rule.width) {
            add(kTooLong, element, container,
                name + "is longer than " + std::to_string(rule.width) + " characters");
        } else if (rule.content == Content::kWholeNumber && !is_whole_number(text)) {
            add(kNotWhole, element, container, name + "must be a whole number");
        } else if (rule.content == Content::kDigits &&
                   (!is_whole_number(text) || text.size() != rule.width)) {
            add(kNotDigits, element, container,
                name + "must be " + std::to_string(rule.width) + " digits");
        } else if (rule.content == Content::kDate && !text.empty() && !parse_date(text)) {
            add(kNotDate, element, container, name + "must be a date (yyyy-mm-dd)");
        }
    }

    static bool is_whole_number(std::string_view text) {
        return !text.empty() && text.size() <= 15 &&
               std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    }

    /// The children come in the order of the rules; what a rule did not find where it should be is
    /// reported there, and whatever no remaining rule knows is not expected.
    void check_children(const Element& element, const ElementRule& rule) {
        auto next = rule.children.begin();
        bool seen = false;  // the rule `next` has had its element
        const auto pass_by = [&](const Element& at) {
            if (!seen && next->occurs == Occurs::kOnce) {
                add(kMissingElement, at, element.name,
                    "Element '" + std::string(next->name) + "' is required");
            }
            ++next;
            seen = false;
        };
        for (const Element& each : element.children) {
            const auto found = std::find_if(
                next, rule.children.end(),
                [&](const ElementRule& candidate) { return candidate.name == each.name; });
            const bool again = found == next && seen && found != rule.children.end() &&
                               next->occurs != Occurs::kMany;
            if (found == rule.children.end() || again) {
                add(kUnexpectedElement, each, element.name,
                    "Element '" + each.name + "' is not expected here");
                continue;
            }
            while (next != found) {
                pass_by(each);
            }
            seen = true;
            check(each, *found, element.name);
        }
        while (next != rule.children.end()) {
            pass_by(element);
        }
    }

    std::vector<Violation> violations_;
};

}  // namespace

std::vector<Violation> check(const Element& element, const ElementRule& rule) {
    Checker checker;
    checker.check(element, rule, element.name);
    return checker.take();
}

Violation complaint(const Element& container, std::string_view code, std::string description,
                    std::string_view type) {
    return {code, std::move(description), type, container.name, container.position};
}

}  // namespace zr::gateway
