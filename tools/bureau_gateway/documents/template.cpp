#include "bureau_gateway/documents/template.h"

#include <libxml/xpathInternals.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <stdexcept>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/company_register.h"
#include "bureau_gateway/file_key.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

constexpr const char* kOwn = "urn:bureau-gateway";
constexpr int kLargeRecords = 20;  // that a large report repeats

/// A whole number that nothing overflows with; 0 for what is not a number.
int to_int(double number) {
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, -1e6, 1e6));
}

bool is_own(const xmlNode& node) {
    return node.ns && std::string_view(reinterpret_cast<const char*>(node.ns->href)) == kOwn;
}

Value node_set(const std::vector<xmlNode*>& nodes) {
    Value value(xmlXPathNewNodeSet(nullptr));
    for (xmlNode* each : nodes) {
        xmlXPathNodeSetAdd(value->nodesetval, each);
    }
    return value;
}

/// A sequence of draws, and the file that they are about.
struct Scope {
    FileKey file;
    std::uint64_t seed = 0;
    Random random{0};

    void start(std::uint64_t with) {
        seed = with;
        random = Random(with);
    }
};

class Writer {
  public:
    Writer(const ReplyFacts& facts, xmlNode& place)
        : facts_(facts),
          place_(place),
          xpath_(*place.doc),
          aside_(new_document("aside")),
          register_(facts.words, *xmlDocGetRootElement(aside_.get())) {
        offer_functions();
        xpath_.set("request", node_set({&facts.request}));
        xpath_.set("words", node_set({&facts.words}));
        xpath_.set("large", Value(xmlXPathNewFloat(static_cast<double>(facts.large_bytes))));
    }

    void write_content(const xmlNode& from, xmlNode& to) {
        for (const xmlNode* each = from.children; each; each = each->next) {
            if (each->type == XML_TEXT_NODE) {
                const std::string text = filled(reinterpret_cast<const char*>(each->content), to);
                if (!text.empty()) {
                    xmlNodeAddContent(&to, to_xml(text.c_str()));
                }
            } else if (each->type == XML_ELEMENT_NODE) {
                write(*each, to);
            }
        }
    }

    // what the functions draw on
    Scope& scope() { return scope_; }
    const ReplyFacts& facts() const { return facts_; }
    const CompanyRegister& companies() const { return register_; }

  private:
    void offer_functions();

    static std::string own(const xmlNode& element, const char* name) {
        return attribute(element, name, kOwn);
    }

    /// The text with its placeholders filled in, without white space at both ends.
    std::string filled(std::string_view text, xmlNode& at) {
        std::string result;
        text = trim(text);
        for (auto open = text.find('{'); open != std::string_view::npos; open = text.find('{')) {
            const auto close = text.find('}', open);
            if (close == std::string_view::npos) {
                throw std::runtime_error("A placeholder does not end");
            }
            result += text.substr(0, open);
            result += xpath_.text(std::string(text.substr(open + 1, close - open - 1)), at);
            text.remove_prefix(close + 1);
        }
        return std::string(trim(result.append(text)));
    }

    /// The element as often as it says, each time with draws of its own that nothing before it
    /// changes.
    void write(const xmlNode& element, xmlNode& to) {
        const std::string repeat = own(element, "repeat");
        if (repeat.empty()) {
            write_once(element, to);
            return;
        }
        const Value times = xpath_.evaluate(repeat, to);
        const xmlNodeSet* nodes = times->type == XPATH_NODESET ? times->nodesetval : nullptr;
        const bool fills = facts_.large_bytes != 0 && !own(element, "fill").empty() &&
                           xpath_.test(own(element, "fill"), to);
        int count = nodes ? nodes->nodeNr : to_int(xmlXPathCastToNumber(times.get()));
        if (fills && !nodes) {
            count = std::max(count, kLargeRecords);
        }
        const Scope outer = scope_;
        const auto [outer_number, outer_node] = std::pair(number_, node_);
        xmlNode* before = to.last;
        for (int i = 0; i < count; ++i) {
            scope_.start(seed_of(element, outer.seed) + static_cast<std::uint64_t>(i));
            stand_at(i + 1, nodes ? nodes->nodeTab[i] : nullptr);
            write_once(element, to);
        }
        if (fills) {
            enlarge(before ? before->next : to.children, to);
        }
        scope_ = outer;
        stand_at(outer_number, outer_node);
    }

