#include "platform/style_sheet.h"

#include <libxslt/extensions.h>
#include <libxslt/extra.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/libraries/style_sheet_budget.h"
#include "platform/libraries/style_sheet_session.h"
#include "platform/libraries/xml_reader.h"

namespace zr {

namespace {

constexpr std::size_t kMostSheets = 64;
constexpr int kDeepestTemplate = 3000;  // fits a thread with a stack of 1 MiB

template <auto Free>
struct Freer {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
using DocumentPtr = std::unique_ptr<xmlDoc, Freer<xmlFreeDoc>>;
using SheetPtr = std::unique_ptr<xsltStylesheet, Freer<xsltFreeStylesheet>>;
using ContextPtr = std::unique_ptr<xsltTransformContext, Freer<xsltFreeTransformContext>>;
using OutputPtr = std::unique_ptr<xmlOutputBuffer, Freer<xmlOutputBufferClose>>;
using SecurityPtr = std::unique_ptr<xsltSecurityPrefs, Freer<xsltFreeSecurityPrefs>>;

const xmlChar* chars(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

template <class T>
T* allocated(T* object) {
    if (object == nullptr) throw std::bad_alloc();
    return object;
}

[[noreturn]] void fail(const char* what, const std::string& why) {
    throw PlatformError(error_number::kUnexpected,
                        why.empty() ? std::string(what) + "." : what + (": " + why) + ".");
}

DocumentPtr parse_input(std::string_view xml) {
    const XmlLimits limits;
    XmlReader reader(xml, XmlReader::Source::kText, limits);
    reader.build_document({});
    if (const auto error = reader.parse()) {
        const std::string_view reason = error->reason;
        throw PlatformError(error->code, "The XML could not be parsed: " +
                                             std::string(reason.substr(0, reason.find('\r'))));
    }
    return DocumentPtr(reader.take_document());
}

SheetPtr compile(SheetSession& session, const std::string& file_name) {
    DocumentPtr document(session.load(file_name, nullptr));
    errno = 0;  // many a failure to allocate leaves its mark only there
    SheetPtr sheet(xsltParseStylesheetDoc(document.get()));
    if (sheet != nullptr) static_cast<void>(document.release());
    if (errno == ENOMEM || session.memory_ended()) throw std::bad_alloc();
    if (sheet == nullptr || sheet->errors != 0) {
        fail("The style sheet could not be compiled", session.complaint());
    }
    // The output is text: whatever encoding a sheet asks for, it is written in ours.
    xmlFree(sheet->encoding);
    sheet->encoding = allocated(xmlStrdup(chars("UTF-8")));
    SheetBudget::guard(sheet.get());
    return sheet;
}

SecurityPtr restrictions() {
    SecurityPtr result(allocated(xsltNewSecurityPrefs()));
    for (const xsltSecurityOption forbidden :
         {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_READ_NETWORK,
          XSLT_SECPREF_WRITE_NETWORK}) {
        xsltSetSecurityPrefs(result.get(), forbidden, xsltSecurityForbid);
    }
    return result;
}

struct Output {
    std::string text;
    bool too_large = false;
    bool memory_ended = false;

    static int write(void* context, const char* piece, int size) noexcept {
        Output& output = *static_cast<Output*>(context);
        const auto length = static_cast<std::size_t>(size);
        output.too_large = output.too_large || length > kMostSheetOutput - output.text.size();
        if (output.too_large) return -1;
        try {
            output.text.append(piece, length);
        } catch (const std::bad_alloc&) {
            output.memory_ended = true;
            return -1;
        }
        return size;
    }
};

std::string serialise(xmlDocPtr result, xsltStylesheetPtr sheet, std::size_t folded) {
    Output output;
    output.text.reserve(folded + folded / 8);
    const OutputPtr buffer(
        allocated(xmlOutputBufferCreateIO(Output::write, nullptr, &output, nullptr)));
    const int written = xsltSaveResultTo(buffer.get(), result, sheet);
    const bool flushed = xmlOutputBufferFlush(buffer.get()) >= 0;
    if (output.memory_ended) throw std::bad_alloc();
    if (output.too_large) {
        fail("The style sheet could not be run", too_much_output());
    }
    if (written < 0 || !flushed) fail("The result of the style sheet could not be written", {});
    return std::move(output.text);
}

// Quoted: a value is text, never an expression.
void give_parameters(xsltTransformContextPtr context, const SheetParameters& parameters) {
    for (const auto& [name, value] : parameters) {
        xsltQuoteOneUserParam(context, chars(name.c_str()), chars(value.c_str()));
    }
}

DocumentPtr run(SheetSession& session, SheetBudget& budget, xsltStylesheetPtr sheet,
                xmlDocPtr input, const SheetParameters& parameters) {
    const SecurityPtr security = restrictions();
    const ContextPtr context(allocated(xsltNewTransformContext(sheet, input)));
    xsltSetCtxtSecurityPrefs(security.get(), context.get());
    xsltSetTransformErrorFunc(context.get(), &session, SheetSession::complain_to);
    context->maxTemplateDepth = kDeepestTemplate;
    xsltRegisterExtFunction(context.get(), chars("node-set"),
                            chars("urn:schemas-microsoft-com:xslt"), xsltFunctionNodeSet);
    budget.govern(context.get());
    give_parameters(context.get(), parameters);
    DocumentPtr result(
        xsltApplyStylesheetUser(sheet, input, nullptr, nullptr, nullptr, context.get()));
    budget.admit();
    budget.release();
    if (budget.memory_ended() || session.memory_ended()) throw std::bad_alloc();
    if (!budget.reason().empty()) fail("The style sheet could not be run", budget.reason());
    const std::string complaint = session.discreet_complaint();
    if (context->state == XSLT_STATE_STOPPED && complaint.empty()) {
        fail("The style sheet stopped the transformation", {});
    }
    if (context->state != XSLT_STATE_OK || result == nullptr || session.has_strayed()) {
        fail("The style sheet could not be run", complaint);
    }
    return result;
}

struct CompiledSheet {
    SheetPtr sheet;
    std::vector<SheetFile> files;

    bool is_current() const {
        return std::all_of(files.begin(), files.end(),
                           [](const SheetFile& file) { return file == look_at(file.path); });
    }
};

}  // namespace

struct StyleSheets::Cache {
    std::unordered_map<std::string, CompiledSheet> sheets;

    xsltStylesheetPtr get(const std::string& file_name) {
        const auto known = sheets.find(file_name);
        if (known != sheets.end()) {
            if (known->second.is_current()) return known->second.sheet.get();
            sheets.erase(known);
        }
        SheetSession session(file_name);
        SheetPtr sheet = compile(session, file_name);
        if (sheets.size() >= kMostSheets) sheets.clear();
        CompiledSheet& kept = sheets[file_name];
        kept = {std::move(sheet), session.files()};
        return kept.sheet.get();
    }
};

StyleSheets::StyleSheets() : cache_(std::make_unique<Cache>()) {}
StyleSheets::~StyleSheets() = default;

std::string StyleSheets::transform(std::string_view xml, const std::string& file_name,
                                   const SheetParameters& parameters) {
    DocumentPtr input = parse_input(xml);
    xsltStylesheetPtr sheet = cache_->get(file_name);
    SheetSession session(file_name);
    SheetBudget budget(xml.size());
    const DocumentPtr result = run(session, budget, sheet, input.get(), parameters);
    input.reset();  // its memory is the text's
    std::string text = serialise(result.get(), sheet, budget.folded());
    budget.admit();
    if (budget.memory_ended() || session.memory_ended()) throw std::bad_alloc();
    return text;
}

}  // namespace zr
