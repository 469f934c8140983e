// Request documents as a client sends them, with every part that a case may want to change.
#pragma once

#include <string>

namespace zr::gateway::test {

struct CreditRequest {
    std::string family = "Citizen";
    std::string first = "Jo";
    std::string date_of_birth = "1970-02-03";
    std::string reference = "";  ///< when given, there is no individual
    std::string product = "consumer-enquiry";
    std::string service_code = "BCA001";
    std::string enquiry_type = "credit-application";
    std::string account_type = "RM";
    bool summary = true;
};

inline std::string envelope(const std::string& service_code, const std::string& request) {
    return "<?xml version=\"1.0\"?><BCAmessage type=\"REQUEST\"><BCAaccess>"
           "<BCAaccess-code>demo</BCAaccess-code><BCAaccess-pwd>demo-secret</BCAaccess-pwd>"
           "</BCAaccess>\r<BCAservice><BCAservice-client-ref></BCAservice-client-ref>"
           "<BCAservice-code>" +
           service_code +
           "</BCAservice-code><BCAservice-code-version>V00</BCAservice-code-version>"
           "<BCAservice-data>" +
           request + "</BCAservice-data>\r</BCAservice>\r</BCAmessage>\r";
}

inline std::string subscriber() {
    return "<subscriber-details><subscriber-identifier>SUB1</subscriber-identifier>"
           "<security>SEC1</security></subscriber-details>\r";
}

inline std::string individual(const CreditRequest& wanted) {
    return "<individual role=\"principal\"><individual-name><family-name>" + wanted.family +
           "</family-name><first-given-name>" + wanted.first +
           "</first-given-name><other-given-name></other-given-name></individual-name>\r"
           "<employment><employer>Acme</employer><occupation>Clerk</occupation></employment>\r"
           "<address type=\"residential-current\"><unit-number>3</unit-number>"
           "<street-number>12</street-number><property>Mill</property>"
           "<street-name>Main</street-name><street-type code=\"ST\"></street-type>\r"
           "<suburb>Mockham</suburb><state>VIC</state><postcode>3999</postcode></address>\r"
           "<drivers-licence-number>123456</drivers-licence-number>"
           "<gender type=\"female\"></gender>\r<date-of-birth>" +
           wanted.date_of_birth + "</date-of-birth></individual>\r";
}

inline std::string credit_request(const CreditRequest& wanted = {}) {
    return envelope(wanted.service_code,
                    "<request version=\"1.0\" mode=\"test\" transaction-reference=\"T1\">" +
                        subscriber() + "<product name=\"" + wanted.product + "\"" +
                        (wanted.summary ? " summary=\"yes\"" : "") + "></product>\r" +
                        (wanted.reference.empty()
                             ? individual(wanted)
                             : "<bureau-reference>" + wanted.reference + "</bureau-reference>") +
                        "<enquiry type=\"" + wanted.enquiry_type + "\"><account-type code=\"" +
                        wanted.account_type +
                        "\"></account-type>\r<enquiry-amount>15000</enquiry-amount>"
                        "<client-reference>C1</client-reference></enquiry>\r</request>\r");
}

inline std::string organisation_request(const std::string& element, const std::string& value) {
    return envelope(
        "BCA020",
        "<request version=\"2.0\" mode=\"test\" transaction-reference=\"T1\">" + subscriber() +
            "<product name=\"organisation-identification\"></product>\r"
            "<working-with-organisation "
            "search-type=\"registered-companies-businesses\"><" +
            element + ">" + value + "</" + element + "></working-with-organisation>\r</request>\r");
}

// New Zealand

inline constexpr const char* kAllOptions =
    " score=\"yes\" ewp=\"yes\" driver-licence=\"yes\" property-ownership=\"yes\" summary=\"yes\" "
    "licencecheck=\"yes\" moj-fines=\"yes\"";

inline std::string nz_envelope(const std::string& service_code, const std::string& data) {
    return "<?xml version=\"1.0\"?><BCAmessage type=\"REQUEST\"><BCAaccess>"
           "<BCAaccess-code>demo</BCAaccess-code><BCAaccess-pwd>demo-secret</BCAaccess-pwd>"
           "</BCAaccess><BCAservice><BCAservice-code>" +
           service_code +
           "</BCAservice-code><BCAservice-code-version>V00</BCAservice-code-version>"
           "<BCAservice-client-ref>R</BCAservice-client-ref><BCAservice-data>" +
           data + "</BCAservice-data></BCAservice></BCAmessage>";
}

inline std::string nz_request(const std::string& product, const std::string& body, bool purpose) {
    return nz_envelope("BCA011",
                       "<request version=\"V2.0\" mode=\"test\" "
                       "transaction-reference=\"2012-06-15T10:00:00\">" +
                           std::string(purpose ? "<access-purpose code=\"C1\"/>" : "") +
                           "<client-details><client-identifier>C1</client-identifier>"
                           "<operator-id>op</operator-id></client-details><product name=\"" +
                           product + "\"" + body + "</request>");
}

inline std::string person(const std::string& family = "Citizen", const std::string& first = "Jo",
                          const std::string& options = kAllOptions) {
    const std::string address =
        "<street-number>2/14</street-number><street-name>Main</street-name>"
        "<street-type code=\"RD\"/><suburb>Mockburn</suburb><city>Port Specimen</city></address>";
    return nz_request(
        "consumer-enquiry-nz",
        options + "/><individual><individual-name><family-name>" + family +
            "</family-name><first-given-name>" + first +
            "</first-given-name><other-given-name></other-given-name></individual-name>"
            "<gender type=\"female\"/><date-of-birth>1970-02-03</date-of-birth>"
            "<address type=\"current\">" +
            address + "<address type=\"previous\">" + address +
            "<employment><employer>Acme</employer><occupation>Clerk</occupation></employment>"
            "<phone-details><phone-area-code>0009</phone-area-code>"
            "<phone-number>03731234</phone-number></phone-details><driver-licence-details>"
            "<licence-number>XX000000</licence-number><licence-version-number>001"
            "</licence-version-number></driver-licence-details></individual>"
            "<enquiry consent=\"yes\"><account-type code=\"PL\"/><enquiry-amount>15000"
            "</enquiry-amount><client-reference>E1</client-reference></enquiry>",
        true);
}

inline std::string company(const std::string& number) {
    return nz_request("company-enquiry",
                      " summary=\"yes\"/><registration-number>" + number + "</registration-number>",
                      false);
}

inline std::string company_with_directors(const std::string& number) {
    return nz_request("company-plus-enquiry-with-director-checks",
                      " consent=\"yes\" summary=\"yes\"/><registration-number>" + number +
                          "</registration-number>",
                      true);
}

inline std::string search(const std::string& element, const std::string& value) {
    return nz_request("company-selection-list",
                      "/><" + element + ">" + value + "</" + element + ">", false);
}

/// The text with its first `from` replaced by `to`.
inline std::string with(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    return at == std::string::npos ? "<not found: " + from + ">"
                                   : text.replace(at, from.size(), to);
}

}  // namespace zr::gateway::test