    static std::uint64_t seed_of(const xmlNode& element, std::uint64_t outer) {
        xmlChar* path = xmlGetNodePath(&element);
        const std::uint64_t seed = hash(reinterpret_cast<const char*>(path), outer);
        xmlFree(path);
        return seed;
    }

    void stand_at(int number, xmlNode* node) {
        number_ = number;
        node_ = node;
        xpath_.set("n", Value(xmlXPathNewFloat(number)));
        xpath_.set("it", node_set(node ? std::vector{node} : std::vector<xmlNode*>()));
    }

    /// Adds copies of the records from the first on until they take up the size that is wanted.
    void enlarge(xmlNode* first, xmlNode& to) {
        std::vector<std::pair<xmlNode*, std::size_t>> records;
        std::size_t size = 0;
        for (xmlNode* each = first; each; each = each->next) {
            xmlBuffer* text = xmlBufferCreate();
            records.emplace_back(each,
                                 static_cast<std::size_t>(xmlNodeDump(text, to.doc, each, 0, 0)));
            xmlBufferFree(text);
            size += records.back().second;
        }
        for (std::size_t i = 0; size < facts_.large_bytes && !records.empty(); ++i) {
            const auto& [record, bytes] = records[i % records.size()];
            xmlAddChild(&to, xmlDocCopyNode(record, to.doc, 1));
            size += bytes;
        }
    }

    void write_once(const xmlNode& element, xmlNode& to) {
        const std::string condition = own(element, "if");
        if (!condition.empty() && !xpath_.test(condition, to)) {
            return;
        }
        const std::string file = own(element, "file");
        const std::optional<Scope> outer = file.empty() ? std::nullopt : std::optional(scope_);
        if (outer) {
            scope_.file = key_of(xpath_.text(file, to));
            scope_.start(scope_.file.seed);
        }
        if (is_own(element)) {
            obey(element, to);
        } else {
            write_element(element, to);
        }
        if (outer) {
            scope_ = *outer;
        }
    }

    void write_element(const xmlNode& element, xmlNode& to) {
        xmlNode& made = add(to, name_of(element).c_str());
        for (const xmlAttr* each = element.properties; each; each = each->next) {
            if (!each->ns) {
                const auto* name = reinterpret_cast<const char*>(each->name);
                const std::string value = filled(attribute(element, name), to);
                if (!value.empty()) {
                    set_attribute(made, name, value);
                }
            }
        }
        write_content(element, made);
        const bool empty = !made.children && !made.properties;
        if (empty && &to != &place_ && (element.children || element.properties)) {
            // Aside, not away: a value may still name it.
            xmlUnlinkNode(&made);
            xmlAddChild(xmlDocGetRootElement(aside_.get()), &made);
        }
    }

    void obey(const xmlNode& element, xmlNode& to) {
        const std::string name = name_of(element);
        if (name == "group") {
            write_content(element, to);
        } else if (name == "let") {
            set_values(element, to);
        } else if (name == "include") {
            include(element, to);
        } else if (name == "hold") {
            xmlNode& held = add(*xmlDocGetRootElement(aside_.get()), "held");
            write_content(element, held);
            xpath_.set(attribute(element, "name").c_str(), xpath_.evaluate("*", held));
        } else if (name == "copy") {
            for (xmlNode* each : xpath_.nodes(attribute(element, "select"), to)) {
                if (each->type == XML_ELEMENT_NODE) {
                    xmlAddChild(&to, xmlDocCopyNode(each, to.doc, 1));
                }
            }
        } else {
            throw std::runtime_error("'" + name + "' is not known");
        }
    }

