#include "bureau_gateway/documents/xml.h"

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unordered_map>

#include "bureau_gateway/ascii.h"

namespace zr::gateway {
namespace {

using Text = std::unique_ptr<xmlChar, XmlFreer>;

std::string owned(xmlChar* text) {
    const Text owner(text);
    return text ? reinterpret_cast<const char*>(text) : std::string();
}

void say_nothing(void* /*owner*/, xmlError* /*error*/) {}
void say_nothing_at_all(void* /*owner*/, const char* /*form*/, ...) {}

/// Expressions are compiled once a thread.
xmlXPathCompExpr* compiled(xmlXPathContext* context, const std::string& expression) {
    using Compiled = std::unique_ptr<xmlXPathCompExpr, XmlFreer>;
    thread_local std::unordered_map<std::string, Compiled> known;
    Compiled& found = known[expression];
    if (!found) {
        found.reset(xmlXPathCtxtCompile(context, to_xml(expression.c_str())));
    }
    return found.get();
}

}  // namespace

Document parse(std::string_view text) {
    constexpr int kOptions =
        XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NOCDATA;
    Document document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, kOptions));
    if (document && (document->intSubset || !xmlDocGetRootElement(document.get()))) {
        document.reset();
    }
    return document;
}

Document load(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    Document document = parse(text);
    if (!document) {
        throw std::runtime_error("The document '" + file.string() + "' cannot be read.");
    }
    return document;
}

Document new_document(const char* root) {
    Document document(xmlNewDoc(to_xml("1.0")));
    xmlDocSetRootElement(document.get(),
                         xmlNewDocNode(document.get(), nullptr, to_xml(root), nullptr));
    return document;
}

std::string to_text(xmlDoc& document) {
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpMemoryEnc(&document, &text, &size, "UTF-8");
    return owned(text);
}

std::string name_of(const xmlNode& node) { return reinterpret_cast<const char*>(node.name); }

std::string attribute(const xmlNode& element, const char* name) {
    return owned(xmlGetNoNsProp(&element, to_xml(name)));
}

std::string attribute(const xmlNode& element, const char* name, const char* name_space) {
    return owned(xmlGetNsProp(&element, to_xml(name), to_xml(name_space)));
}

xmlNode& add(xmlNode& parent, const char* name, const std::string& text) {
    return *xmlNewTextChild(&parent, nullptr, to_xml(name),
                            text.empty() ? nullptr : to_xml(text.c_str()));
}

void set_attribute(xmlNode& element, const char* name, const std::string& value) {
    xmlNewProp(&element, to_xml(name), to_xml(value.c_str()));
}

XPath::XPath(xmlDoc& document) : context_(xmlXPathNewContext(&document)) {
    context_->error = say_nothing;
    xmlSetGenericErrorFunc(nullptr, say_nothing_at_all);
    xmlXPathRegisterNs(context_.get(), to_xml("xs"), to_xml("http://www.w3.org/2001/XMLSchema"));
    xmlXPathRegisterNs(context_.get(), to_xml("t"), to_xml("urn:bureau-gateway"));
}

Value XPath::evaluate(const std::string& expression, xmlNode& at) {
    context_->node = &at;
    xmlXPathCompExpr* program = compiled(context_.get(), expression);
    Value value(program ? xmlXPathCompiledEval(program, context_.get()) : nullptr);
    if (!value) {
        throw std::runtime_error("The expression '" + expression + "' cannot be evaluated");
    }
    return value;
}

bool XPath::test(const std::string& expression, xmlNode& at) {
    return xmlXPathCastToBoolean(evaluate(expression, at).get()) != 0;
}

std::string XPath::text(const std::string& expression, xmlNode& at) {
    return to_text(*evaluate(expression, at));
}

std::vector<xmlNode*> XPath::nodes(const std::string& expression, xmlNode& at) {
    const Value value = evaluate(expression, at);
    const xmlNodeSet* found = value->nodesetval;
    return found && found->nodeNr > 0
               ? std::vector<xmlNode*>(found->nodeTab, found->nodeTab + found->nodeNr)
               : std::vector<xmlNode*>();
}

void XPath::set(const char* variable, Value value) {
    xmlXPathRegisterVariable(context_.get(), to_xml(variable), value.release());
}

void XPath::set_function(const char* name, xmlXPathFunction function) {
    xmlXPathRegisterFunc(context_.get(), to_xml(name), function);
}

std::string to_text(xmlXPathObject& value) {
    if (value.type == XPATH_NUMBER && xmlXPathIsNaN(value.floatval) != 0) {
        return {};
    }
    return std::string(trim(owned(xmlXPathCastToString(&value))));
}

std::string text_of(const xmlNode& node) {
    return std::string(trim(owned(xmlNodeGetContent(&node))));
}

std::string text_at(xmlNode& node, const std::string& expression) {
    return XPath(*node.doc).text(expression, node);
}

}  // namespace zr::gateway
