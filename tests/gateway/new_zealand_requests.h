// New Zealand request documents as a client sends them.
#pragma once

#include "gateway/replies.h"

namespace zr::gateway::test {

inline constexpr const char* kTestPath = "/nz/cta/sys1";
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

/// The response element of the reply.
inline Element response_of(const std::string& request) {
    const Element data = data_of(ask(request, kTestPath));
    const Element* response = data.child("response");
    EXPECT_TRUE(response) << request;
    return response ? *response : Element{};
}

}  // namespace zr::gateway::test
