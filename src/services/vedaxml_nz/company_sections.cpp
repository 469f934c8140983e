#include "services/summary_lines.h"
#include "services/vedaxml_nz/lines.h"
#include "services/vedaxml_nz/report.h"

namespace zr::new_zealand {

using namespace layout;
using layout::text;  // rather than the namespace

// In the order of the report. A position of 1 stands where the report has the node once.
Sections company_sections() {
    return {
        {plain("Company"), "Company Details", "company[1]", company_lines()},
        {plain("Company"), "Addresses", "company[1]/company-address", company_address_lines()},
        {plain("Company"), "Previous Names", "company[1]/previous-company-name",
         previous_name_lines()},
        {plain("Company Shares"), "Shares", "company-shares[1]", share_lines()},
        {plain("Company Shares"), numbered("Shareholder"), "company-shares[1]/shareholder",
         shareholder_lines()},
        {plain("Company Officers"), numbered("Officer"), "company-officers/officer-details",
         officer_lines()},
        {plain("Documents"),
         numbered("Document"),
         "document-history/document-details",
         {
             line({"On ", date_at("date-registered")},
                  {text_at("document-name"), text_at("barcode").within(" (barcode ", ")")}),
         }},
        {plain("Credit References"), numbered("Credit Reference"),
         "company-credit-reference-file/company-credit-reference", credit_reference_lines()},
        Section{plain("Public Notices"), with_trimmed_id("Public Notice", "@unique-id"),
                "company-public-notice-file/company-public-notice", company_notice_lines()}
            .merging(Runs::kById),
        {plain("Enquiries"), numbered("Enquiry"), "company-credit-file/company-credit-enquirer",
         company_enquiry_lines()},
        {plain("Defaults"),
         with_id("Default", "@unique-id"),
         "company-default-file/company-default",
         {
             date("Created date", "@create-date"),
             text("Credit Provider", "credit-provider"),
             date("Date Account opened", "date-account-opened"),
             text("Account Terms", "account-terms"),
             line("Default Status", {text_at("company-default-status"),
                                     date_at("company-default-status/@last-update-date")
                                         .within(" (last updated ", ")")
                                         .if_value()}),
             date("Last Update date", "company-default-status/@last-update-date"),
             date("Date Paid", "date-paid"),
             money("Default Amount", "default-amount"),
             money("Default Balance", "default-balance"),
             line("Address", free_address()),
             person_name("Company Officer", "company-officer"),
             text("Narrative", "narrative"),
         }},
        {plain("Judgements"), with_id("Judgement", "@unique-id"),
         "company-judgement-file/company-judgement", company_judgement_lines()},
        {plain("Affiliations"), numbered("Affiliation"), "known-affiliation/affiliated-company",
         affiliation_lines()},
        {plain("Summary"), "Summary Data", "summary-data/summary",
         summary_lines(Form::kMoneySymbol)},
    };
}

}  // namespace zr::new_zealand
