// The live New Zealand VedaXML service.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "services/vedaxml_service.h"

namespace zr {

struct NewZealandSender;

/// Enquiries about a person, a company or a company and its directors, company searches and the
/// connection test over the New Zealand VedaXML gateway.
class ServiceVedaXMLNZ final : public VedaXmlService {
  public:
    std::string_view ServiceName() const override { return "VedaXMLNZ"; }
    std::string_view ServiceNameFriendly() const override {
        return "Veda Advantage VedaXML (New Zealand)";
    }
    std::string_view DefaultRequestURL() const override;
    std::string_view DefaultRequestURLTest() const override;

    /// Sent as the client's identifier; starts empty.
    const std::string& ClientId() const { return client_id_; }
    void ClientId(std::string_view id) { client_id_ = id; }

    /// Sent as the operator's identifier; starts empty.
    const std::string& OperatorId() const { return operator_id_; }
    void OperatorId(std::string_view id) { operator_id_ = id; }

    /// Whether the statistics of the directors found in a company's report are added to the
    /// company's own; starts false.
    bool CompanyAddDirectorsStatistics() const { return company_add_directors_statistics_; }
    void CompanyAddDirectorsStatistics(bool add) { company_add_directors_statistics_ = add; }

    std::span<const Property<Service>> settings() const override;

    // Component-internal: the facade calls these.
    bool VerifyConnection() override;
    const Translator& translator() const override;

  protected:
    bool counts_directors() const override { return company_add_directors_statistics_; }
    bool build_catalogue() override;
    bool BuildCreditEnquiryXML(Request& request) override;
    std::string_view missing_company() const override;
    bool BuildGetListXML(Request& request) override;
    void add_company_selections(CompanySelections& selections, XmlNode root) const override;

  private:
    NewZealandSender sender() const;
    /// The request's product, or none after storing the reason.
    const Product* product_of(const Request& request);

    std::string client_id_;
    std::string operator_id_;
    bool company_add_directors_statistics_ = false;
};

}  // namespace zr
