#include "bureau_gateway/bureau.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/documents/template.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

namespace fs = std::filesystem;

constexpr Refusal kNotXml{"message", "M001", "The message is not well-formed"};
constexpr Refusal kNotRequest{"message", "M002", "The message is not a request"};
constexpr Refusal kNoRequest{"message", "M003", "The message holds no request"};
constexpr Refusal kEnvelope{"message", "M004", "The message envelope is not in order"};
constexpr Refusal kAccessDenied{"security", "S001", "Access denied"};
constexpr Refusal kUnknownService{"service", "V001", "The service code is not known"};
constexpr Refusal kUnknownVersion{"service", "V002", "The service code version is not supported"};
constexpr Refusal kWrongMode{"service", "V003", "The mode does not fit the address"};
constexpr Refusal kUnknownFault{"service", "V010", "The fault is not known"};

constexpr std::size_t kMaxLargeKilobytes = 32'768;

/// Where the data is when nothing is said: beside the program, in a build as when installed.
fs::path data_beside_program() {
    return fs::read_symlink("/proc/self/exe").parent_path() / "../share/bureau_gateway";
}

/// The same request has the same id, so that replies can be compared whole.
std::string request_id_of(std::string_view document) {
    const std::string digits = std::to_string(hash(document) % 1'000'000'000'000ull);
    return "R" + std::string(12 - digits.size(), '0') + digits;
}

/// An empty reply: the document, and the element that its content goes to.
std::pair<Document, xmlNode*> new_reply(const std::string& code, const std::string& request_id) {
    Document document = new_document("BCAmessage");
    xmlNode& message = *xmlDocGetRootElement(document.get());
    set_attribute(message, "type", "RESPONSE");
    set_attribute(message, "service-request-id", request_id);
    xmlNode& service = add(add(message, "BCAservices"), "BCAservice");
    add(service, "BCAservice-code", code);
    xmlNode* data = &add(service, "BCAservice-data");
    return {std::move(document), data};
}

Answer refuse(const Refusal& refusal, const std::string& code, const std::string& request_id) {
    const auto [document, data] = new_reply(code, request_id);
    xmlNode& error = add(*data, "BCAerror");
    set_attribute(error, "type", refusal.type);
    add(error, "BCAerror-code", refusal.code);
    add(error, "BCAerror-description", refusal.description);
    return {to_text(*document), code.empty() ? "-" : code, "refused"};
}

std::map<std::string, Document> load_templates(const fs::path& folder) {
    std::map<std::string, Document> found;
    for (const auto& each : fs::directory_iterator(folder)) {
        if (each.path().extension() == ".xml") {
            found.emplace(each.path().stem().string(), load(each.path()));
        }
    }
    return found;
}

/// What comes behind the prefix in a demonstration's name; none when it is another name.
std::optional<std::string> behind(std::string_view prefix, const std::string& name) {
    return name.starts_with(prefix) ? std::optional(name.substr(prefix.size())) : std::nullopt;
}

std::size_t large_bytes_of(const std::string& name) {
    std::size_t kilobytes = 0;
    if (const auto digits = behind("LARGE-", name)) {
        std::from_chars(digits->data(), digits->data() + digits->size(), kilobytes);
    }
    return std::min(kilobytes, kMaxLargeKilobytes) * 1024;
}

