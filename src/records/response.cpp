#include "zrcreditbureau/response.h"

#include "records/component.h"
#include "records/property_rows.h"

namespace zr {

Response::Response()
    : elements_(std::make_shared<ReportLines>()),
      selections_(Component::make<zr::CompanySelections>()) {}

std::string Response::Name() const {
    return Individual() ? LastName() + ", " + FirstName() : CompanyName();
}

namespace {

constexpr Property<Response> kResponseProperties[] = {
    property<&Response::RequestId>("RequestId", "the bureau's identifier of the enquiry"),
    property<&Response::ResponseDate>("ResponseDate",
                                      "when the reply was received; null while there is none"),
    property<&Response::ResponseXML>("ResponseXML", "the bureau's reply document as text"),
    property<&Response::ResponseHTML>("ResponseHTML",
                                      "the reply rendered through the service's XSLT file"),
    property<&Response::ResponseMessage>("ResponseMessage",
                                         "what the bureau says of the outcome, to be shown as it "
                                         "stands; empty where it says nothing"),
    property<&Response::BureauFileId>("BureauFileId", "the bureau's file number of the subject"),
    property<&Response::MatchType>("MatchType", "how the bureau matched the subject"),
    property<&Response::Individual>("Individual", "true when the report is about a person"),
    property<&Response::Company>("Company", "true when the report is not about a person"),
    property<&Response::Name>("Name",
                              "\"LastName, FirstName\" of a person, CompanyName of a company"),
    property<&Response::CompanyName>("CompanyName", "company name"),
    property<&Response::CompanyNumber>("CompanyNumber", "company registration number"),
    property<&Response::DateOfBirth>("DateOfBirth", "subject's date of birth, null or empty text"),
    property<&Response::Employer>("Employer", "employer"),
    property<&Response::FirstName>("FirstName", "first given name"),
    property<&Response::Gender>("Gender", "gender as reported"),
    property<&Response::LastName>("LastName", "family name"),
    property<&Response::MaritalStatus>("MaritalStatus", "marital status"),
    property<&Response::MiddleNames>("MiddleNames", "other given names"),
    property<&Response::Occupation>("Occupation", "occupation"),
    property<&Response::DriversLicenceNumber>("DriversLicenceNumber", "driver licence number"),
    property<&Response::UnitNumber>("UnitNumber", "address: unit number"),
    property<&Response::StreetNumber>("StreetNumber", "address: street number"),
    property<&Response::PropertyName>("PropertyName", "address: property name"),
    property<&Response::StreetName>("StreetName", "address: street name"),
    property<&Response::StreetType>("StreetType",
                                    "address: street type, the table's description of the bureau's "
                                    "code; \"\" for an unknown code"),
    property<&Response::StreetAddress>("StreetAddress", "address as one line"),
    property<&Response::Suburb>("Suburb", "address: suburb"),
    property<&Response::City>("City", "address: city"),
    property<&Response::State>("State", "address: state"),
    property<&Response::Postcode>("Postcode", "address: postcode"),
    property<&Response::Country>("Country", "address: country"),
    property<&Response::BureauFileAge>(
        "BureauFileAge",
        "how old the bureau's file is, as New Zealand replies tell it; 0 where none is told"),
    property<&Response::DirectorsCount>("DirectorsCount", "number of directorships"),
    property<&Response::DisqualifiedDirectorshipUntil>("DisqualifiedDirectorshipUntil",
                                                       "end of a disqualification, or null"),
    property<&Response::MOJFinesAmount>("MOJFinesAmount", "total of court fines reported"),
    property<&Response::BankruptcyCount>("BankruptcyCount", "records of this kind in all"),
    property<&Response::BankruptcyCount1Y>("BankruptcyCount1Y", "those of the last year"),
    property<&Response::BankruptcyCount2Y>("BankruptcyCount2Y", "those of the last two years"),
    property<&Response::BankruptcyCount3Y>("BankruptcyCount3Y", "those of the last three years"),
    property<&Response::BankruptcyCount4Y>("BankruptcyCount4Y", "those of the last four years"),
    property<&Response::BankruptcyCountUndischarged>("BankruptcyCountUndischarged",
                                                     "bankruptcies not discharged"),
    property<&Response::CollectionCount>("CollectionCount", "records of this kind in all"),
    property<&Response::CollectionCount1Y>("CollectionCount1Y", "those of the last year"),
    property<&Response::CollectionCount2Y>("CollectionCount2Y", "those of the last two years"),
    property<&Response::CollectionCount3Y>("CollectionCount3Y", "those of the last three years"),
    property<&Response::CollectionCount4Y>("CollectionCount4Y", "those of the last four years"),
    property<&Response::CollectionCountUnpaid>("CollectionCountUnpaid",
                                               "collections with a balance outstanding"),
    property<&Response::CollectionLoadedValue>("CollectionLoadedValue",
                                               "collections as first lodged"),
    property<&Response::CollectionLoadedBalance>("CollectionLoadedBalance",
                                                 "collections outstanding"),
    property<&Response::DefaultCount>("DefaultCount", "records of this kind in all"),
    property<&Response::DefaultCount1Y>("DefaultCount1Y", "those of the last year"),
    property<&Response::DefaultCount2Y>("DefaultCount2Y", "those of the last two years"),
    property<&Response::DefaultCount3Y>("DefaultCount3Y", "those of the last three years"),
    property<&Response::DefaultCount4Y>("DefaultCount4Y", "those of the last four years"),
    property<&Response::DefaultCountUnpaid>("DefaultCountUnpaid",
                                            "defaults with a balance outstanding"),
    property<&Response::DefaultLoadedValue>("DefaultLoadedValue", "defaults as first lodged"),
    property<&Response::DefaultLoadedBalance>("DefaultLoadedBalance", "defaults outstanding"),
    property<&Response::JudgementCount>("JudgementCount", "records of this kind in all"),
    property<&Response::JudgementCount1Y>("JudgementCount1Y", "those of the last year"),
    property<&Response::JudgementCount2Y>("JudgementCount2Y", "those of the last two years"),
    property<&Response::JudgementCount3Y>("JudgementCount3Y", "those of the last three years"),
    property<&Response::JudgementCount4Y>("JudgementCount4Y", "those of the last four years"),
    property<&Response::JudgementCountUnpaid>("JudgementCountUnpaid",
                                              "judgements with a balance outstanding"),
    property<&Response::JudgementLoadedValue>("JudgementLoadedValue", "judgements as first lodged"),
    property<&Response::JudgementLoadedBalance>("JudgementLoadedBalance", "judgements outstanding"),
    property<&Response::PublicNoticeCount>("PublicNoticeCount", "records of this kind in all"),
    property<&Response::PublicNoticeCount1Y>("PublicNoticeCount1Y", "those of the last year"),
    property<&Response::PublicNoticeCount2Y>("PublicNoticeCount2Y", "those of the last two years"),
    property<&Response::PublicNoticeCount3Y>("PublicNoticeCount3Y",
                                             "those of the last three years"),
    property<&Response::PublicNoticeCount4Y>("PublicNoticeCount4Y", "those of the last four years"),
    property<&Response::PublicNoticeAdverseCount>("PublicNoticeAdverseCount",
                                                  "public notices marked adverse"),
    property<&Response::EnquiryCount>("EnquiryCount", "records of this kind in all"),
    property<&Response::EnquiryCount1Y>("EnquiryCount1Y", "those of the last year"),
    property<&Response::EnquiryCount2Y>("EnquiryCount2Y", "those of the last two years"),
    property<&Response::EnquiryCount3Y>("EnquiryCount3Y", "those of the last three years"),
    property<&Response::EnquiryCount4Y>("EnquiryCount4Y", "those of the last four years"),
};

}  // namespace

std::span<const Property<Response>> response_properties() { return kResponseProperties; }

}  // namespace zr
