// Reads trees: the text of a node and the evaluation of paths. Parsing is the platform's.
#include "xml/xml_document.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <span>
#include <utility>

#include "xml/xml_tree.h"
#include "xml/xml_watch.h"

namespace zr {

namespace {

using xml_path::Alternative;
using xml_path::Step;
using Steps = std::span<const Step>;

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

const XmlTree::Attribute* find_attribute(const XmlTree& tree, std::uint32_t node, XmlNameId name) {
    const XmlTree::Attribute* const all = tree.attributes.data();
    const XmlTree::Attribute* const end = all + tree.nodes[node + 1].attributes;
    for (const XmlTree::Attribute* at = all + tree.nodes[node].attributes; at != end; ++at) {
        if (at->name == name) return at;
    }
    return nullptr;
}

bool matches(const XmlTree& tree, std::uint32_t node, const Step& step) {
    if (tree.names[node] != step.name) return false;
    return std::all_of(step.predicates.begin(), step.predicates.end(),
                       [&](const xml_path::Predicate& predicate) {
                           const auto* const attribute = find_attribute(tree, node, predicate.name);
                           return attribute != nullptr && tree.value(*attribute) == predicate.value;
                       });
}

// Hands every result of the steps to the sink. A sink may turn away a node, and all that comes
// after it in document order, once it has a result before that: so a search for the first result
// ends with it.
template <class Sink>
class Walker {
  public:
    Walker(const XmlTree& tree, Sink& sink) : tree_(tree), sink_(sink) {}

    void walk(std::uint32_t context, Steps steps) {
        if (steps.empty()) {
            sink_.element(context);
            return;
        }
        const Step& step = steps.front();
        switch (step.axis) {
            case Step::Axis::kChild:
                children(context, step, steps.subspan(1));
                break;
            case Step::Axis::kDescendant:
                descendants(context, step, steps.subspan(1));
                break;
        }
    }

  private:
    void children(std::uint32_t context, const Step& step, Steps rest) {
        const std::uint32_t end = tree_.nodes[context].end;
        std::uint32_t count = 0;
        for (std::uint32_t node = context + 1; node < end; node = tree_.nodes[node].end) {
            if (!sink_.wants(node)) return;
            if (!matches(tree_, node, step)) continue;
            if (step.position == 0) {
                walk(node, rest);
            } else if (++count == step.position) {
                walk(node, rest);
                return;
            }
        }
    }

    void descendants(std::uint32_t context, const Step& step, Steps rest) {
        const std::uint32_t end = tree_.nodes[context].end;
        if (step.position != 0) {  // counted among the children of each
            for (std::uint32_t node = context; node < end && sink_.wants(node); ++node) {
                children(node, step, rest);
            }
            return;
        }
        const XmlNameId* const names = tree_.names.data();
        for (std::uint32_t node = context + 1;; ++node) {
            node =
                static_cast<std::uint32_t>(std::find(names + node, names + end, step.name) - names);
            if (node == end || !sink_.wants(node)) return;
            if (matches(tree_, node, step)) walk(node, rest);
            if (!sink_.wants(node + 1)) return;
        }
    }

    const XmlTree& tree_;
    Sink& sink_;
};

bool may_match(const XmlTree& tree, const Alternative& alternative) {
    return std::all_of(alternative.steps.begin(), alternative.steps.end(),
                       [&](const Step& step) { return tree.has_name(step.name); });
}

// Walks to the elements at the alternative's steps.
template <class Sink>
void evaluate(const XmlTree& tree, std::uint32_t context, const Alternative& alternative,
              Sink& sink) {
    if (!may_match(tree, alternative)) return;
    Walker<Sink>(tree, sink).walk(alternative.absolute ? 0 : context, alternative.steps);
}

// The same of every alternative that selects elements.
template <class Sink>
void evaluate(const XmlTree& tree, std::uint32_t context,
              const std::vector<Alternative>& alternatives, Sink& sink) {
    for (const Alternative& alternative : alternatives) {
        if (alternative.attribute == 0) evaluate(tree, context, alternative, sink);
    }
}

struct FirstElement {
    std::uint32_t best = kNone;

    bool wants(std::uint32_t node) const { return node < best; }
    void element(std::uint32_t node) { best = std::min(best, node); }
};

template <class Add>
struct EveryElement {
    Add add;

    static bool wants(std::uint32_t) { return true; }
    void element(std::uint32_t node) { add(node); }
};

/// The first value of a union: of each alternative the first element, or that element's attribute.
struct FirstValue {
    const XmlTree& tree;
    std::uint32_t best = kNone;
    const XmlTree::Attribute* attribute = nullptr;  ///< of the best element; null: it itself

    void search(std::uint32_t context, const Alternative& alternative) {
        constexpr std::uint32_t kNext = 1;  // the best one itself may have an earlier attribute
        FirstElement found{best == kNone ? kNone : best + kNext};
        const std::uint32_t unfound = found.best;
        evaluate(tree, context, alternative, found);
        if (found.best == unfound) return;
        const XmlTree::Attribute* const its_attribute =
            alternative.attribute == 0 ? nullptr
                                       : find_attribute(tree, found.best, alternative.attribute);
        if (alternative.attribute != 0 && its_attribute == nullptr) return;
        // An attribute comes after its element and before that element's children.
        if (found.best < best || std::less<>()(its_attribute, attribute)) {
            best = found.best;
            attribute = its_attribute;
        }
    }
};

// Paths that can yield a node twice, or nodes out of order: unions, and steps below a // step.
bool needs_sorting(const std::vector<Alternative>& alternatives) {
    if (alternatives.size() != 1) return true;
    const std::vector<Step>& steps = alternatives.front().steps;
    return std::any_of(steps.begin(), steps.end(), [&](const Step& step) {
        return step.axis == Step::Axis::kDescendant &&
               (&step != &steps.back() || step.position != 0);
    });
}

/// The first element at the names of a plain path. The same result as the walker's at a fraction of
/// its cost: this is how most values are read.
struct PlainSearch {
    const XmlTree& tree;
    const xml_path::Plain& path;