std::string text_of_file(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

/// A message that is being answered.
struct Bureau::Enquiry {
    Document document;
    std::string code;
    std::string request_id;
    xmlNode* request = nullptr;  ///< null when there is none
    std::string_view path;
};

Bureau::Bureau(const Settings& settings)
    : user_(settings.user),
      password_(settings.password),
      today_(settings.today),
      data_(settings.data_folder.empty() ? data_beside_program() : settings.data_folder),
      own_replies_(settings.replies_folder),
      words_(load(data_ / "replies/words.xml")) {
    if (!own_replies_.empty() && !fs::is_directory(own_replies_)) {
        throw std::runtime_error("The folder '" + own_replies_.string() + "' is not there.");
    }
    const Document services = load(data_ / "requests/services.xml");
    for (const xmlNode* row : XPath(*services).nodes("/services/desk", *services->children)) {
        desks_.push_back(read_desk(*row));
    }
}

Bureau::Desk Bureau::read_desk(const xmlNode& row) const {
    Desk desk;
    desk.country = attribute(row, "country");
    desk.production = attribute(row, "production");
    desk.test = attribute(row, "test");
    desk.located = attribute(row, "errors") == "located";
    const fs::path requests = data_ / "requests" / desk.country;
    desk.envelope = std::make_unique<Schema>(requests / "envelope.xsd");
    desk.codes = load(requests / "codes.xsd");
    desk.templates = load_templates(data_ / "replies" / desk.country);
    desk.templates.merge(load_templates(data_ / "replies"));
    std::map<std::string, std::shared_ptr<const Schema>> schemas{{"", nullptr}};
    for (const xmlNode* each = row.children; each; each = each->next) {
        if (each->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string schema = attribute(*each, "request");
        if (!schemas.contains(schema)) {
            schemas[schema] = std::make_shared<Schema>(requests / (schema + ".xsd"));
        }
        const auto text = [&](const char* name) { return attribute(*each, name); };
        if (!desk.templates.contains(text("reply"))) {
            throw std::runtime_error("The template '" + text("reply") + "' is not there.");
        }
        desk.services.push_back({text("code"), text("version"), text("when"), text("reply"),
                                 text("outcome"), text("surname"), text("keys"), schemas[schema]});
    }
    return desk;
}

const Bureau::Desk* Bureau::desk_of(std::string_view path) const {
    const auto desk = std::find_if(desks_.begin(), desks_.end(), [&](const Desk& each) {
        return each.production == path || each.test == path;
    });
    return desk == desks_.end() ? nullptr : &*desk;
}

/// Why the bureau refuses the message unread; fills in what it read of it otherwise.
std::optional<Refusal> Bureau::refusal_of(const Desk& desk, Enquiry& enquiry) const {
    if (!enquiry.document) {
        return kNotXml;
    }
    xmlNode& root = *xmlDocGetRootElement(enquiry.document.get());
    if (name_of(root) != "BCAmessage" || attribute(root, "type") != "REQUEST") {
        return kNotRequest;
    }
    XPath xpath(*enquiry.document);
    const std::string code = xpath.text("BCAservice/BCAservice-code", root);
    const auto service = std::find_if(desk.services.begin(), desk.services.end(),
                                      [&](const Service& each) { return each.code == code; });
    const auto content = xpath.nodes("BCAservice/BCAservice-data/*", root);
    if (content.size() == 1 && name_of(*content.front()) == "request") {
        enquiry.request = content.front();
    } else if (!content.empty() || service == desk.services.end() || service->schema) {
        return kNoRequest;
    }
    if (!desk.envelope->check(root, [](XPath&) {}).empty()) {
        return kEnvelope;
    }
    if (xpath.text("BCAaccess/BCAaccess-code", root) != user_ ||
        xpath.text("BCAaccess/BCAaccess-pwd", root) != password_) {
        return kAccessDenied;
    }
    if (service == desk.services.end()) {
        return kUnknownService;
    }
    enquiry.code = code;
    if (xpath.text("BCAservice/BCAservice-code-version", root) != service->version) {
        return kUnknownVersion;
    }
    const char* mode = enquiry.path == desk.test ? "test" : "production";
    if (enquiry.request && attribute(*enquiry.request, "mode") != mode) {
        return kWrongMode;
    }
    return std::nullopt;
}

/// The row that answers; null when the request names a product that is not known.
const Bureau::Service* Bureau::service_of(const Desk& desk, const Enquiry& enquiry) {
    const auto row =
        std::find_if(desk.services.begin(), desk.services.end(), [&](const Service& each) {
            return each.code == enquiry.code &&
                   (each.when.empty() ||
                    XPath(*enquiry.document).test(each.when, *enquiry.request));
        });
    return row == desk.services.end() ? nullptr : &*row;
}

Answer Bureau::answer(std::string_view path, std::string_view document) const {
    const Desk& desk = *desk_of(path);
    Enquiry enquiry{parse(document), {}, request_id_of(document), nullptr, path};
    if (const auto refusal = refusal_of(desk, enquiry)) {
        return refuse(*refusal, enquiry.code, enquiry.request_id);
    }
    const Service* service = service_of(desk, enquiry);
    if (!service) {
        return reject(desk, enquiry, {{"E403", "value", "Product name is not known", "request"}});
    }
    if (enquiry.request && !service->schema) {
        return reject(
            desk, enquiry,
            {{"E501", "structure", "Element 'request' is not expected here", "BCAservice-data"}});
    }
    if (enquiry.request) {
        const auto complaints = service->schema->check(*enquiry.request, [&](XPath& rules) {
            offer_codes(rules, *xmlDocGetRootElement(desk.codes.get()));
        });
        if (!complaints.empty()) {
            return reject(desk, enquiry, complaints);
        }
    }
    const auto file = chosen(desk, *service, enquiry);
    return file ? send_chosen(desk, *service, enquiry, *file) : report(desk, *service, enquiry);
}

Answer Bureau::reject(const Desk& desk, const Enquiry& enquiry,
                      const std::vector<Complaint>& complaints) const {
    const auto [document, data] = new_reply(enquiry.code, enquiry.request_id);
    xmlNode& response = add(*data, "response");
    for (const Complaint& each : complaints) {
        xmlNode& error = add(response, "error");
        set_attribute(add(error, "error-description", each.description), "code", each.code);
        if (desk.located) {
            add(error, "error-type", each.type);
            add(error, "input-container", each.container);
        }
    }
    return {to_text(*document), enquiry.code, "errors"};
}

/// The answer that follows from the request, or that the surname of a demonstration asks for.
Answer Bureau::report(const Desk& desk, const Service& service, const Enquiry& enquiry) const {
    const std::string name =
        service.surname.empty() || !enquiry.request
            ? ""
            : to_upper(text_at(*enquiry.request, "string(" + service.surname + ")"));
    const Document& form = desk.templates.at(service.reply);
    Answer answer =
        make(desk, service, enquiry, *xmlDocGetRootElement(form.get()), {}, large_bytes_of(name));
    if (const auto fault = behind("FAULT-", name)) {
        try {
            answer.faults.push_back(parse_exchange_fault(*fault));
        } catch (const std::invalid_argument&) {
            return refuse(kUnknownFault, enquiry.code, enquiry.request_id);
        }
    }
    return answer;
}

/// The reply that is called as one of the request's keys, in any letter case: a user's own for the
/// country, a user's own, then the gateway's demonstrations.
std::optional<fs::path> Bureau::chosen(const Desk& desk, const Service& service,
                                       const Enquiry& enquiry) const {
    if (service.keys.empty() || !enquiry.request) {
        return std::nullopt;
    }
    const fs::path folders[] = {own_replies_.empty() ? "" : own_replies_ / desk.country,
                                own_replies_, data_ / "replies" / desk.country / "chosen"};
    for (const fs::path& folder : folders) {
        for (xmlNode* key : XPath(*enquiry.document).nodes(service.keys, *enquiry.request)) {
            const std::string wanted = to_upper(text_of(*key)) + ".XML";
            std::error_code absent;
            for (const auto& each : fs::directory_iterator(folder, absent)) {
                if (to_upper(each.path().filename().string()) == wanted) {
                    return each.path();
                }
            }
        }
    }
    return std::nullopt;
}

/// A template is filled in; anything else goes out as it stands, whatever it is.
Answer Bureau::send_chosen(const Desk& desk, const Service& service, const Enquiry& enquiry,
                           const fs::path& file) const {
    std::string text = text_of_file(file);
    const Document form = parse(text);
    const xmlNode* root = form ? xmlDocGetRootElement(form.get()) : nullptr;
    if (!root || name_of(*root) != "reply") {
        return {std::move(text), enquiry.code, "stored"};
    }
    return make(desk, service, enquiry, *root, file.parent_path(), 0);
}

Answer Bureau::make(const Desk& desk, const Service& service, const Enquiry& enquiry,
                    const xmlNode& form, const fs::path& beside, std::size_t large_bytes) const {
    const auto [document, data] = new_reply(enquiry.code, enquiry.request_id);
    const Document none = new_document("none");
    std::map<std::string, Document> own;
    const auto find = [&](const std::string& name) -> xmlNode* {
        const fs::path file = beside / (name + ".xml");
        if (!beside.empty() && !own.contains(name) && fs::is_regular_file(file)) {
            own[name] = load(file);
        }
        const auto found = desk.templates.find(name);
        return own.contains(name)              ? xmlDocGetRootElement(own[name].get())
               : found == desk.templates.end() ? nullptr
                                               : xmlDocGetRootElement(found->second.get());
    };
    const ReplyFacts facts{*(enquiry.request ? enquiry.request : xmlDocGetRootElement(none.get())),
                           *xmlDocGetRootElement(words_.get()),
                           *xmlDocGetRootElement(desk.codes.get()),
                           today_.value_or(current_date()),
                           large_bytes,
                           find};
    try {
        expand(form, facts, *data);
    } catch (const std::runtime_error& error) {
        const std::string what = error.what();
        return refuse({"template", "T001", what.c_str()}, enquiry.code, enquiry.request_id);
    }
    XPath xpath(*document);
    return {to_text(*document), enquiry.code,
            xpath.test("BCAerror", *data)         ? "refused"
            : xpath.test("response/error", *data) ? "errors"
                                                  : service.outcome};
}

}  // namespace zr::gateway
