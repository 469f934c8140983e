// Documents and XPath over them. The files of this folder are all that names libxml2.
#pragma once

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zr::gateway {

struct XmlFreer {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    void operator()(xmlXPathObject* value) const { xmlXPathFreeObject(value); }
    void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
    void operator()(xmlXPathCompExpr* expression) const { xmlXPathFreeCompExpr(expression); }
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Document = std::unique_ptr<xmlDoc, XmlFreer>;
using Value = std::unique_ptr<xmlXPathObject, XmlFreer>;

inline const xmlChar* to_xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

/// Null when the text is not well-formed or has a document type.
Document parse(std::string_view text);

/// As parse; throws std::runtime_error that names the file.
Document load(const std::filesystem::path& file);

/// A document of one empty element.
Document new_document(const char* root);

/// The whole document in UTF-8.
std::string to_text(xmlDoc& document);

std::string name_of(const xmlNode& node);

/// "" where there is none.
std::string attribute(const xmlNode& element, const char* name);
std::string attribute(const xmlNode& element, const char* name, const char* name_space);

xmlNode& add(xmlNode& parent, const char* name, const std::string& text = {});
void set_attribute(xmlNode& element, const char* name, const std::string& value);

/// XPath from the nodes of one document. Every expression that is not one throws
/// std::runtime_error.
class XPath {
  public:
    explicit XPath(xmlDoc& document);

    Value evaluate(const std::string& expression, xmlNode& at);
    bool test(const std::string& expression, xmlNode& at);
    std::string text(const std::string& expression, xmlNode& at);
    std::vector<xmlNode*> nodes(const std::string& expression, xmlNode& at);

    void set(const char* variable, Value value);
    void set_function(const char* name, xmlXPathFunction function);
    void set_owner(void* owner) { context_->userData = owner; }

  private:
    std::unique_ptr<xmlXPathContext, XmlFreer> context_;
};

/// Text of a value, white space at both ends left out; "" for what is not a number.
std::string to_text(xmlXPathObject& value);

/// All text in a node, white space at both ends left out.
std::string text_of(const xmlNode& node);

/// What an expression without variables says of a node.
std::string text_at(xmlNode& node, const std::string& expression);

}  // namespace zr::gateway