    /// The element, kNone where there is none. `depth` names have been matched down to `node`.
    std::uint32_t find(std::uint32_t node, std::size_t depth = 0) const {
        if (depth == path.children.size()) return node;
        const XmlNameId name = path.children[depth];
        const XmlNameId* const names = tree.names.data();
        const XmlTree::Node* const nodes = tree.nodes.data();
        if (!tree.has_name(name)) return kNone;
        const std::uint32_t end = nodes[node].end;
        for (std::uint32_t child = node + 1; child < end; child = nodes[child].end) {
            if (names[child] == name) {
                const std::uint32_t found = find(child, depth + 1);
                if (found != kNone) return found;
            }
        }
        return kNone;
    }
};

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && !is_ink(text.front())) text.remove_prefix(1);
    while (!text.empty() && !is_ink(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view text_of(const XmlTree& tree, std::uint32_t index) {
    const XmlTree::Node& node = tree.nodes[index];
    return trimmed({tree.pool.get() + node.text_begin, node.text_end - node.text_begin});
}

}  // namespace

void XmlNode::tell(XmlNode context, const XmlPath* path, XmlNameId attribute) const {
    if (context.tree_->watch != nullptr) {
        context.tree_->watch->read(context, path, *this, attribute);
    }
}

std::string_view XmlNode::text() const {
    if (tree_ != nullptr) tell(*this, nullptr, 0);
    return tree_ == nullptr ? std::string_view{} : text_of(*tree_, index_);
}

std::optional<std::string_view> XmlNode::attribute(XmlNameId name) const {
    if (tree_ == nullptr) return std::nullopt;
    const auto* const found = find_attribute(*tree_, index_, name);
    if (found == nullptr) return std::nullopt;
    tell(*this, nullptr, name);
    return tree_->value(*found);
}

XmlNode XmlNode::first(const XmlPath& path) const {
    if (tree_ == nullptr) return {};
    if (path.plain_ && path.plain_->attribute == 0) {
        const std::uint32_t found = PlainSearch{*tree_, *path.plain_}.find(index_);
        return found == kNone ? XmlNode{} : XmlNode(tree_, found);
    }
    FirstElement sink;
    evaluate(*tree_, index_, path.alternatives_, sink);
    return sink.best == kNone ? XmlNode{} : XmlNode(tree_, sink.best);
}

// Apart from find, whose plain paths should not pay for it.
std::optional<XmlValue> XmlNode::find_any(const XmlPath& path) const {
    FirstValue first{*tree_};
    for (const Alternative& alternative : path.alternatives_) first.search(index_, alternative);
    if (tree_->watch != nullptr) {
        const XmlNode found = first.best == kNone ? XmlNode{} : XmlNode(tree_, first.best);
        found.tell(*this, &path, first.attribute != nullptr ? first.attribute->name : XmlNameId{0});
    }
    if (first.best == kNone) return std::nullopt;
    if (first.attribute != nullptr) return XmlValue{tree_->value(*first.attribute), true};
    return XmlValue{text_of(*tree_, first.best)};
}

std::optional<XmlValue> XmlNode::find(const XmlPath& path) const {
    if (tree_ == nullptr) return std::nullopt;
    if (!path.plain_) return path.alternatives_.empty() ? std::nullopt : find_any(path);
    const std::uint32_t found = PlainSearch{*tree_, *path.plain_}.find(index_);
    if (found == kNone) return std::nullopt;
    if (path.plain_->attribute == 0) return XmlValue{text_of(*tree_, found)};
    const auto* const attribute = find_attribute(*tree_, found, path.plain_->attribute);
    if (attribute == nullptr) return std::nullopt;
    return XmlValue{tree_->value(*attribute), true};
}

std::vector<XmlNode> XmlNode::select(const XmlPath& path) const {
    std::vector<XmlNode> result;
    select(path, result);
    return result;
}

void XmlNode::select(const XmlPath& path, std::vector<XmlNode>& into) const {
    into.clear();
    if (tree_ == nullptr) return;
    const auto add = [&](std::uint32_t node) { into.push_back(XmlNode(tree_, node)); };
    EveryElement<decltype(add)> sink{add};
    evaluate(*tree_, index_, path.alternatives_, sink);
    if (!needs_sorting(path.alternatives_)) return;
    const auto before = [](const XmlNode& a, const XmlNode& b) { return a.index_ < b.index_; };
    std::sort(into.begin(), into.end(), before);
    into.erase(std::unique(into.begin(), into.end()), into.end());
}

XmlDocument::XmlDocument(std::unique_ptr<const XmlTree> tree) : tree_(std::move(tree)) {}
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;
XmlDocument::~XmlDocument() = default;

std::string_view XmlDocument::document_element() const {
    return tree_ ? std::string_view(tree_->document_element) : std::string_view();
}

XmlNode XmlDocument::root() const { return tree_ ? XmlNode(tree_.get(), 0) : XmlNode{}; }

}  // namespace zr
