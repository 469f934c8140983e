// Compiles paths.
#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "xml/xml_document.h"

namespace zr {

namespace {

using xml_path::Alternative;
using xml_path::Step;
using Alternatives = std::vector<Alternative>;

bool is_name_start(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool is_name_char(char c) {
    return is_name_start(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// Recursive descent; a union in brackets is multiplied out, so that what runs is plain step lists.
class Compiler {
  public:
    Compiler(std::string_view expression, XmlNames& names)
        : expression_(expression), names_(names) {}

    Alternatives compile() {
        Alternatives result = unions();
        if (position_ != expression_.size()) fail();
        return result;
    }

  private:
    Alternatives unions() {
        Alternatives result = path();
        while (take("|")) {
            Alternatives more = path();
            std::move(more.begin(), more.end(), std::back_inserter(result));
        }
        return result;
    }

    Alternatives path() {
        Alternatives heads(1);
        if (take("(")) {
            heads = unions();
            if (!take(")")) fail();
        } else if (take("//")) {
            heads[0].absolute = true;
            add_step(heads, Step::Axis::kDescendant);
        } else if (take("/")) {
            heads[0].absolute = true;
            if (at_step()) add_step(heads, Step::Axis::kChild);
        } else if (!take(".")) {
            add_step(heads, Step::Axis::kChild);
        }
        for (;;) {
            if (take("//")) {
                add_step(heads, Step::Axis::kDescendant);
            } else if (take("/")) {
                add_step(heads, Step::Axis::kChild);
            } else {
                return heads;
            }
        }
    }

    void add_step(Alternatives& heads, Step::Axis axis) {
        for (const Alternative& head : heads) {
            if (head.attribute != 0) fail();
        }
        if (take("@")) {
            if (axis == Step::Axis::kDescendant || heads.size() != 1) fail();
            heads.front().attribute = attribute_name();
            return;
        }
        const Step step = this->step(axis);
        for (Alternative& head : heads) head.steps.push_back(step);
    }

    Step step(Step::Axis axis) {
        Step step;
        step.axis = axis;
        step.name = names_.add(name());
        while (step.position == 0 && take("[")) {
            if (take("@")) {
                const XmlNameId attribute = attribute_name();
                if (!take("=")) fail();
                step.predicates.push_back({attribute, literal()});
            } else {
                step.position = number();
            }
            if (!take("]")) fail();
        }
        return step;
    }

    XmlNameId attribute_name() {
        std::string written(name());
        if (position_ < expression_.size() && expression_[position_] == ':') {
            ++position_;
            written += ':';
            written += name();
        }
        return names_.add(written);
    }

    std::string_view name() {
        skip_blanks();
        const std::size_t begin = position_;
        if (!at_step() || expression_[begin] == '@') fail();
        while (position_ < expression_.size() && is_name_char(expression_[position_])) ++position_;
        return expression_.substr(begin, position_ - begin);
    }

    std::string literal() {
        for (const std::string_view quote : {"'", "\""}) {
            if (!take(quote)) continue;
            const std::size_t end = expression_.find(quote, position_);
            if (end == std::string_view::npos) fail();
            const std::string_view value = expression_.substr(position_, end - position_);
            position_ = end + 1;
            return std::string(value);
        }
        fail();
    }

    std::uint32_t number() {
        skip_blanks();
        std::uint32_t value = 0;
        const char* begin = expression_.data() + position_;
        const char* end = expression_.data() + expression_.size();
        const auto [stop, error] = std::from_chars(begin, end, value);
        if (error != std::errc() || value == 0) fail();
        position_ += static_cast<std::size_t>(stop - begin);
        return value;
    }

    bool at_step() {
        skip_blanks();
        return position_ < expression_.size() &&
               (expression_[position_] == '@' || is_name_start(expression_[position_]));
    }

    bool take(std::string_view token) {
        skip_blanks();
        if (!expression_.substr(position_).starts_with(token)) return false;
        position_ += token.size();
        return true;
    }

    void skip_blanks() {
        while (position_ < expression_.size() && expression_[position_] == ' ') ++position_;
    }

    [[noreturn]] void fail() const {
        throw std::invalid_argument("\"" + std::string(expression_) + "\" is not a path (at " +
                                    std::to_string(position_ + 1) + ").");
    }

    std::string_view expression_;
    XmlNames& names_;
    std::size_t position_ = 0;
};

/// The path as a plain one; none when it is more than that.
std::optional<xml_path::Plain> as_plain(const Alternatives& alternatives) {
    if (alternatives.size() != 1 || alternatives.front().absolute) return std::nullopt;
    xml_path::Plain plain;
    plain.attribute = alternatives.front().attribute;
    for (const Step& step : alternatives.front().steps) {
        const bool is_plain =
            step.axis == Step::Axis::kChild && step.position == 0 && step.predicates.empty();
        if (!is_plain) return std::nullopt;
        plain.children.push_back(step.name);
    }
    return plain;
}

}  // namespace

XmlPath::XmlPath(std::string_view expression, XmlNames& names)
    : alternatives_(Compiler(expression, names).compile()),
      plain_(names.watch() == nullptr ? as_plain(alternatives_) : std::nullopt) {}

}  // namespace zr