    void set_values(const xmlNode& element, xmlNode& at) {
        for (const xmlAttr* each = element.properties; each; each = each->next) {
            const auto* name = reinterpret_cast<const char*>(each->name);
            if (!each->ns && std::string_view(name) != "file") {
                xpath_.set(name, xpath_.evaluate(attribute(element, name), at));
            }
        }
    }

    void include(const xmlNode& element, xmlNode& to) {
        constexpr int kDeepest = 20;
        const std::string file = attribute(element, "file");
        const xmlNode* root = facts_.find(file);
        if (!root || ++depth_ > kDeepest) {
            throw std::runtime_error("'" + file + "' cannot be included");
        }
        set_values(element, to);
        const Scope outer = scope_;
        scope_.start(seed_of(element, outer.seed));
        write_content(*root, to);
        scope_ = outer;
        --depth_;
    }

    const ReplyFacts& facts_;
    xmlNode& place_;
    XPath xpath_;
    Document aside_;
    CompanyRegister register_;
    Scope scope_;
    int number_ = 0;
    xmlNode* node_ = nullptr;
    int depth_ = 0;
};

// The functions of templates. Arguments come off the stack last first.

using Context = xmlXPathParserContext*;

Writer& writer(Context context) { return *static_cast<Writer*>(context->context->userData); }
Random& random_of(Context context) { return writer(context).scope().random; }

int pop_int(Context context) { return to_int(xmlXPathPopNumber(context)); }
Value pop(Context context) { return Value(valuePop(context)); }
std::string pop_text(Context context) {
    const Value value = pop(context);
    return value ? to_text(*value) : std::string();
}
void push(Context context, const std::string& text) {
    valuePush(context, xmlXPathNewCString(text.c_str()));
}
void push(Context context, double number) { valuePush(context, xmlXPathNewFloat(number)); }
void push(Context context, bool truth) { valuePush(context, xmlXPathNewBoolean(truth ? 1 : 0)); }
void push(Context context, Value value) { valuePush(context, value.release()); }

std::vector<std::string> split(std::string_view text, char at) {
    std::vector<std::string> parts;
    for (auto end = text.find(at); end != std::string_view::npos; end = text.find(at)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.emplace_back(text);
    return parts;
}

std::string two_decimals(double number) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.2f", number);
    return text.data();
}

void between(Context context) {
    const int high = pop_int(context);
    const int low = pop_int(context);
    push(context, static_cast<double>(random_of(context).between(low, high)));
}

void chance(Context context) { push(context, random_of(context).percent(pop_int(context))); }

void pick(Context context) {
    const Value from = pop(context);
    Random& random = random_of(context);
    if (from && from->type == XPATH_NODESET) {
        const xmlNodeSet* nodes = from->nodesetval;
        const bool any = nodes && nodes->nodeNr > 0;
        push(context,
             node_set(any ? std::vector{nodes->nodeTab[random.between(0, nodes->nodeNr - 1)]}
                          : std::vector<xmlNode*>()));
        return;
    }
    const auto words = split(from ? to_text(*from) : "", '|');
    push(context, words[random.next() % words.size()]);
}

void maybe(Context context) {
    const std::string value = pop_text(context);
    push(context, random_of(context).percent(pop_int(context)) ? value : std::string());
}

void either(Context context) {
    Value no = pop(context);
    Value yes = pop(context);
    push(context, xmlXPathPopBoolean(context) != 0 ? std::move(yes) : std::move(no));
}

/// One of three amounts, by how much is on file; low-high or a number.
void some(Context context) {
    const auto amounts = split(pop_text(context), ' ');
    const auto burden = static_cast<std::size_t>(writer(context).scope().file.burden);
    const auto range = split(amounts[std::min(burden, amounts.size() - 1)], '-');
    const auto number = [](const std::string& text) {
        int value = 0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    };
    push(context, static_cast<double>(
                      random_of(context).between(number(range.front()), number(range.back()))));
}

void digits(Context context) { push(context, random_of(context).digits(pop_int(context))); }

