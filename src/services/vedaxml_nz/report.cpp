#include "services/vedaxml_nz/report.h"

#include "records/component.h"

namespace zr::new_zealand {
namespace {

constexpr std::string_view kInsolvencies = "insolvency-file/insolvency";

// The insolvency types that are bankruptcies.
constexpr std::string_view kBankruptcyTypes[] = {"TYPNP", "TYPRM", "TYPSO",
                                                 "TYPVL", "TYPCL", "TYPIL"};

/// What a person owes in court fines.
class CourtFines final : public ReportExtra {
  public:
    explicit CourtFines(XmlNames& names)
        : report_("/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/moj-fines-report",
                  names),
          balance_("moj-overdue-fines-balance", names),
          amount_("fines-amount", names) {}

    void fill(Response& response, XmlNode root, XmlNode /*person*/) const override {
        if (const XmlNode balance = root.first(report_).first(balance_)) {
            Component::set(response.MOJFinesAmount,
                           ZRXMLUtilities::GetSubNodeCurrency(balance, amount_, Currency()));
        }
    }

    void write_quick_summary(Response& response,
                             const layout::ReportFormats& /*formats*/) const override {
        if (!response.MOJFinesAmount().is_zero()) {
            Component::lines(response).AddElement("Quick Summary", "Ministry of Justice Fines",
                                                  "Overdue Total",
                                                  response.MOJFinesAmount().to_plain());
        }
    }

  private:
    XmlPath report_;
    XmlPath balance_;
    XmlPath amount_;
};

StatisticsCategory in_place_of_insolvencies(StatisticsCategory category) {
    category.instead_of = kInsolvencies;
    return category;
}

}  // namespace

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    return ZRXMLUtilities::GetSubNodeString(error, paths.error_code) + ": " +
           ZRXMLUtilities::GetSubNodeString(error, paths.error_description);
}

ReportDefinition report() {
    using namespace counted;
    return {
        .message = "general-message",
        .file = {.node = "file-id", .number = ".", .match_type = "@match-type"},
        .person = {.fields = {{&Response::LastName, "individual-name/family-name"},
                              {&Response::FirstName, "individual-name/first-given-name"},
                              {&Response::MiddleNames, "individual-name/other-given-name"},
                              {&Response::Gender, "gender/@type"}},
                   .current_address = "address[@type='current']",
                   .address_fields = {{&Response::StreetNumber, "street-number"},
                                      {&Response::StreetName, "street-name"},
                                      {&Response::Suburb, "suburb"},
                                      {&Response::City, "city"}},
                   .unit_in_street_number = true},
        .individual =
            {.counted = {{.family = RecordFamily::kBankruptcy,
                          .records = kInsolvencies,
                          .only_path = "insolvency-type/@code",
                          .only_codes = kBankruptcyTypes,
                          .event_date = "adjudication-date",
                          .open = Open::kUnlessNode,
                          .status_path = "discharged-date"},
                         in_place_of_insolvencies(kBankruptcies),
                         kDefaults,
                         kCollections,
                         kEnquiries,
                         {.family = RecordFamily::kJudgement,
                          .records = "judgement-file/judgement",
                          .event_date = "load-date",
                          .loaded = "judgement-amount",
                          .outstanding = "judgement-amount",
                          .settled_path = "judgement-status/@code",
                          .settled_by_any_code = true},
                         kPublicNotices},
             .quick_summary = {{RecordFamily::kEnquiry, "Enquiries", ""},
                               {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                               {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
                               {RecordFamily::kJudgement, "Judgements", ""},
                               {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
                               {RecordFamily::kPublicNotice, "Public Notices", ""}},
             .sections = person_sections()},
        .sources = {"/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                    "licencecheck-report",
                    "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                    "moj-fines-report"},
        .file_age = "negative-block/characteristic[@name='age-of-oldest-file']",
        .extra = [](XmlNames& names) -> std::unique_ptr<ReportExtra> {
            return std::make_unique<CourtFines>(names);
        },
        .company =
            CompanyReport{
                .mark_alone = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                              "enquiry-report/company",
                .alone = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                         "enquiry-report/company",
                .mark_with_directors = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/"
                                       "response/enquiry-report/company-report/company",
                .with_directors = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                                  "enquiry-report/company-report",
                .directors = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/"
                             "enquiry-report/director-report",
                .counts_whole_report = true,
                .fields = {{&Response::CompanyName, "company[1]/company-name"},
                           {&Response::CompanyNumber, "company[1]/registration-number"}},
                .part = {.counted = {kCompanyDefaults, kCompanyEnquiries, kCompanyJudgements,
                                     kCompanyPublicNotices},
                         .quick_summary = {{RecordFamily::kEnquiry, "Enquiries", ""},
                                           {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                                           {RecordFamily::kJudgement, "Judgements", ""},
                                           {RecordFamily::kPublicNotice, "Public Notices",
                                            "Adverse", true}},
                         .sections = company_sections()},
                .directors_quick_summary =
                    {{RecordFamily::kEnquiry, "Enquiries (incl Directors)", ""},
                     {RecordFamily::kDefault, "Defaults (incl Directors)", "Not Paid", true},
                     {RecordFamily::kCollection, "Collections (Directors)", ""},
                     {RecordFamily::kJudgement, "Judgements (incl Directors)", ""},
                     {RecordFamily::kBankruptcy, "Bankruptcy (Directors)", "Undischarged", true}}},
        .statistics = {{RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
                       {RecordFamily::kJudgement, "Judgements", "Not Paid"},
                       {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                       {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
                       {RecordFamily::kPublicNotice, "Public Notices", "Adverse", true, true},
                       {RecordFamily::kEnquiry, "Enquiries", ""}},
        .missing_amounts = layout::MissingAmounts::kZero,
        .content_error = content_error,
    };
}

}  // namespace zr::new_zealand
