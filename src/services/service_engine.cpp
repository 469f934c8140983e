#include "services/service_engine.h"

#include <map>
#include <mutex>
#include <utility>

#include "services/shared_procedures.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

/// Of no service: its catalogue is empty.
constexpr ServiceDefinition kNothing;

/// The catalogue that all services of a definition share: nobody writes in it.
std::shared_ptr<const Catalogue> shared_catalogue(const ServiceDefinition& definition) {
    static std::mutex mutex;
    static std::map<const ServiceDefinition*, std::shared_ptr<const Catalogue>> made;
    const std::lock_guard lock(mutex);
    std::shared_ptr<const Catalogue>& catalogue = made[&definition];
    if (catalogue == nullptr) {
        catalogue = std::make_shared<const Catalogue>(definition);
    }
    return catalogue;
}

}  // namespace

Service::Service() = default;
Service::~Service() = default;

std::string_view Service::ServiceName() const { return engine_->definition_.name; }

std::string_view Service::ServiceNameFriendly() const { return engine_->definition_.friendly_name; }

bool Service::Obsolete() const { return engine_->definition_.obsolete; }

ZRCreditBureau* Service::Application() const {
    return engine_->context_ != nullptr ? &engine_->context_->facade() : nullptr;
}

const zr::Products& Service::Products() const { return *engine_->own_catalogue().products; }

const CodeTableCollection& Service::CodeTables() const {
    return *engine_->own_catalogue().code_tables;
}

std::span<const Property<Service>> Service::settings() const {
    return engine_->definition_.settings();
}

const Property<Service>* Service::setting(TextArg name) const {
    for (const Property<Service>& row : settings()) {
        if (text::equal_ignoring_case(row.name, name)) {
            return &row;
        }
    }
    return nullptr;
}

void Service::Dispose() {
    engine_->context_ = nullptr;
    engine_->catalogue_ = engine_->nothing_;
}

Catalogue::Catalogue(const ServiceDefinition& definition) {
    if (definition.catalogue != nullptr) {
        fill_catalogue(*definition.catalogue, *products, *code_tables);
    }
}

ServiceEngine::ServiceEngine(const Service& face, const ServiceDefinition& definition,
                             ServiceContext& context)
    : face_(face),
      definition_(definition),
      context_(&context),
      catalogue_(shared_catalogue(definition)),
      nothing_(shared_catalogue(kNothing)) {}

const Catalogue& ServiceEngine::own_catalogue() {
    if (context_ != nullptr && own_ == nullptr) {
        own_ = std::make_shared<const Catalogue>(definition_);
        catalogue_ = own_;
    }
    return *catalogue_;
}

ServiceContext& ServiceEngine::context() const {
    if (context_ == nullptr) {
        throw PlatformError(error_number::kMessageOnly, "The service has been disposed of.");
    }
    return *context_;
}

bool ServiceEngine::fail(std::string message, Failure failure) {
    context().SetErrorMessage(std::move(message), std::move(failure));
    return false;
}

std::optional<XmlDocument> ServiceEngine::LoadResponseXML(std::string_view response_xml) {
    CheckedReply reply = reader().check(response_xml);
    if (!reply.document) {
        fail(std::move(reply.message), std::move(reply.failure));
    }
    return std::move(reply.document);
}

std::string ServiceEngine::render(const Request& request, const DateTime& response_date,
                                  std::string_view response_xml) {
    return TransformToHTML(context().style_sheets(), response_xml, face_.XSLTFileName(),
                           {{"response-date", response_date.date_only().to_iso()},
                            {"service", std::string(definition_.name)},
                            {"product", std::string(request.ProductId())},
                            {"directors-counted", counts_directors() ? "yes" : "no"}});
}

bool ServiceEngine::BuildResponse(Request& request, DateTime response_date,
                                  std::string_view response_xml) {
    return build_response(request, response_date, std::string(response_xml), std::nullopt);
}

bool ServiceEngine::build_response(Request& request, DateTime response_date,
                                   std::string response_xml, std::optional<XmlDocument> document) {
    Response& response = Component::new_response(request);
    Component::set(response.ResponseDate, response_date);
    Component::set(response.ResponseXML, std::move(response_xml));
    try {
        // The rendering is made even of a reply that turns out to be faulty.
        Component::set(response.ResponseHTML,
                       render(request, response_date, response.ResponseXML()));
        if (!document) {
            document = LoadResponseXML(response.ResponseXML());
        }
        if (document) {
            reader().translate(*this, context().format_settings(), counts_directors(), request,
                               document->root());
        }
    } catch (...) {
        Component::Dirty(request, true);  // half a response answers no later enquiry
        throw;
    }
    return document.has_value();
}

}  // namespace zr