/// An amount of money between so many dollars, now and then with cents.
void cents(Context context) {
    const int high = pop_int(context);
    const int low = pop_int(context);
    Random& random = random_of(context);
    const int dollars = random.between(low, high);
    push(context, dollars + (random.percent(30) ? random.between(1, 99) / 100.0 : 0.0));
}

void two(Context context) { push(context, two_decimals(xmlXPathPopNumber(context))); }

void day(Context context) {
    push(context, to_iso(days_before(writer(context).facts().today, pop_int(context))));
}

void months(Context context) {
    const auto date = parse_date(pop_text(context));
    push(context, date ? static_cast<double>(whole_months(*date, writer(context).facts().today))
                       : std::nan(""));
}

template <bool Newest>
void extreme(Context context) {
    const Value from = pop(context);
    std::string found;
    const xmlNodeSet* nodes = from ? from->nodesetval : nullptr;
    for (int i = 0; nodes && i < nodes->nodeNr; ++i) {
        const std::string date = text_of(*nodes->nodeTab[i]);
        if (found.empty() || (Newest ? date > found : date < found)) {
            found = date;
        }
    }
    push(context, found);
}

void upper(Context context) { push(context, to_upper(pop_text(context))); }

void burden(Context context) {
    push(context, std::string(kBurdens[writer(context).scope().file.burden]));
}

void possible(Context context) { push(context, writer(context).scope().file.possible_match); }

void reference(Context context) { push(context, writer(context).scope().file.reference); }

void person(Context context) {
    const std::string birth = pop_text(context);
    const std::string first = pop_text(context);
    push(context, reference_of_person(pop_text(context), first, birth));
}

void company_of(Context context) {
    xmlNode* found = writer(context).companies().find(pop_text(context));
    push(context, node_set(found ? std::vector{found} : std::vector<xmlNode*>()));
}

void companies_called(Context context) {
    const std::string name = pop_text(context);
    push(context, node_set(name.empty() ? std::vector<xmlNode*>()
                                        : writer(context).companies().search(name)));
}

/// The function for libxml2, which gives it the number of its arguments.
template <int Arguments, void (*Function)(Context)>
void function(Context context, int given) {
    if (given != Arguments) {
        xmlXPathErr(context, XPATH_INVALID_ARITY);
        return;
    }
    Function(context);
}

void Writer::offer_functions() {
    const struct {
        const char* name;
        xmlXPathFunction function;
    } rows[] = {
        {"between", function<2, between>},
        {"chance", function<1, chance>},
        {"pick", function<1, pick>},
        {"maybe", function<2, maybe>},
        {"either", function<3, either>},
        {"some", function<1, some>},
        {"digits", function<1, digits>},
        {"cents", function<2, cents>},
        {"two", function<1, two>},
        {"day", function<1, day>},
        {"months", function<1, months>},
        {"oldest", function<1, extreme<false>>},
        {"newest", function<1, extreme<true>>},
        {"upper", function<1, upper>},
        {"burden", function<0, burden>},
        {"possible", function<0, possible>},
        {"reference", function<0, reference>},
        {"person", function<3, person>},
        {"company", function<1, company_of>},
        {"companies", function<1, companies_called>},
    };
    xpath_.set_owner(this);
    for (const auto& row : rows) {
        xpath_.set_function(row.name, row.function);
    }
    offer_codes(xpath_, facts_.codes);
}

void codes(Context context) {
    const std::string table = pop_text(context);
    xmlXPathObject* all = xmlXPathVariableLookup(context->context, to_xml("codes"));
    const Value root(all);
    push(context, XPath(*root->nodesetval->nodeTab[0]->doc)
                      .evaluate("/*/xs:simpleType[@name='" + table + "']//xs:enumeration",
                                *root->nodesetval->nodeTab[0]));
}

}  // namespace

void offer_codes(XPath& xpath, xmlNode& codes_of_country) {
    xpath.set("codes", node_set({&codes_of_country}));
    xpath.set_function("codes", function<1, codes>);
}

void expand(const xmlNode& root, const ReplyFacts& facts, xmlNode& place) {
    Writer(facts, place).write_content(root, place);
}

}  // namespace zr::gateway
