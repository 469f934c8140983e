#include "platform/libraries/style_sheet_fold.h"

#include <libxml/HTMLtree.h>
#include <libxml/parserInternals.h>
#include <libxslt/imports.h>

#include <cerrno>
#include <memory>

namespace zr {

namespace {

struct CloseOutput {
    void operator()(xmlOutputBufferPtr output) const { xmlOutputBufferClose(output); }
};

constexpr std::size_t kLeastWorthIt = 8192;

// Stands in `_private` of text that was folded, and of the elements around it.
char folded;

// The body of the page that a node is in; null for one that is in a variable, a value or the head,
// which the library looks at once more.
xmlNodePtr body_around(xmlNodePtr node) {
    while (node != nullptr && node->type == XML_ELEMENT_NODE) {
        const xmlNodePtr parent = node->parent;
        const bool below_root = parent != nullptr && parent->parent != nullptr &&
                                parent->parent->type == XML_HTML_DOCUMENT_NODE;
        if (below_root) return xmlStrcasecmp(node->name, BAD_CAST "body") == 0 ? node : nullptr;
        node = parent;
    }
    return nullptr;
}

// What is written of some siblings as one text; null when it is not worth it: the elements around
// folded text stay as they are.
xmlNodePtr written(xmlNodePtr first, xmlNodePtr end) {
    const std::unique_ptr<xmlOutputBuffer, CloseOutput> output(xmlAllocOutputBuffer(nullptr));
    if (output == nullptr) return nullptr;
    for (xmlNodePtr node = first; node != end; node = node->next) {
        htmlNodeDumpFormatOutput(output.get(), node->doc, node, nullptr, 0);
    }
    if (output->error != 0 || errno == ENOMEM) {
        errno = ENOMEM;
        return nullptr;
    }
    const std::size_t size = xmlOutputBufferGetSize(output.get());
    if (size < kLeastWorthIt) return nullptr;
    const xmlNodePtr text = xmlNewDocTextLen(first->doc, xmlOutputBufferGetContent(output.get()),
                                             static_cast<int>(size));
    if (text == nullptr) return nullptr;
    if (text->content == nullptr) {
        xmlFreeNode(text);
        return nullptr;
    }
    text->name = xmlStringTextNoenc;  // written as it stands
    text->_private = &folded;
    return text;
}

// All children but the last, which may be written to still.
std::size_t fold_children(xmlNodePtr open) {
    const xmlNodePtr last = open->last;
    xmlNodePtr first = last;
    while (first != nullptr && first->prev != nullptr && first->prev->_private != &folded) {
        first = first->prev;
    }
    if (first == last) return 0;
    const xmlNodePtr text = written(first, last);
    if (text == nullptr) return 0;
    xmlFreeNode(xmlReplaceNode(first, text));
    while (text->next != last) {
        const xmlNodePtr done = text->next;
        xmlUnlinkNode(done);
        xmlFreeNode(done);
    }
    for (xmlNodePtr around = open; around != nullptr && around->_private != &folded;
         around = around->parent) {
        around->_private = &folded;
    }
    return static_cast<std::size_t>(xmlStrlen(text->content));
}

}  // namespace

bool makes_foldable_pages(xsltStylesheetPtr sheet) {
    const xmlChar* method = nullptr;
    int indent = -1;
    XSLT_GET_IMPORT_PTR(method, sheet, method)
    XSLT_GET_IMPORT_INT(indent, sheet, indent)
    return xmlStrEqual(method, BAD_CAST "html") == 1 && indent == 0;
}

std::size_t fold_finished(xsltTransformContextPtr context) {
    const xmlNodePtr body = body_around(context->insert);
    if (body == nullptr) return 0;
    std::size_t size = 0;
    for (xmlNodePtr open = context->insert; open != body->parent; open = open->parent) {
        size += fold_children(open);
    }
    return size;
}

}  // namespace zr
