#include "platform/libraries/style_sheet_budget.h"

#include <libexslt/exslt.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <libxslt/extensions.h>
#include <libxslt/imports.h>
#include <libxslt/transform.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <new>
#include <utility>

#include "platform/clock.h"
#include "platform/libraries/style_sheet_fold.h"

namespace zr {

namespace {

thread_local SheetBudget* current_budget = nullptr;

constexpr double kLeastSeconds = 2;
constexpr double kBytesPerSecond = 1 << 20;
constexpr std::int64_t kLeastNodes = 1 << 20;
constexpr unsigned long kOperationsPerSecond = 20'000'000;
constexpr unsigned long kInstructionsPerSecond = 20'000'000;

// The node after one in document order, within the tree below `top`; null at its end.
xmlNodePtr next_within(xmlNodePtr top, xmlNodePtr node) {
    const bool has_children = node->type != XML_ENTITY_REF_NODE && node->type != XML_ATTRIBUTE_NODE;
    if (has_children && node->children != nullptr) return node->children;
    while (node != top && node->next == nullptr) node = node->parent;
    return node == top ? nullptr : node->next;
}

bool admit_tree(SheetBudget& budget, xmlNodePtr top) {
    constexpr std::size_t kPortion = 4096;
    std::size_t nodes = 0;
    std::size_t text = 0;
    for (xmlNodePtr node = top; node != nullptr; node = next_within(top, node)) {
        ++nodes;
        if (node->type == XML_ELEMENT_NODE) {
            for (xmlAttrPtr at = node->properties; at != nullptr; at = at->next) ++nodes;
        } else if (node->type == XML_TEXT_NODE && node->content != nullptr) {
            text += std::strlen(reinterpret_cast<const char*>(node->content));
        }
        if (nodes >= kPortion) {
            if (!budget.admit_nodes(nodes, text)) return false;
            nodes = text = 0;
        }
    }
    return budget.admit_nodes(nodes, text);
}

// What an xsl:copy-of selects, which it then copies without a question.
xmlXPathObjectPtr selection(xsltTransformContextPtr context, xmlNodePtr node,
                            xsltStylePreCompPtr instruction) {
    if (instruction->comp == nullptr) return nullptr;
    const xmlXPathContextPtr xpath = context->xpathCtxt;
    const xmlXPathContext before = *xpath;
    xpath->node = node;
    xpath->namespaces = instruction->nsList;
    xpath->nsNr = instruction->nsNr;
    xmlXPathObjectPtr selected = xmlXPathCompiledEval(instruction->comp, xpath);
    xpath->node = before.node;
    xpath->namespaces = before.namespaces;
    xpath->nsNr = before.nsNr;
    return selected;
}

bool admit_copy(SheetBudget& budget, xsltTransformContextPtr context, xmlNodePtr node,
                xsltElemPreCompPtr instruction) {
    xmlXPathObjectPtr selected =
        selection(context, node, reinterpret_cast<xsltStylePreCompPtr>(instruction));
    if (selected == nullptr) return true;  // the instruction itself says what is wrong
    bool admitted = true;
    const bool has_nodes = selected->type == XPATH_NODESET || selected->type == XPATH_XSLT_TREE;
    if (has_nodes && selected->nodesetval != nullptr) {
        const xmlNodeSet& set = *selected->nodesetval;
        for (int i = 0; i < set.nodeNr && admitted; ++i) {
            const bool is_namespace = set.nodeTab[i]->type == XML_NAMESPACE_DECL;
            admitted = is_namespace || admit_tree(budget, set.nodeTab[i]);
        }
    }
    xmlXPathFreeObject(selected);
    return admitted;
}

/// What an instruction makes by itself that is measured.
enum class Makes { kNothing, kText, kCopies };

template <xsltTransformFunction Run, Makes makes>
void guarded(xsltTransformContextPtr context, xmlNodePtr node, xmlNodePtr instruction,
             xsltElemPreCompPtr compiled) {
    SheetBudget& budget = SheetBudget::of(context);
    if (!budget.admit()) return;
    budget.fold();
    if constexpr (makes == Makes::kCopies) {
        if (!admit_copy(budget, context, node, compiled)) return;
    }
    const xmlChar* const text = context->lasttext;
    const int used = context->lasttuse;
    Run(context, node, instruction, compiled);
    if constexpr (makes == Makes::kText) {
        const int made = context->lasttext == text ? context->lasttuse - used : context->lasttuse;
        budget.admit_nodes(0, static_cast<std::size_t>(std::max(made, 0)));
    }
}

struct Instruction {
    xsltTransformFunction run;
    xsltTransformFunction guarded_run;
};
template <xsltTransformFunction Run, Makes makes = Makes::kNothing>
constexpr Instruction kGuarded{Run, guarded<Run, makes>};

const Instruction kInstructions[] = {
    kGuarded<xsltApplyImports>,
    kGuarded<xsltApplyTemplates>,
    kGuarded<xsltAttribute>,
    kGuarded<xsltCallTemplate>,
    kGuarded<xsltChoose>,
    kGuarded<xsltComment>,
    kGuarded<xsltCopy>,
    kGuarded<xsltCopyOf, Makes::kCopies>,
    kGuarded<xsltElement>,
    kGuarded<xsltForEach>,
    kGuarded<xsltIf>,
    kGuarded<xsltNumber, Makes::kText>,
    kGuarded<xsltText, Makes::kText>,
    kGuarded<xsltValueOf, Makes::kText>,
    kGuarded<xsltProcessingInstruction>,
};

SheetBudget& budget_of(xmlXPathParserContextPtr parser) {
    return SheetBudget::of(xsltXPathGetTransformContext(parser));
}

// A short text costs little and is gone soon.
constexpr std::size_t kShort = 4096;

const auto* const kReplace = reinterpret_cast<const xmlChar*>("replace");

// A function of XPath's own whose work, or whose result, grows with its arguments.
template <xmlXPathFunction Function>
void measured(xmlXPathParserContextPtr parser, int count) {
    std::size_t made = 0;  // by concat
    for (int i = 0; Function == xmlXPathConcatFunction && i < std::min(count, parser->valueNr);
         ++i) {
        const xmlXPathObject& argument = *parser->valueTab[parser->valueNr - 1 - i];
        if (argument.type == XPATH_STRING && argument.stringval != nullptr) {
            made += std::strlen(reinterpret_cast<const char*>(argument.stringval));
        }
    }
    SheetBudget& budget = budget_of(parser);
    if (!budget.admit() || (made > kShort && !budget.admit_nodes(0, made))) {
        xmlXPathErr(parser, XPATH_EXPR_ERROR);
        return;
    }
    Function(parser, count);
}

// str:replace of three texts makes its result in one go, however large.
void measured_replace(xmlXPathParserContextPtr parser, int count) {
    const auto length = [parser, count](int argument) -> std::size_t {
        const xmlXPathObject& value = *parser->valueTab[parser->valueNr - count + argument];
        const bool is_text = value.type == XPATH_STRING && value.stringval != nullptr;
        return is_text ? std::strlen(reinterpret_cast<const char*>(value.stringval)) : 0;
    };
    std::size_t made = 0;  // at most
    if (count == 3 && parser->valueNr >= count) {
        made = length(0) / std::max<std::size_t>(length(1), 1) * length(2);
    }
    SheetBudget& budget = budget_of(parser);
    const auto run = xsltExtModuleFunctionLookup(kReplace, EXSLT_STRINGS_NAMESPACE);
    if (run == nullptr || !budget.admit() || (made > kShort && !budget.admit_nodes(0, made))) {
        xmlXPathErr(parser, XPATH_EXPR_ERROR);
        return;
    }
    run(parser, count);
}

struct NamedFunction {
    const char* name;
    xmlXPathFunction run;
};

const NamedFunction kFunctions[] = {
    {"boolean", measured<xmlXPathBooleanFunction>},
    {"concat", measured<xmlXPathConcatFunction>},
    {"contains", measured<xmlXPathContainsFunction>},
    {"count", measured<xmlXPathCountFunction>},
    {"normalize-space", measured<xmlXPathNormalizeFunction>},
    {"not", measured<xmlXPathNotFunction>},
    {"number", measured<xmlXPathNumberFunction>},
    {"starts-with", measured<xmlXPathStartsWithFunction>},
    {"string", measured<xmlXPathStringFunction>},
    {"string-length", measured<xmlXPathStringLengthFunction>},
    {"substring", measured<xmlXPathSubstringFunction>},
    {"substring-after", measured<xmlXPathSubstringAfterFunction>},
    {"substring-before", measured<xmlXPathSubstringBeforeFunction>},
    {"sum", measured<xmlXPathSumFunction>},
    {"translate", measured<xmlXPathTranslateFunction>},
};

}  // namespace

std::string too_much_output() {
    return "It writes more than " + std::to_string(kMostSheetOutput) + " bytes";
}

SheetBudget::SheetBudget(std::size_t input_bytes)
    : seconds_(std::max(kLeastSeconds, static_cast<double>(input_bytes) / kBytesPerSecond)),
      look_again_(coarse_seconds() + seconds_),
      started_(thread_seconds()),
      most_nodes_(kLeastNodes + static_cast<std::int64_t>(input_bytes)),
      most_text_(4 * kMostSheetOutput + 16 * input_bytes),
      outer_(current_budget) {
    errno = 0;
    current_budget = this;
    outer_count_ = xmlRegisterNodeDefault(count_node);
    outer_forget_ = xmlDeregisterNodeDefault(forget_node);
}

SheetBudget::~SheetBudget() {
    xmlRegisterNodeDefault(outer_count_);
    xmlDeregisterNodeDefault(outer_forget_);
    current_budget = outer_;
}

// Elements of the sheet's own are made between two of its instructions.
void SheetBudget::count_node(xmlNodePtr) {
    constexpr std::int64_t kPortion = 1024;
    if (++current_budget->nodes_ % kPortion == 0) current_budget->admit();
}
void SheetBudget::forget_node(xmlNodePtr) { --current_budget->nodes_; }

void SheetBudget::guard(xsltStylesheetPtr sheet) {
    for (; sheet != nullptr; sheet = xsltNextImport(sheet)) {
        xsltElemPreCompPtr compiled = sheet->preComps;
        for (; compiled != nullptr; compiled = compiled->next) {
            const auto* const found =
                std::find_if(std::begin(kInstructions), std::end(kInstructions),
                             [&](const Instruction& row) { return row.run == compiled->func; });
            if (found != std::end(kInstructions)) compiled->func = found->guarded_run;
        }
    }
}

void SheetBudget::govern(xsltTransformContextPtr context) {
    context_ = context;
    context->_private = this;
    folds_ = makes_foldable_pages(context->style);
    const auto seconds = static_cast<unsigned long>(seconds_);
    context->opLimit = kInstructionsPerSecond * seconds;
    context->xpathCtxt->opLimit = kOperationsPerSecond * seconds;
    for (const NamedFunction& function : kFunctions) {
        const auto* const name = reinterpret_cast<const xmlChar*>(function.name);
        xmlXPathRegisterFunc(context->xpathCtxt, name, nullptr);  // the library's own
        if (xmlXPathRegisterFunc(context->xpathCtxt, name, function.run) != 0) {
            throw std::bad_alloc();
        }
    }
    if (xmlXPathRegisterFuncNS(context->xpathCtxt, kReplace, EXSLT_STRINGS_NAMESPACE,
                               measured_replace) != 0) {
        throw std::bad_alloc();
    }
}

bool SheetBudget::admit() {
    // The library passes over most failures to allocate; each leaves its mark here.
    if (errno == ENOMEM) {
        memory_ended_ = true;
        return stop("Not enough memory");
    }
    if (nodes_ > most_nodes_) return stop("It makes a larger tree than it may");
    const double now = coarse_seconds();
    if (now >= look_again_) {
        const double left = seconds_ - (thread_seconds() - started_);
        if (left <= 0) return stop("It takes longer than it may");
        look_again_ = now + left;
    }
    return reason_.empty();
}

bool SheetBudget::admit_nodes(std::size_t nodes, std::size_t bytes) {
    text_ += bytes;
    if (text_ > most_text_) return stop("It makes more text than it may");
    if (nodes_ + static_cast<std::int64_t>(nodes) > most_nodes_) {
        return stop("It makes a larger tree than it may");
    }
    return admit();
}

void SheetBudget::fold() {
    constexpr std::int64_t kPortion = 512;
    nodes_when_folded_ = std::min(nodes_when_folded_, nodes_);
    const bool is_page = folds_ && context_->output->type == XML_HTML_DOCUMENT_NODE;
    if (!is_page || nodes_ - nodes_when_folded_ < kPortion) return;
    folded_ += fold_finished(context_);
    nodes_when_folded_ = nodes_;
    if (folded_ > kMostSheetOutput) stop(too_much_output());
}

bool SheetBudget::stop(std::string reason) {
    if (reason_.empty()) reason_ = std::move(reason);
    if (context_ != nullptr) context_->state = XSLT_STATE_STOPPED;
    return false;
}

}  // namespace zr
