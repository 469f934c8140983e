// What the services that translate replies have in common: the style sheet and BuildResponse.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "services/service.h"
#include "services/translator.h"
#include "xml/xml_document.h"

namespace zr {

/// A service that turns a bureau's replies into responses.
class ReplyService : public Service {
  public:
    /// The style sheet that turns a reply into ResponseHTML; starts empty, which gives none.
    const std::string& XSLTFileName() const { return xslt_file_name_; }
    void XSLTFileName(std::string_view name) { xslt_file_name_ = name; }

    // Component-internal: the facade calls these.

    /// Reads the service's replies.
    virtual const Translator& translator() const = 0;

    /// Has stored replies read by another translator of the same definition, one that tells a
    /// watch; by the service's own for null.
    void read_with(const Translator* reader) { reader_ = reader; }

    bool BuildResponse(Request& request, DateTime response_date,
                       const std::string& response_xml) override;

  protected:
    /// Whether a company's figures include those of its directors.
    virtual bool counts_directors() const { return false; }

    /// Stores the reason and answers false.
    bool fail(std::string message, Failure failure);

    /// Parses and checks a reply: the document, or nothing after storing the reason.
    std::optional<XmlDocument> LoadResponseXML(std::string_view response_xml);

    /// BuildResponse for a reply that may have been parsed already.
    bool build_response(Request& request, DateTime response_date, std::string response_xml,
                        std::optional<XmlDocument> document);

  private:
    /// The rendering of a reply, with what a sheet cannot read in it.
    std::string render(const Request& request, const DateTime& response_date,
                       std::string_view response_xml);

    const Translator& reader() const { return reader_ != nullptr ? *reader_ : translator(); }

    std::string xslt_file_name_;
    const Translator* reader_ = nullptr;
};

}  // namespace zr
